#include "platform/win32/file_place.h"

#include <gtest/gtest.h>

#include "platform/win32/directory.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/file_replace.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace fs = std::filesystem;

namespace {

class FilePlace : public testing::Test {
protected:
    FilePlace() {
        for (const char* folder : {"suite/output", "agreed", "other"}) {
            scratch_.MakeFolder(folder);
        }
        scratch_.Write("other/file", "theirs");
    }
    ~FilePlace() override { win32::SetWriteBounds({}); }
    void Link(const std::string& name, const std::string& target) const {
        fs::create_symlink(target, scratch_.Path(name));
    }
    ScratchFolder scratch_;
    const std::string root_ = scratch_.Path();
};

}  // namespace

TEST_F(FilePlace, LinksAreFollowedToWhatIsNotThereYet) {
    Link("a", "suite/../suite/output");
    Link("suite/output/b", root_ + "/./none/x");
    Link("up", "..");
    const std::pair<const char*, std::string> rows[] = {
        {"a/b/../y", root_ + "/none/y"},
        {"suite//./output/", root_ + "/suite/output"},
        {"a/../other/new", root_ + "/suite/other/new"},
        {"up", root_.substr(0, root_.rfind('/'))},
        {"none/../../z", "z"},
    };
    for (const auto& [path, real] : rows) {
        const std::string above = root_.substr(0, root_.rfind('/') + 1);
        EXPECT_EQ(win32::RealPath(root_ + "/" + path), real == "z" ? above + "z" : real) << path;
    }
    EXPECT_TRUE(win32::IsWithin("/", "/a"));
    EXPECT_FALSE(win32::IsWithin("/a", "/ab"));
}

TEST_F(FilePlace, LinksOfBoundedFoldersLeadNowhereElse) {
    win32::SetWriteBounds({root_ + "/suite", root_ + "/agreed", root_ + "/one"});
    Link("suite/sheet", root_ + "/other/file");
    Link("suite/folder", "../other");
    Link("agreed/out", "../other/new");
    Link("suite/in", "output/sheet");
    Link("suite/there", "../agreed");
    Link("suite/one", "../one");
    Link("alias", "other");
    const struct {
        const char* name;
        const char* to;  ///< null: refused
    } rows[] = {
        {"suite/sheet", nullptr},
        {"suite/folder/file", nullptr},
        {"agreed/out", nullptr},
        {"suite/there/out", nullptr},
        {"suite/in", "suite/output/sheet"},
        {"suite/there/x", "agreed/x"},
        {"suite/one", "one"},
        {"alias/mine", "other/mine"},
        {"suite/../other/x", "other/x"},
    };
    for (const auto& row : rows) {
        std::string error;
        const bool written = win32::ReplaceFileWhole(scratch_.Path(row.name), "new", error);
        EXPECT_EQ(written, row.to != nullptr) << row.name << " " << error;
        if (row.to != nullptr) {
            EXPECT_EQ(scratch_.Read(row.to), "new");
        } else {
            EXPECT_EQ(error.find(scratch_.Path(row.name) + ": a link leads out of the folder, to "),
                      0U)
                << error;
        }
    }
    EXPECT_EQ(_mkdir(scratch_.Windows("suite\\folder\\made").c_str()), -1);
    EXPECT_EQ(_mkdir(scratch_.Windows("suite\\there\\made").c_str()), 0);
    EXPECT_EQ(CreateFile(scratch_.Windows("agreed\\out").c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                         nullptr, OPEN_ALWAYS, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(scratch_.Read("other/file"), "theirs");
    EXPECT_FALSE(fs::exists(scratch_.Path("other/made")) || fs::exists(scratch_.Path("other/new")));
}
