#include "apps/grdx/draw.h"

#include <algorithm>

#include "apps/grdx/ConsoleSession.h"
#include "apps/grdx/Failure.h"
#include "apps/grdx/SheetAnswers.h"
#include "apps/grdx/suite_access.h"
#include "platform/win32/code_page.h"

namespace console {

namespace {
constexpr int kSixChartsCode = 2;

std::size_t ChartsPerSheet() {
    const ProjectData project = CurrentProject();
    return project.code == kSixChartsCode ? 6 : 2;
}

std::string SheetCount(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " sheet" : " sheets");
}

/// Why no chart of a sample can be drawn although nobody says so; empty when there is no such
/// reason.
std::string SilentSampleReason(SqliteDatabase& database, int projectIndex,
                               const std::string& borehole, const std::string& sample) {
    SqliteStatement row(database,
                        "SELECT KLTYZL FROM Z_c_KeFen WHERE GCSY=? AND ZKBH=? AND QYBH=?");
    row.Bind(1, std::int64_t{projectIndex});
    row.Bind(2, borehole);
    row.Bind(3, sample);
    if (!row.Step()) {
        return "it has no row of results (table Z_c_KeFen)";
    }
    return row.Number(0) ? "" : "its row of results has no total mass";
}

/// The same of a layer, by the label that the page gave it.
std::string SilentLayerReason(SqliteDatabase& database, int projectIndex,
                              const std::string& label) {
    const std::size_t hyphen = label.find('-');
    SqliteStatement row(database, "SELECT 1 FROM x_SheJi WHERE GCSY=? AND ZCBH=? AND YCBH=?");
    row.Bind(1, std::int64_t{projectIndex});
    row.Bind(2, std::int64_t{std::stoi(label)});
    row.Bind(3,
             std::int64_t{hyphen == std::string::npos ? 0 : std::stoi(label.substr(hyphen + 1))});
    return row.Step() ? "" : "it has no design values any more (table x_SheJi)";
}

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
        if (saved_ == 0) {
            perSheet_ = ChartsPerSheet();
        }
        ++saved_;
        session_.Messages().PrintResult(path + "\n");
        session_.Messages().ShowProgress(std::to_string(saved_) + " of " + SheetCount(Expected()));
    }

    std::size_t Expected() const { return (answers_.Picked().size() + perSheet_ - 1) / perSheet_; }

    bool Judge() {
        const bool fault = session_.ReportFaults();
        const bool storeFailed = session_.TakeStoreFailure();
        if (session_.Windows().Failed()) {
            session_.Messages().Report(session_.Windows().Error());
            return false;
        }
        if (answers_.Picked().empty()) {
            session_.Messages().Report("nothing was drawn");
            return false;
        }
        if (saved_ == 0) {
            perSheet_ = ChartsPerSheet();
        }
        if (saved_ < Expected()) {
            ReportMissing();
            return false;
        }
        return !fault && !storeFailed;
    }

    /// Sheets are made in the order of the page; the first that cannot be made is the last tried.
    void ReportMissing() {
        const std::vector<std::string>& picked = answers_.Picked();
        const std::size_t first = saved_ * perSheet_;
        std::string names;
        for (std::size_t i = first; i < picked.size(); ++i) {
            names += i == first ? "" : ", ";
            names += win32::Utf8FromGbk(picked[i]);
        }
        session_.Messages().Report(SheetCount(Expected() - saved_) +
                                   " not made; not drawn: " + names);
        ReportSilentReasons(first, std::min(first + perSheet_, picked.size()));
    }

    void ReportSilentReasons(std::size_t first, std::size_t end) {
        try {
            SqliteDatabase database = OpenProjectDatabase(SqliteDatabase::Mode::ReadOnly);
            const int index = CurrentProject().index;
            for (std::size_t i = first; i < end; ++i) {
                const std::string item = win32::Utf8FromGbk(answers_.Picked()[i]);
                const std::string reason =
                    request_.layers ? SilentLayerReason(database, index, item)
                                    : SilentSampleReason(database, index, request_.borehole, item);
                if (!reason.empty()) {
                    session_.Messages().Report(NameOf(item) + ": " + reason);
                }
            }
        } catch (const Failure& failure) {
            session_.Messages().Report(failure.what());
        }
    }

    std::string NameOf(const std::string& item) const {
        std::string name = request_.layers ? "layer \"" : "sample \"";
        name += item + '"';
        if (!request_.layers) {
            name += " of borehole \"" + request_.borehole + '"';
        }
        return name;
    }

    const DrawRequest& request_;
    ConsoleSession& session_;
    SheetAnswers answers_;
    std::size_t perSheet_ = 1;
    std::size_t saved_ = 0;
};
}  // namespace

bool DrawCharts(const std::string& suiteFolder, const DrawRequest& request,
                MessageStream& messages) {
    ConsoleSession session(messages);
    session.Start(suiteFolder);
    return Run(request, session).Draw();
}

}  // namespace console
