#include "platform/win32/file_replace.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/platform/win32/OrdinaryUser.h"
#include "tests/platform/win32/ScratchFolder.h"

using win32::Durability;
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

/// A small file system of its own in a folder, where that is allowed.
class SmallDisk {
public:
    SmallDisk(const std::string& folder, const char* size)
        : folder_(folder),
          there_(mount("tmpfs", folder.c_str(), "tmpfs", 0,
                       (std::string("size=") + size).c_str()) == 0) {}
    ~SmallDisk() {
        if (there_) {
            umount(folder_.c_str());
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool IsThere() const { return there_; }

private:
    std::string folder_;
    bool there_;
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
    ASSERT_TRUE(ReplaceFileWhole(scratch.Path("dangling.txt"), "new", error, Durability::kOnDisk))
        << error;
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
    const std::pair<const char*, const char*> rows[] = {
        {"none/x.txt", "No such file or directory"},
        {"folder", "Is a directory"},
        {"old.txt/x.txt", "Not a directory"},
        {"a", "Too many levels of symbolic links"},
    };
    for (const auto& [name, reason] : rows) {
        std::string error;
        EXPECT_FALSE(ReplaceFileWhole(scratch.Path(name), "new", error)) << name;
        EXPECT_EQ(error, scratch.Path(name) + ": " + reason);
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

TEST(FileReplace, AFullDiskLeavesTheOldFile) {
    const ScratchFolder scratch;
    const SmallDisk disk(scratch.Path(), "64k");
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no right to mount a small disk";
    }
    scratch.Write("old.txt", "old");
    for (const Durability durability : {Durability::kWithSystem, Durability::kOnDisk}) {
        std::string error;
        EXPECT_FALSE(ReplaceFileWhole(scratch.Path("old.txt"), std::string(100'000, 'x'), error,
                                      durability));
        EXPECT_EQ(error, scratch.Path("old.txt") + ": No space left on device");
    }
    EXPECT_EQ(scratch.Read("old.txt"), "old");
    EXPECT_EQ(scratch.Names().size(), 1U) << "nothing left over";
}

TEST(FileReplace, WithoutPermissionTheOldFileStays) {
    const ScratchFolder scratch;
    scratch.Write("protected.txt", "old");
    chmod(scratch.Path("protected.txt").c_str(), 0444);
    scratch.MakeFolder("closed");
    scratch.Write("closed/file.txt", "old");
    chmod(scratch.Path("closed/file.txt").c_str(), 0666);
    chmod(scratch.Path("closed").c_str(), 0555);
    chmod(scratch.Path().c_str(), 0777);
    for (const char* name : {"protected.txt", "closed/file.txt"}) {
        EXPECT_EQ(AsOrdinaryUser([&] {
                      std::string error;
                      const bool replaced = ReplaceFileWhole(scratch.Path(name), "new", error);
                      return !replaced && error == scratch.Path(name) + ": Permission denied" ? 0
                                                                                              : 1;
                  }),
                  0);
        EXPECT_EQ(scratch.Read(name), "old");
    }
    chmod(scratch.Path("closed").c_str(), 0755);
}

TEST(FileReplace, WhatAKilledProcessLeftGoesButNotWhatAnotherIsWriting) {
    const ScratchFolder scratch;
    scratch.Write("file.txt", "old");
    // A process that is killed at its first write.
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
        setrlimit(RLIMIT_CORE, &none);
        std::signal(SIGXFSZ, SIG_DFL);
        std::string error;
        ReplaceFileWhole(scratch.Path("file.txt"), "new", error);
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    auto names = scratch.Names();
    ASSERT_EQ(names.size(), 2U) << "a temporary file is left";
    const std::string leftOver = names.front();
    std::string error;
    {
        const int held = open(scratch.Path(leftOver).c_str(), O_RDONLY | O_CLOEXEC);
        ASSERT_EQ(flock(held, LOCK_EX), 0);
        ASSERT_TRUE(ReplaceFileWhole(scratch.Path("file.txt"), "second", error)) << error;
        EXPECT_EQ(scratch.Names(), names) << "the other's file stays";
        close(held);
    }
    ASSERT_TRUE(ReplaceFileWhole(scratch.Path("file.txt"), "third", error)) << error;
    EXPECT_EQ(scratch.Names(), std::vector<std::string>{"file.txt"});
    EXPECT_EQ(scratch.Read("file.txt"), "third");
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
