// From drawing to a stored, reshaped curve in one process, as a user goes through it, and what the
// saved sheet and the database then say.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#include "host/Host.h"
#include "host/model_space.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"
#include "tests/system/Program.h"
#include "tests/system/SheetEntities.h"

namespace {

using mfc::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kQuestion = "颗分图中有关数据已改变,是否入库?";

/// A program over the sample project (A4 sheets), with the plug-in and a user who answers as told.
class EditingRound : public testing::Test {
protected:
    EditingRound() {
        mfc::SetWindowSystem(&windows_);
        ed::SetCommandLineSink(
            [this](const std::string& text) { printed_ += win32::Utf8FromGbk(text); });
        host_ = std::make_unique<host::Host>();
        std::string error;
        EXPECT_TRUE(host_->OpenSuite(suite_.Folder(), error)) << error;
        EXPECT_TRUE(host_->LoadModule(GRDX_MODULE, error)) << error;
        host_->StartDocument();
    }
    ~EditingRound() override {
        EndProgram();
        ed::SetCommandLineSink(nullptr);
        mfc::SetWindowSystem(nullptr);
        // The chart commands leave the current folder in the suite's.
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }
    void EndProgram() { host_.reset(); }

    /// Runs command-line input; true when every command went well.
    bool Run(const std::string& utf8) {
        printed_.clear();
        host::CommandInput input = host::CommandInput::OfText(win32::GbkFromUtf8(utf8));
        return host_->Interpreter().Run(input);
    }
    void Select(int id, const std::vector<std::string>& texts) {
        Answer answer{Answer::Kind::Select, id};
        for (const std::string& text : texts) {
            answer.texts.push_back(win32::GbkFromUtf8(text));
        }
        windows_.AddAnswer(answer);
    }
    void Press(int id) { windows_.AddAnswer({Answer::Kind::Press, id}); }
    void AnswerBox(int button) { windows_.AddAnswer({Answer::Kind::Box, button}); }
    /// Texts of the boxes shown since the last call.
    std::vector<std::string> Boxes() {
        std::vector<std::string> texts;
        for (const mfc::ShownWindow& window : windows_.Shown()) {
            if (window.kind == mfc::ShownWindow::Kind::Box) {
                texts.push_back(win32::Utf8FromGbk(window.text));
            }
        }
        EXPECT_EQ(windows_.Error(), "");
        EXPECT_THAT(windows_.LeftAnswers(), IsEmpty());
        windows_.Reset();
        return texts;
    }

    /// Pick of the only curve of the current drawing.
    static std::string CurvePick() {
        std::vector<std::string> picks;
        host::ForEachModelSpaceEntity(
            *acDocManager->curDocument()->database(), [&](AcDbEntity& entity) {
                if (std::string(entity.isA()->name()) == "CKFCurve") {
                    char pick[24];
                    std::snprintf(pick, sizeof pick, "#%llX",
                                  static_cast<unsigned long long>(entity.objectId().handle()));
                    picks.emplace_back(pick);
                }
            });
        EXPECT_EQ(picks.size(), 1U);
        return picks.empty() ? "" : picks.front();
    }
    static std::string CurrentDrawing() {
        return std::filesystem::path(win32::FileSystemPath(acDocManager->curDocument()->fileName()))
            .filename();
    }
    std::filesystem::path Sheet(const std::string& name) const {
        for (const auto& sheet : suite_.Sheets()) {
            if (sheet.filename() == name) {
                return sheet;
            }
        }
        ADD_FAILURE() << "no sheet " << name;
        return {};
    }
    /// The values that the sheet's labels show, in their order.
    std::vector<double> Row() const {
        std::vector<double> values;
        std::istringstream row(
            suite_.Ask("SELECT KLD60||' '||KLBJXS||' '||KLD30||' '||KLD10||' '||KLQLXS FROM "
                       "Z_c_KeFen WHERE ZKBH='ZK1' AND QYBH='3'"));
        for (double value = 0.0; row >> value;) {
            values.push_back(value);
        }
        return values;
    }

