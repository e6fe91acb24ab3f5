#include "platform/win32/file_replace.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "tests/platform/win32/ScratchFolder.h"

using win32::ReadFileWhole;
using win32::ReplaceFileWhole;

namespace {

mode_t Permissions(const std::string& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777U;
}

/// Makes writes fail that take a file beyond `bytes`.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limited{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit old_{};
    void (*oldHandler_)(int);
};

}  // namespace

TEST(FileReplace, KeepsPermissionsAndLinks) {
    const ScratchFolder scratch;
    std::string error;
    scratch.Write("real.txt", "old");
    chmod(scratch.Path("real.txt").c_str(), 0640);
    std::filesystem::create_symlink("real.txt", scratch.Path("link.txt"));
    std::filesystem::create_symlink("new.txt", scratch.Path("dangling.txt"));

    ASSERT_TRUE(ReplaceFileWhole(scratch.Path("link.txt"), "longer than old", error)) << error;
    EXPECT_EQ(scratch.Read("real.txt"), "longer than old");
    EXPECT_EQ(Permissions(scratch.Path("real.txt")), 0640U);
    ASSERT_TRUE(ReplaceFileWhole(scratch.Path("dangling.txt"), "new", error)) << error;
    EXPECT_EQ(scratch.Read("new.txt"), "new");

    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(Permissions(scratch.Path("new.txt")), 0666U & ~mask);
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.Path("link.txt")));
    EXPECT_EQ(scratch.Names().size(), 4U) << "nothing left over";
}

TEST(FileReplace, AFailureNamesPathAndReasonAndLeavesTheOldFile) {
    const ScratchFolder scratch;
    scratch.Write("old.txt", "old");
    scratch.MakeFolder("folder");
    std::filesystem::create_symlink("b", scratch.Path("a"));
    std::filesystem::create_symlink("a", scratch.Path("b"));
    const auto before = scratch.Names();
    const struct {
        const char* name;
        const char* reason;
    } rows[] = {
        {"none/x.txt", "No such file or directory"},
        {"folder", "Is a directory"},
        {"old.txt/x.txt", "Not a directory"},
        {"a", "Too many levels of symbolic links"},
    };
    for (const auto& row : rows) {
        std::string error;
        EXPECT_FALSE(ReplaceFileWhole(scratch.Path(row.name), "new", error)) << row.name;
        EXPECT_EQ(error, scratch.Path(row.name) + ": " + row.reason);
    }
    {
        const FileSizeLimit limit(1000);
        std::string error;
        EXPECT_FALSE(ReplaceFileWhole(scratch.Path("old.txt"), std::string(5000, 'x'), error));
        EXPECT_EQ(error, scratch.Path("old.txt") + ": File too large");
    }
    EXPECT_EQ(scratch.Read("old.txt"), "old");
    EXPECT_EQ(scratch.Names(), before) << "nothing left over";
}

TEST(FileReplace, ReadingTellsAMissingFileFromOtherFailures) {
    const ScratchFolder scratch;
    const std::string large(100'000, 'x');
    scratch.Write("large", large);
    std::string content;
    std::string error;
    bool missing = false;
    ASSERT_TRUE(ReadFileWhole(scratch.Path("large"), content, error));
    EXPECT_EQ(content, large);
    EXPECT_FALSE(ReadFileWhole(scratch.Path("none"), content, error, &missing));
    EXPECT_TRUE(missing);
    EXPECT_EQ(error, scratch.Path("none") + ": No such file or directory");
    EXPECT_FALSE(ReadFileWhole(scratch.Path(), content, error, &missing));
    EXPECT_FALSE(missing);
    EXPECT_EQ(content, large) << "unchanged by a failure";
    ASSERT_TRUE(ReadFileWhole("/proc/self/stat", content, error)) << "a file that tells no size";
    EXPECT_FALSE(content.empty());
}
