#include "apps/grdx/draw.h"

#include <cstdlib>
#include <filesystem>

#include "apps/grdx/ConsoleSession.h"
#include "apps/grdx/DrawProgress.h"
#include "apps/grdx/SheetAnswers.h"
#include "apps/grdx/plot_handover.h"
#include "apps/grdx/suite_access.h"
#include "lab/checks/project_check.h"
#include "src/core/curve_shape.h"
#include "src/facts/curve_form.h"

namespace console {

namespace {
/// Runs one request from the sheet to the findings.
class Run {
public:
    Run(const DrawRequest& request, ConsoleSession& session)
        : request_(request), session_(session), answers_(request, session.Windows()) {}

    bool Draw() {
        session_.Windows().Reset();  // of the run before
        session_.Windows().SetAnswerSource(
            [this](mfc::FrameModel& window) { return answers_(window); });
        host::CommandInput noInput = host::CommandInput::OfText("");
        const bool ran = session_.Program().Interpreter().RunCommand(
            request_.layers ? "CLGRDX" : "CGRDX", noInput);
        session_.Messages().ShowProgress("");
        return Judge() && ran;
    }

private:
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

/// A call from the choice of samples to the PDF file.
class DrawCall {
public:
    DrawCall(const std::string& suiteFolder, const DrawOrder& order, MessageStream& messages)
        : suiteFolder_(Absolute(suiteFolder)),
          pdf_(order.pdf.empty() ? "" : Absolute(order.pdf)),
          order_(order),
          messages_(messages) {}

    bool Draw() {
        MakeRequests();
        if (!requests_.empty()) {
            DrawRequests();
        }
        if (!pdf_.empty() && !sheets_.empty()) {
            complete_ = PlotToPdf(sheets_, pdf_, suiteFolder_) && complete_;
        }
        return complete_;
    }

private:
    /// Commands change the current folder.
    static std::string Absolute(const std::string& path) {
        return std::filesystem::absolute(path).lexically_normal().string();
    }

    void MakeRequests() {
        const lab::DrawChoice& samples = order_.samples;
        if (order_.layers) {
            requests_.push_back({true, "", order_.items, order_.all, order_.choices});
        } else if (samples.boreholes.size() == 1 && !samples.undrawn && !order_.skipFaulty) {
            requests_.push_back({false, samples.boreholes.front(), samples.samples,
                                 samples.allSamples, order_.choices});
        } else {
            MakeSampleRequests();
        }
    }

    /// The choice is made before anything is drawn, so that a wrong name stops all of it.
    void MakeSampleRequests() {
        OpenSuite(suiteFolder_);
        const lab::ProjectData data = lab::ReadProjectData();
        std::vector<lab::BoreholeSamples> chosen = lab::ChosenSamples(data, order_.samples);
        if (order_.skipFaulty) {
            const lab::FindingList findings = lab::CheckProject(data, lab::ReadCheckSettings());
            for (const lab::Finding& finding : lab::TakeOutFaulty(findings, chosen)) {
                messages_.Report("left out: " + lab::DescribeFinding(finding));
                complete_ = false;
            }
        }
        const bool everything =
            order_.samples.allSamples && !order_.samples.undrawn && !order_.skipFaulty;
        const std::size_t perSheet = ChartsPerSheet(data.project.profile.code);
        std::size_t expected = 0;
        for (lab::BoreholeSamples& borehole : chosen) {
            expected += (borehole.samples.size() + perSheet - 1) / perSheet;
            requests_.push_back({false, std::move(borehole.borehole), std::move(borehole.samples),
                                 everything, order_.choices});
        }
        progress_.Expect(expected);
    }

    void DrawRequests() {
        ConsoleSession session(messages_);
        session.Start(suiteFolder_);
        session.SetSaveListener([&](const std::string& path) {
            if (requests_.size() == 1) {
                progress_.Expect(session.Charts().Expected());
            }
            OnSheetSaved(path);
        });
        for (const DrawRequest& request : requests_) {
            complete_ = Run(request, session).Draw() && complete_;
        }
    }

    void OnSheetSaved(const std::string& path) {
        sheets_.push_back(path);
        messages_.PrintResult(path + "\n");
        progress_.CountSheet();
        messages_.ShowProgress(progress_.Text());
    }

    std::string suiteFolder_;
    std::string pdf_;
    const DrawOrder& order_;
    MessageStream& messages_;
    std::vector<DrawRequest> requests_;
    std::vector<std::string> sheets_;  ///< made so far
    DrawProgress progress_{0};
    bool complete_ = true;
};
}  // namespace

bool DrawCharts(const std::string& suiteFolder, const DrawOrder& order, MessageStream& messages) {
    if (order.curve) {
        setenv(kCurveFormVariable, order.curve->c_str(), 1);
    }
    return DrawCall(suiteFolder, order, messages).Draw();
}

}  // namespace console
