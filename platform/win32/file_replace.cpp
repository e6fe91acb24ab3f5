#include "platform/win32/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <system_error>

#include "platform/win32/windows_path.h"

namespace win32 {
namespace {

constexpr int kMaxLinks = 40;

std::string Reason(const std::string& path, int code) {
    return path + ": " + std::generic_category().message(code);
}

/// A file descriptor that is closed in the end.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile() { Close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    int Get() const { return descriptor_; }
    /// False when the system reports a late failure.
    bool Close() {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor < 0 || close(descriptor) == 0;
    }

private:
    int descriptor_;
};

/// Removes the file at its end unless it was kept.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string path) : path_(std::move(path)) {}
    ~TemporaryFile() {
        if (!kept_) {
            unlink(path_.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    void Keep() { kept_ = true; }

private:
    std::string path_;
    bool kept_ = false;
};

std::string FolderPrefix(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

/// Where the path leads to once symbolic links are followed, also when nothing is there yet.
/// Empty when they go in circles.
std::string FollowLinks(std::string path) {
    for (int i = 0; i < kMaxLinks; ++i) {
        std::string target(4096, '\0');
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            return path;
        }
        target.resize(static_cast<std::size_t>(length));
        path = target.starts_with('/') ? target : FolderPrefix(path).append(target);
    }
    return {};
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

/// A new file in the folder of `target`; -1 with errno when none can be made.
int MakeTemporary(const std::string& target, std::string& path) {
    static std::atomic<unsigned> counter{0};
    for (;;) {
        path = FolderPrefix(target) + ".replace-" + std::to_string(getpid()) + "-" +
               std::to_string(counter++) + ".tmp";
        const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
}

/// 0, or the code of the reason why a file at `target` may not be replaced.
int RefusalOf(const std::string& target, bool exists, const struct stat& old) {
    if (!exists) {
        return 0;
    }
    if (S_ISDIR(old.st_mode)) {
        return EISDIR;
    }
    if (!S_ISREG(old.st_mode)) {
        return EINVAL;
    }
    return access(target.c_str(), W_OK) == 0 ? 0 : errno;
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
                      std::string& error) {
    const auto fail = [&](int code) {
        error = Reason(fileSystemPath, code);
        return false;
    };
    const std::string target = FollowLinks(fileSystemPath);
    if (target.empty()) {
        return fail(fileSystemPath.empty() ? ENOENT : ELOOP);
    }
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (const int refusal = RefusalOf(target, exists, old); refusal != 0) {
        return fail(refusal);
    }

    std::string temporaryPath;
    OpenFile file(MakeTemporary(target, temporaryPath));
    if (file.Get() < 0) {
        return fail(errno);
    }
    TemporaryFile temporary(temporaryPath);
    if (exists && !TakeOver(file.Get(), old)) {
        return fail(errno);
    }
    if (!WriteAll(file.Get(), content) || !file.Close() ||
        rename(temporaryPath.c_str(), target.c_str()) != 0) {
        return fail(errno);
    }
    temporary.Keep();
    NoteEntryMade(target);
    return true;
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
    const OpenFile file(open(fileSystemPath.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0) {
        return fail(errno);
    }
    std::string read;
    // One byte more than the file has, so that its end is seen by the read that fills it.
    std::size_t size = static_cast<std::size_t>(status.st_size) + 1;
    for (;;) {
        const std::size_t before = read.size();
        read.resize(before + size);
        const ssize_t got = ::read(file.Get(), read.data() + before, size);
        if (got < 0 && errno != EINTR) {
            return fail(errno);
        }
        read.resize(before + (got < 0 ? 0 : static_cast<std::size_t>(got)));
        if (got == 0) {
            break;
        }
        size = std::max<std::size_t>(size / 2, 4096);
    }
    content = std::move(read);
    return true;
}

}  // namespace win32
