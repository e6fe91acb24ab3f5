#include "src/frame/chart_folder.h"

#include "tests/src/frame/FrameFixture.h"

namespace {

using Texts = std::vector<std::string>;

class ChartFolderTest : public ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        ProjectContext.GCBH = "GC1";
    }
    std::string WindowsFolder() const {
        std::string path;
        EXPECT_TRUE(win32::WindowsPath(Folder().string(), path));
        return path;
    }
};

TEST_F(ChartFolderTest, MakesEveryLevelOnceAndMovesThere) {
    for (const char* reason : {"made", "there already"}) {
        std::string folder;
        EXPECT_TRUE(MakeChartFolder(folder)) << reason;
        EXPECT_EQ(folder, WindowsFolder() + "\\output\\GC1\\" + Gbk("室内曲线") + "\\") << reason;
        EXPECT_EQ(folder, ChartFolder());
        EXPECT_EQ(std::filesystem::current_path(), Folder() / "output/GC1/室内曲线") << reason;
    }
}

TEST_F(ChartFolderTest, AnEmptyProjectNumberLeavesItsLevelOut) {
    ProjectContext.GCBH.clear();
    std::string folder;
    EXPECT_TRUE(MakeChartFolder(folder));
    EXPECT_TRUE(std::filesystem::is_directory(Folder() / "output/室内曲线"));
}

TEST_F(ChartFolderTest, SaysWhyThereIsNone) {
    std::ofstream(Folder() / "output") << "a file in the way";
    std::string folder = "as it was";
    EXPECT_FALSE(MakeChartFolder(folder));
    suite::CloseFolder();
    EXPECT_FALSE(MakeChartFolder(folder));
    EXPECT_EQ(folder, "as it was");
    EXPECT_EQ(Boxes(), (Texts{"不能新建目录.", "路径未注册!"}));
}

}  // namespace
