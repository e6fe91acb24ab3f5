#include "platform/win32/windows_path.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/win32/code_page.h"
#include "platform/win32/directory.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/win32/ScratchFolder.h"

using win32::FileSystemPath;

namespace {

timespec Modified(const std::string& folder) {
    struct stat status {};
    stat(folder.c_str(), &status);
    return status.st_mtim;
}

/// Sets a folder's modification time, as if its last change had come at that clock tick.
void Stamp(const std::string& folder, const timespec& time) {
    const timespec times[2] = {time, time};
    utimensat(AT_FDCWD, folder.c_str(), times, 0);
}

}  // namespace

TEST(WindowsPath, NamesAreFoundWithoutRegardToCase) {
    const ScratchFolder scratch;
    scratch.MakeFolder("outPut/ZK1/室内曲线");
    scratch.Write("outPut/ZK1/室内曲线/KF誠.DWG", "");
    scratch.MakeFolder("Ｄａｔａ");
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"as it stands", "outPut\\ZK1", "outPut/ZK1"},
        {"other case at every step", "OUTPUT\\zk1\\室内曲线\\kf誠.dwg",
         "outPut/ZK1/室内曲线/KF誠.DWG"},
        {"several separators, slashes, one at the end", "output\\\\/zk1\\", "outPut/ZK1"},
        {"double-byte letters", "ｄＡＴＡ", "Ｄａｔａ"},
        {"what does not exist stays as it stands", "OUTPUT\\New\\A.dwg", "outPut/New/A.dwg"},
        {"steps up and down", "OUTPUT\\.\\zk1\\..\\zk1", "outPut/./ZK1/../ZK1"},
    };
    for (const auto& [reason, windows, expected] : rows) {
        EXPECT_EQ(FileSystemPath(scratch.Windows(win32::GbkFromUtf8(windows))),
                  scratch.Path(expected))
            << reason;
    }
    EXPECT_EQ(FileSystemPath(""), "");
    EXPECT_EQ(FileSystemPath("\\"), "/");
}

TEST(WindowsPath, TheExactNameWinsThenTheFirst) {
    const ScratchFolder scratch;
    scratch.Write("NAME.txt", "");
    scratch.Write("Name.txt", "");
    EXPECT_EQ(FileSystemPath(scratch.Windows("Name.txt")), scratch.Path("Name.txt"));
    EXPECT_EQ(FileSystemPath(scratch.Windows("name.txt")), scratch.Path("NAME.txt"));

    scratch.MakeFolder("OUT");
    scratch.Write("OUT/NAME.txt", "");
    scratch.Write("OUT/Name.txt", "");
    EXPECT_EQ(FileSystemPath(scratch.Windows("out\\Name.txt")), scratch.Path("OUT/Name.txt"));
}

TEST(WindowsPath, ChangesOfTheFolderAreSeenAtOnce) {
    const ScratchFolder scratch;
    EXPECT_EQ(FileSystemPath(scratch.Windows("A.TXT")), scratch.Path("A.TXT"));
    scratch.Write("a.txt", "");
    EXPECT_EQ(FileSystemPath(scratch.Windows("A.TXT")), scratch.Path("a.txt"));
    std::filesystem::rename(scratch.Path("a.txt"), scratch.Path("b.txt"));
    EXPECT_EQ(FileSystemPath(scratch.Windows("A.TXT")), scratch.Path("A.TXT"));
    EXPECT_EQ(FileSystemPath(scratch.Windows("B.TXT")), scratch.Path("b.txt"));

    timespec tick = Modified(scratch.Path());
    tick.tv_sec += 3600;  // the clock has not moved on since
    Stamp(scratch.Path(), tick);
    EXPECT_EQ(FileSystemPath(scratch.Windows("C.TXT")), scratch.Path("C.TXT"));
    scratch.Write("c.txt", "");
    Stamp(scratch.Path(), tick);
    EXPECT_EQ(FileSystemPath(scratch.Windows("C.TXT")), scratch.Path("c.txt"));
}

TEST(WindowsPath, EntriesOfOurOwnAreFoundAndLost) {
    const ScratchFolder scratch;
    FileSystemPath(scratch.Windows("none"));  // reads the folder
    scratch.Write("first.dwg", "");
    win32::NoteEntryMade(scratch.Path("first.dwg"));
    ASSERT_EQ(_mkdir(scratch.Windows("Sheets").c_str()), 0);
    EXPECT_EQ(FileSystemPath(scratch.Windows("FIRST.DWG")), scratch.Path("first.dwg"));
    EXPECT_EQ(FileSystemPath(scratch.Windows("SHEETS")), scratch.Path("Sheets"));
    const timespec tick = Modified(scratch.Path());
    std::filesystem::remove(scratch.Path("first.dwg"));
    Stamp(scratch.Path(), tick);
    EXPECT_EQ(FileSystemPath(scratch.Windows("FIRST.DWG")), scratch.Path("FIRST.DWG"));
}

TEST(WindowsPath, BackToWindows) {
    std::string path = "kept";
    EXPECT_FALSE(win32::WindowsPath("/home/\xF0\x9F\x98\x80", path)) << "a name outside GBK";
    EXPECT_FALSE(win32::WindowsPath("/home/a\\b", path)) << "a backslash in a name";
    EXPECT_EQ(path, "kept");
    ASSERT_TRUE(win32::WindowsPath("/data/誠/项目", path));
    EXPECT_EQ(path, win32::GbkFromUtf8("\\data\\誠\\项目"));
    EXPECT_EQ(FileSystemPath(path), "/data/誠/项目");
}

TEST(Directory, RelativePathsCountFromTheFolderChangedTo) {
    const ScratchFolder scratch;
    const std::filesystem::path before = std::filesystem::current_path();
    scratch.MakeFolder("Output");
    ASSERT_EQ(_chdir(scratch.Windows("OUTPUT\\").c_str()), 0);
    EXPECT_EQ(_mkdir("Sub"), 0);
    EXPECT_EQ(_mkdir("SUB"), -1) << "exists already";
    EXPECT_EQ(_mkdir("none\\deep"), -1) << "its parent does not exist";
    EXPECT_EQ(FileSystemPath("SUB\\x"), "Sub/x");
    EXPECT_EQ(_chdir("none"), -1);
    std::filesystem::current_path(before);
    EXPECT_TRUE(std::filesystem::is_directory(scratch.Path("Output/Sub")));
}
