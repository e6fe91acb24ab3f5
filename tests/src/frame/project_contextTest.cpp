#include "src/frame/project_context.h"

#include "tests/src/frame/FrameFixture.h"

namespace {

using Texts = std::vector<std::string>;

/// A main window that notes what it is sent.
class ProjectContextTest : public ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        window_ = win32::CreateWindow([this](UINT message, WPARAM sender, LPARAM data) {
            EXPECT_EQ(message, WM_COPYDATA);
            EXPECT_EQ(sender, reinterpret_cast<WPARAM>(window_));
            // NOLINTNEXTLINE(performance-no-int-to-ptr): the message carries an address
            const auto& copied = *reinterpret_cast<const COPYDATASTRUCT*>(data);
            EXPECT_EQ(copied.dwData, 1U);
            received_.assign(static_cast<const char*>(copied.lpData), copied.cbData);
            return LRESULT{0};
        });
        win32::SetMainWindow(window_);
    }
    void TearDown() override {
        win32::SetMainWindow(nullptr);
        win32::DestroyWindow(window_);
        ProjectFixture::TearDown();
    }

    HWND window_ = nullptr;
    std::string received_;
};

TEST_F(ProjectContextTest, AProjectPassesWhenOpenAndChecked) {
    for (const auto& [keys, passes] : {std::pair("GCSY=0\r\nGCSJ=0\r\n", true),
                                       {"GCSY=3\r\nGCSJ=-1\r\n", true},
                                       {"GCSY=-1\r\nGCSJ=0\r\n", false},
                                       {"GCSJ=0\r\n", false},
                                       {"GCSY=1\r\nGCSJ=1\r\n", false},
                                       {"GCSY=1\r\n", false}}) {
        WriteProject(keys);
        EXPECT_EQ(CheckProject(ProjectCheck::kCharts), passes) << keys;
    }
    EXPECT_EQ(Boxes(), (Texts{"请首先启动【数据管理】并打开工程，再重试此功能！",
                              "请首先启动【数据管理】并打开工程，再重试此功能！",
                              "工程数据没有进行[数据合法性检查]，\n请到主模块执行[数检]命令后再试此"
                              "功能！",
                              "工程数据没有进行[数据合法性检查]，\n请到主模块执行[数检]命令后再试此"
                              "功能！"}));
}

TEST_F(ProjectContextTest, AProjectWhoseIndexACurveCannotKeepHasNoCharts) {
    for (const auto& [index, fits] :
         {std::pair{"32767", true}, {"32768", false}, {"65537", false}, {"4294967297", false}}) {
        WriteProject(std::string("GCBH=勘-1\r\nGCSJ=0\r\nGCSY=") + index + "\r\n");
        EXPECT_EQ(CheckProject(ProjectCheck::kCharts), fits) << index;
        EXPECT_TRUE(CheckProject(ProjectCheck::kOpeners)) << index;
        EXPECT_EQ(Boxes(), fits ? Texts{}
                                : Texts{"工程“勘-1”的序号 " + std::string(index) +
                                        " 大于 32767，曲线的结果会存入其他工程，不能出图！"});
    }
}

TEST_F(ProjectContextTest, UncheckedDataHandTheChartsOverToDataManagementOnly) {
    WriteProject("GCSY=1\r\n");
    EXPECT_FALSE(CheckProject(ProjectCheck::kOpeners));
    EXPECT_EQ(received_, "");
    EXPECT_EQ(Windows().Shown().back().type, MB_OK | MB_ICONEXCLAMATION);
    EXPECT_EQ(Boxes(), Texts{"工程数据没有进行[数据合法性检查]，\n\n请到主模块执行[数检]命令后再试"
                             "此功能！"});
    EXPECT_FALSE(CheckProject(ProjectCheck::kCharts));
    EXPECT_EQ(received_, std::string("\x03"
                                     "GoDBManage\n\0",
                                     13));
}

TEST_F(ProjectContextTest, ReadsTheStandardCodeFromItsLeadingDigits) {
    for (const auto& [text, code] : {std::pair("2", 2), {"02", 2}, {"2a", 2}, {"x2", 0}, {"", 0}}) {
        WriteProject(std::string("GCBZ=") + text + "\r\n");
        LoadProjectContext();
        EXPECT_EQ(ProjectContext.GCBZ, code) << text;
    }
    EXPECT_EQ(ProjectContext.GCSY, -1) << "no index";

    const std::string name = "丂" + std::string(600, 'n');
    WriteProject("GCSY=7\r\nGCBH=勘-1\r\nGCMC=" + name + "\r\n");
    LoadProjectContext();
    EXPECT_EQ(ProjectContext.GCSY, 7);
    EXPECT_EQ(Utf8(ProjectContext.GCBH), "勘-1");
    EXPECT_EQ(Utf8(ProjectContext.GCMC), name);
}

}  // namespace
