#include "platform/win32/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <map>
#include <thread>
#include <utility>

#include "platform/win32/file_place.h"
#include "platform/win32/open_file.h"

namespace win32 {

using namespace std::chrono_literals;

namespace {
constexpr auto kMostWait = 10s;
constexpr auto kPause = 2ms;
}  // namespace

/// The empty file that stands for the locked one.
class FileLock::LockFile {
public:
    explicit LockFile(FilePlace target)
        : target_(std::move(target)), name_("." + target_.Name() + ".lock") {}
    ~LockFile() {
        // Removed before it is unlocked, so that nobody locks a file that is about to go.
        if (file_.Get() >= 0) {
            unlinkat(target_.Folder(), name_.c_str(), 0);
        }
    }
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    /// False when another holds the lock all the time.
    bool Take() {
        const auto end = std::chrono::steady_clock::now() + kMostWait;
        while (std::chrono::steady_clock::now() < end) {
            OpenFile file = Open();
            if (file.Get() < 0) {
                return true;
            }
            if (!TryLock(file)) {
                std::this_thread::sleep_for(kPause);
            } else if (IsStillThere(file)) {
                file_ = std::move(file);
                return true;
            }
        }
        return false;
    }

private:
    OpenFile Open() const {
        constexpr int kAlways = O_CREAT | O_NOFOLLOW | O_CLOEXEC;
        OpenFile file(openat(target_.Folder(), name_.c_str(), O_RDWR | kAlways, 0666));
        // Another user's may be open for reading only, which is enough on most file systems.
        return file.Get() >= 0 || errno != EACCES
                   ? std::move(file)
                   : OpenFile(openat(target_.Folder(), name_.c_str(), O_RDONLY | kAlways, 0666));
    }

    /// False when another holds the lock. Where the file system has no locks, nobody does.
    static bool TryLock(const OpenFile& file) {
        return flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    }

    /// False when the holder before has removed the file.
    bool IsStillThere(const OpenFile& file) const {
        struct stat held {};
        struct stat named {};
        return fstat(file.Get(), &held) == 0 &&
               fstatat(target_.Folder(), name_.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
               held.st_dev == named.st_dev && held.st_ino == named.st_ino;
    }

    FilePlace target_;
    std::string name_;
    OpenFile file_;
};

FileLock::FileLock(const std::string& fileSystemPath) {
    static std::map<std::string, std::weak_ptr<LockFile>> held;
    FilePlace target;
    std::string refusal;
    if (!FindToWrite(fileSystemPath, target, refusal)) {
        return;
    }
    std::weak_ptr<LockFile>& own = held[target.Path()];
    lockFile_ = own.lock();
    if (lockFile_ != nullptr) {
        return;
    }
    lockFile_ = std::make_shared<LockFile>(std::move(target));
    if (lockFile_->Take()) {
        own = lockFile_;
    } else {
        lockFile_.reset();
        fault_ = fileSystemPath + ": another program keeps it locked";
    }
}

FileLock::~FileLock() = default;

}  // namespace win32
