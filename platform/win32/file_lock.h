#pragma once

#include <memory>
#include <string>

namespace win32 {

/// Keeps everybody else who locks the same file waiting while it lives: other processes, also on
/// other machines that share the folder, as far as its file system has locks. Whoever reads the
/// file without locking it is not hindered. A process may lock a file that it has locked already;
/// all locks are taken on one thread.
///
/// The file itself is not opened, since it may be replaced meanwhile: an empty file ".NAME.lock"
/// beside it is locked and removed in the end. One that a killed process has left locks nothing and
/// goes with the next lock of the file. Where none can be made there is no lock, as the file cannot
/// be replaced there either.
class FileLock {
public:
    /// Waits up to ten seconds for another's lock. The path is UTF-8, as FileSystemPath gives it.
    explicit FileLock(const std::string& fileSystemPath);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Empty; after waiting in vain path and reason (UTF-8), and the file is another's.
    const std::string& Fault() const { return fault_; }

private:
    class LockFile;

    std::shared_ptr<LockFile> lockFile_;
    std::string fault_;
};

}  // namespace win32
