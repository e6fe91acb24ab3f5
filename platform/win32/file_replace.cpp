#include "platform/win32/file_replace.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/win32/file_place.h"
#include "platform/win32/windows_path.h"

namespace win32 {
namespace {

std::string Reason(const std::string& path, int code) {
    return path + ": " + std::generic_category().message(code);
}

bool WriteAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = write(descriptor, content.data(), content.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        content.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

bool WriteAll(int descriptor, const ContentSource& content) {
    std::string_view piece;
    do {
        if (!content(piece) || !WriteAll(descriptor, piece)) {
            return false;
        }
    } while (!piece.empty());
    return true;
}

/// False when another process holds the lock. Where the file system has no locks, nobody does.
bool Lock(const OpenFile& file) {
    return flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool IsStillAt(const OpenFile& file, int folder, const std::string& name) {
    struct stat held {};
    struct stat named {};
    return fstat(file.Get(), &held) == 0 &&
           fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

/// Removes a temporary file that its process has left: nobody holds its lock any more.
bool RemoveLeftOver(int folder, const std::string& name) {
    const OpenFile file(openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    return file.Get() >= 0 && Lock(file) && IsStillAt(file, folder, name) &&
           unlinkat(folder, name.c_str(), 0) == 0;
}

/// The new content of a file while it is written: beside the file, locked, under a name that
/// follows from the file's. So the next one finds what a killed process has left. Removed at its
/// end unless it was put in the file's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const FilePlace& target) : target_(target) {}
    ~TemporaryFile() {
        if (!name_.empty()) {
            unlinkat(target_.Folder(), name_.c_str(), 0);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int Get() const { return file_.Get(); }

    /// False with errno.
    bool Make() {
        constexpr int kMostTries = 1000;
        constexpr int kTriesAName = 10;
        for (int i = 0; i < kMostTries; ++i) {
            const std::string name = NameFor(i / kTriesAName);
            file_ = OpenFile(openat(target_.Folder(), name.c_str(),
                                    O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
            if (file_.Get() < 0 && errno != EEXIST) {
                return false;
            }
            if (file_.Get() < 0) {
                RemoveLeftOver(target_.Folder(), name);
            } else if (Lock(file_) && IsStillAt(file_, target_.Folder(), name)) {
                name_ = name;
                return true;
            }
        }
        errno = EBUSY;
        return false;
    }

    /// Some systems tell of a failed write only when the file is closed. A copy of the descriptor
    /// is closed, as the file's own holds the lock.
    bool CheckWritten() const {
        OpenFile copy(dup(file_.Get()));
        return copy.Get() >= 0 && copy.Close();
    }

    /// False with errno.
    bool PutInPlace() {
        if (renameat(target_.Folder(), name_.c_str(), target_.Folder(), target_.Name().c_str()) !=
            0) {
            return false;
        }
        name_.clear();
        return true;
    }

private:
    std::string NameFor(int number) const {
        std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
        for (const char c : target_.Name()) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
        }
        char name[64];
        std::snprintf(name, sizeof name, ".replace-%016llx-%d.tmp",
                      static_cast<unsigned long long>(hash), number);
        return name;
    }

    const FilePlace& target_;
    std::string name_;
    OpenFile file_;
};

/// Puts the entry of a file in its folder on the disk.
bool FlushFolderOf(const FilePlace& target) {
    const OpenFile folder(openat(target.Folder(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that may be written but not read cannot be flushed; the file itself is safe then.
    return folder.Get() < 0 || fsync(folder.Get()) == 0 || errno == EINVAL;
}

/// 0, or the code of the reason why a file at `target` may not be replaced.
int RefusalOf(const FilePlace& target, bool exists, const struct stat& old) {
    if (!exists) {
        return 0;
    }
    if (S_ISDIR(old.st_mode)) {
        return EISDIR;
    }
    if (!S_ISREG(old.st_mode)) {
        return EINVAL;
    }
    return faccessat(target.Folder(), target.Name().c_str(), W_OK, 0) == 0 ? 0 : errno;
}

/// Gives the new file the old one's permissions, and its owner where we may.
bool TakeOver(int descriptor, const struct stat& old) {
    struct stat made {};
    if (fstat(descriptor, &made) != 0) {
        return false;
    }
    const bool owned = (made.st_uid == old.st_uid && made.st_gid == old.st_gid) ||
                       fchown(descriptor, old.st_uid, old.st_gid) == 0;
    const mode_t wanted = old.st_mode & (owned ? 07777U : 01777U);
    return (made.st_mode & 07777U) == wanted || fchmod(descriptor, wanted) == 0;
}

}  // namespace

bool ReplaceFileWhole(const std::string& fileSystemPath, std::string_view content,
                      std::string& error, Durability durability) {
    const ContentSource source = [&content](std::string_view& piece) {
        piece = std::exchange(content, {});
        return true;
    };
    return ReplaceFileWhole(fileSystemPath, source, error, durability);
}

bool ReplaceFileWhole(const std::string& fileSystemPath, const ContentSource& content,
                      std::string& error, Durability durability) {
    const auto fail = [&](int code) {
        error = Reason(fileSystemPath, code);
        return false;
    };
    FilePlace target;
    if (!FindToWrite(fileSystemPath, target, error)) {
        return false;
    }
    struct stat old {};
    const bool exists =
        fstatat(target.Folder(), target.Name().c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0;
    if (const int refusal = RefusalOf(target, exists, old); refusal != 0) {
        return fail(refusal);
    }

    const bool flushed = durability == Durability::kOnDisk;
    TemporaryFile temporary(target);
    if (!temporary.Make() || (exists && !TakeOver(temporary.Get(), old)) ||
        !WriteAll(temporary.Get(), content) || (flushed && fsync(temporary.Get()) != 0) ||
        !temporary.CheckWritten() || !temporary.PutInPlace()) {
        return fail(errno);
    }
    NoteEntryMade(target.Path());
    return !flushed || FlushFolderOf(target) || fail(errno);
}

bool ReadFileWhole(const std::string& fileSystemPath, std::string& content, std::string& error,
                   bool* missing) {
    const auto fail = [&](int code) {
        error = Reason(fileSystemPath, code);
        if (missing != nullptr) {
            *missing = code == ENOENT || code == ENOTDIR;
        }
        return false;
    };
    // A pipe without a writer would keep the call waiting.
    const OpenFile file(open(fileSystemPath.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0) {
        return fail(errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return fail(EISDIR);
    }
    if (!S_ISREG(status.st_mode)) {
        error = fileSystemPath + ": it is a pipe or a device, not a file";
        if (missing != nullptr) {
            *missing = false;
        }
        return false;
    }
    // One byte more than the file has, so that its end is seen without more room.
    std::string read(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        if (filled == read.size()) {
            read.resize(filled + std::max<std::size_t>(filled / 2, 4096));
        }
        const ssize_t got = ::read(file.Get(), read.data() + filled, read.size() - filled);
        if (got < 0 && errno != EINTR) {
            return fail(errno);
        }
        if (got == 0) {
            break;
        }
        filled += got < 0 ? 0 : static_cast<std::size_t>(got);
    }
    read.resize(filled);
    content = std::move(read);
    return true;
}

}  // namespace win32