    ScratchFolder scratch_;
    SampleSuite suite_{scratch_.Path() / "suite", 0};
    mfc::ScriptedWindowSystem windows_;
    std::string printed_;
    std::unique_ptr<host::Host> host_;
};

/// The labels of the curve in a sheet as programs without the plug-in show them: the texts "=…" of
/// the proxy graphics in the file.
std::vector<std::string> LabelsInFile(const std::filesystem::path& sheet) {
    std::vector<std::string> labels;
    for (const std::vector<std::uint8_t>& bytes : ReadCurveGraphics(sheet)) {
        const std::string text(bytes.begin(), bytes.end());
        for (std::size_t at = text.find('='); at != std::string::npos; at = text.find('=', at)) {
            const std::size_t end = text.find_first_not_of("0123456789.", at + 1);
            labels.push_back(text.substr(at + 1, end - at - 1));
            at = end;
        }
    }
    return labels;
}

/// The value with as many decimals as the label shows.
std::string AsShown(double value, const std::string& label) {
    const std::size_t point = label.find('.');
    char text[40];
    std::snprintf(text, sizeof text, "%.*f",
                  point == std::string::npos ? 0 : static_cast<int>(label.size() - point - 1),
                  value);
    return text;
}

TEST_F(EditingRound, ValuesOfAReshapedCurveAreTheSameOnTheSavedSheetAndInTheDatabase) {
    Select(2008, {"ZK1"});
    Select(2001, {"1", "2", "3"});
    Press(IDOK);
    Select(2015, {"试样ZK1-1和ZK1-2"});
    Press(IDOK);
    ASSERT_TRUE(Run("CGRDX")) << printed_;
    ASSERT_EQ(CurrentDrawing(), "KFZK1-1~ZK1-2.dwg");
    const std::vector<double> drawn = Row();
    ASSERT_EQ(drawn.size(), 5U);

    Select(2014, {"ZK1"});
    Select(2015, {"试样ZK1-3"});
    Press(IDOK);
    ASSERT_TRUE(Run("EGRDX")) << printed_;
    ASSERT_EQ(CurrentDrawing(), "KFZK1-3.dwg");
    EXPECT_THAT(Boxes(), IsEmpty());

    const std::string pick = CurvePick();
    const std::string openOther = "OPEN " + Sheet("KFZK1-1~ZK1-2.dwg").string() + "\n";
    ASSERT_TRUE(Run("GRIP " + pick + " 3 0,4")) << printed_;
    AnswerBox(IDNO);
    ASSERT_TRUE(Run(openOther + "CLOSE")) << printed_;
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Row(), drawn);

    ASSERT_TRUE(Run(openOther + "CLOSE")) << printed_;
    EXPECT_THAT(Boxes(), IsEmpty()) << "declined once is declined";

    ASSERT_EQ(CurrentDrawing(), "KFZK1-3.dwg");
    ASSERT_TRUE(Run("GRIP " + pick + " 4,5 0,2")) << printed_;
    AnswerBox(IDYES);
    ASSERT_TRUE(Run(openOther + pick + "\nCLOSE")) << printed_;
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_THAT(printed_, HasSubstr("\n颗分数据存储成功!"));

    ASSERT_TRUE(Run("QSAVE QUIT")) << printed_;
    EXPECT_THAT(Boxes(), IsEmpty()) << "stored and saved";
    EndProgram();

    const std::vector<double> stored = Row();
    const std::vector<std::string> labels = LabelsInFile(Sheet("KFZK1-3.dwg"));
    ASSERT_EQ(labels.size(), 5U);
    ASSERT_EQ(stored.size(), 5U);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_EQ(AsShown(stored[i], labels[i]), labels[i]) << "label " << i;
        EXPECT_NE(stored[i], drawn[i]) << "label " << i;
    }
}

}  // namespace
