#include "apps/grdx/draw.h"

#include <cstdlib>

#include "apps/grdx/ConsoleSession.h"
#include "apps/grdx/SheetAnswers.h"
#include "src/facts/curve_form.h"

namespace console {

namespace {
/// Runs one request from the sheet to the findings.
class Run {
public:
    Run(const DrawRequest& request, ConsoleSession& session)
        : request_(request), session_(session), answers_(request, session.Windows()) {}

    bool Draw() {
        session_.Windows().SetAnswerSource(
            [this](mfc::FrameModel& window) { return answers_(window); });
        session_.SetSaveListener([this](const std::string& path) { OnSheetSaved(path); });
        host::CommandInput noInput = host::CommandInput::OfText("");
        const bool ran = session_.Program().Interpreter().RunCommand(
            request_.layers ? "CLGRDX" : "CGRDX", noInput);
        session_.Messages().ShowProgress("");
        return Judge() && ran;
    }

private:
    void OnSheetSaved(const std::string& path) {
        const ChartTally& charts = session_.Charts();
        session_.Messages().PrintResult(path + "\n");
        session_.Messages().ShowProgress(std::to_string(charts.Saved()) + " of " +
                                         SheetCount(charts.Expected()));
    }

    bool Judge() {
        const bool begun = session_.Charts().Begun();
        const bool good = session_.JudgeCommand();
        if (session_.Windows().Failed()) {
            session_.Messages().Report(session_.Windows().Error());
            return false;
        }
        if (!begun) {
            session_.Messages().Report("nothing was drawn");
        }
        return begun && good;
    }

    const DrawRequest& request_;
    ConsoleSession& session_;
    SheetAnswers answers_;
};
}  // namespace

bool DrawCharts(const std::string& suiteFolder, const DrawRequest& request,
                MessageStream& messages) {
    if (request.curve) {
        setenv(kCurveFormVariable, request.curve->c_str(), 1);
    }
    ConsoleSession session(messages);
    session.Start(suiteFolder);
    return Run(request, session).Draw();
}

}  // namespace console
