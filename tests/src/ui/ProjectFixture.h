#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/mfc/resources.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/clock.h"
#include "platform/win32/code_page.h"
#include "src/common/module_state.h"
#include "src/ui/plugin_resources.h"
#include "tests/src/TestProject.h"

/// A TestProject whose data are checked and that is not loaded yet, and a scripted user. Texts of
/// the tests are UTF-8, those of files and dialogs GBK.
class ProjectFixture : public ::testing::Test {
public:
    static std::string Gbk(const std::string& utf8) { return win32::GbkFromUtf8(utf8); }
    static std::string Utf8(const std::string& gbk) { return win32::Utf8FromGbk(gbk); }

    const std::filesystem::path& Folder() const { return project_->Folder(); }

    void WriteText(const std::string& name, const std::string& utf8) const {
        std::ofstream(Folder() / name, std::ios::binary) << Gbk(utf8);
    }
    std::string ReadText(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(Folder() / name, std::ios::binary).rdbuf();
        return Utf8(text.str());
    }
    void WriteProject(const std::string& keys) const {
        WriteText("project.ini", "[Project]\r\n" + keys);
    }

    /// Runs statements and gives the rows of their results, columns joined by "|".
    std::vector<std::string> Sql(const std::string& statements) const {
        return project_->Sql(statements);
    }
    /// A sample of 0.3 m at 1.5 m whose sieve items of 10 g each make up `total` g.
    void AddSample(const std::string& borehole, const std::string& sample,
                   const std::string& method = "筛析法", double total = 50.0) const {
        project_->InsertSample(borehole, sample, total,
                               {{2, 10}, {0.5, 10}, {0.25, 10}, {0.075, 10}, {0, 10}}, method);
        Sql("INSERT INTO z_c_QuYang VALUES(1,'" + borehole + "','" + sample + "',1.5,0.3)");
    }
    void AddLayer(int mainLayer, int subLayer) const {
        project_->InsertLayer(mainLayer, subLayer,
                              {{1105, "20"}, {1108, "30"}, {1109, "40"}, {1118, "10"}});
    }

    /// What the user does next when a window waits; `window` shows its state.
    using Step = std::function<std::vector<mfc::Answer>(mfc::FrameModel& window)>;
    void Then(Step step) { steps_.push_back(std::move(step)); }
    void Then(const std::vector<mfc::Answer>& answers) {
        Then([answers](mfc::FrameModel&) { return answers; });
    }
    static mfc::Answer Press(int id) { return {mfc::Answer::Kind::Press, id}; }
    static mfc::Answer Box(int button) { return {mfc::Answer::Kind::Box, button}; }
    static mfc::Answer Select(int id, std::vector<std::string> texts) {
        std::transform(texts.begin(), texts.end(), texts.begin(), Gbk);
        return {mfc::Answer::Kind::Select, id, texts};
    }

    /// Texts of the boxes shown since the last call, in order.
    std::vector<std::string> Boxes() { return std::exchange(boxes_, {}); }
    /// What was printed on the command line since the last call.
    std::string Printed() { return std::exchange(printed_, {}); }

protected:
    void SetUp() override {
        static const HINSTANCE instance = mfc::RegisterModule(PluginResources());
        ExtensionModule.AttachInstance(instance);
        project_.emplace();
        ProjectContext = {};
        WriteProject("GCSY=1\r\nGCBH=GC1\r\nGCBZ=0\r\nGCMC=某工程\r\nGCSJ=0\r\n");
        ProjectProfilePath = PathFrom(GetProjectProfilePath);
        SettingsProfilePath = PathFrom(GetSettingsProfilePath);
        MarkProfilePath = PathFrom(GetMarkProfilePath);
        win32::SetClock([] { return std::time_t{1700000000}; });
        ed::SetCommandLineSink([this](const std::string& text) { printed_ += Utf8(text); });
        windows_.SetBoxSink([this](const mfc::MessageBoxRequest& request) {
            boxes_.push_back(Utf8(request.text));
        });
        windows_.SetAnswerSource([this](mfc::FrameModel& window) { return NextStep(window); });
        mfc::SetWindowSystem(&windows_);
    }

    void TearDown() override {
        EXPECT_EQ(windows_.Error(), "");
        EXPECT_TRUE(steps_.empty()) << steps_.size() << " steps were not asked for";
        EXPECT_TRUE(windows_.LeftAnswers().empty());
        mfc::SetWindowSystem(nullptr);
        ed::SetCommandLineSink(nullptr);
        win32::SetClock(nullptr);
        std::filesystem::current_path(std::filesystem::temp_directory_path());
        project_.reset();
    }

    mfc::ScriptedWindowSystem& Windows() { return windows_; }

private:
    static std::string PathFrom(void (*operation)(char*)) {
        char buffer[256];
        operation(buffer);
        return buffer;
    }

    std::vector<mfc::Answer> NextStep(mfc::FrameModel& window) {
        if (steps_.empty()) {
            windows_.Fail("a window waits and no step is left");
            return {};
        }
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        return step(window);
    }

    std::optional<TestProject> project_;
    mfc::ScriptedWindowSystem windows_;
    std::deque<Step> steps_;
    std::vector<std::string> boxes_;
    std::string printed_;
};
