#include <cstring>

#include <gtest/gtest.h>

#include "platform/ed/adesk_results.h"
#include "platform/ed/file_search.h"
#include "platform/win32/code_page.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace {
/// A scratch folder with two search folders and a font mapping.
class FileSearchTest : public testing::Test {
protected:
    FileSearchTest() {
        folder_.MakeFolder("first");
        folder_.MakeFolder("第二");
        ed::SetSearchFolders({Windows("first"), Windows("第二") + "\\"});
    }
    ~FileSearchTest() override {
        ed::SetSearchFolders({});
        ed::LoadFontMapping("");
    }

    void Write(const std::string& name, const std::string& content = "x") const {
        folder_.Write(name, content);
    }
    std::string Windows(const std::string& name) const {
        return folder_.Windows(win32::GbkFromUtf8(name));
    }
    /// The Windows path found, or "" for nothing.
    static std::string Find(const std::string& name) {
        char result[512] = "untouched";
        return acedFindFile(name.c_str(), result) == RTNORM ? result : "";
    }

    ScratchFolder folder_;
};
}  // namespace

TEST_F(FileSearchTest, TakesTheFirstFolderThatHasTheName) {
    Write("第二/both.dwg");
    Write("第二/Second.dwg");
    EXPECT_EQ(Find("both.dwg"), Windows("第二") + "\\both.dwg");
    Write("first/both.dwg");
    EXPECT_EQ(Find("both.dwg"), Windows("first") + "\\both.dwg");
    EXPECT_EQ(Find("SECOND.DWG"), Windows("第二") + "\\SECOND.DWG");
    EXPECT_EQ(Find("neither.dwg"), "");
}

TEST_F(FileSearchTest, ANameWithAFolderIsNotSearchedFor) {
    Write("first/a.dwg");
    EXPECT_EQ(Find(Windows("first") + "\\a.dwg"), Windows("first") + "\\a.dwg");
    EXPECT_EQ(Find("sub\\a.dwg"), "");
    EXPECT_EQ(Find(Windows("first")), "") << "a folder is no file";
}

TEST_F(FileSearchTest, OnlyShapeFontsAreFoundThroughTheMapping) {
    Write("fonts.ini",
          win32::GbkFromUtf8("[Fonts]\nHztxt.shx=文泉驿正黑\nplain.ttf=Other\nnone.shx=\n"));
    EXPECT_EQ(Find("hztxt.shx"), "");
    ed::LoadFontMapping(Windows("fonts.ini"));
    EXPECT_EQ(Find("hztxt.shx"), "hztxt.shx");
    EXPECT_EQ(Find("HZTXT.SHX"), "HZTXT.SHX");
    EXPECT_EQ(win32::Utf8FromGbk(ed::MappedFont("HZtxt.shx")), "文泉驿正黑");
    EXPECT_EQ(Find("plain.ttf"), "");
    EXPECT_EQ(Find("none.shx"), "") << "an entry without a font maps nothing";

    Write("first/hztxt.shx");
    EXPECT_EQ(Find("hztxt.shx"), Windows("first") + "\\hztxt.shx") << "a file comes first";
    ed::LoadFontMapping(Windows("missing.ini"));
    EXPECT_EQ(ed::MappedFont("hztxt.shx"), "");
}

TEST_F(FileSearchTest, APathThatDoesNotFitTheBufferIsNotFound) {
    for (const std::size_t length : {511U, 512U}) {  // a terminator follows
        std::string deep = std::string(200, 'a') + "/" + std::string(200, 'b') + "/";
        deep += std::string(length - (Windows(deep) + "\\x.dwg").size(), 'c');
        folder_.MakeFolder(deep);
        Write(deep + "/x.dwg");
        ed::SetSearchFolders({Windows(deep)});
        EXPECT_EQ(Find("x.dwg"), length < 512 ? Windows(deep) + "\\x.dwg" : "") << length;
    }
}
