#pragma once

#include <string>

#include "platform/win32/ProfileText.h"
#include "platform/win32/file_lock.h"

namespace lab {

/// Takes marks of what was drawn out of a profile. From the beginning to its end nobody else
/// changes the profile; what was taken is put back unless Keep is called. Failure when the profile
/// cannot be read, locked or written.
class MarkRemoval {
public:
    /// `profile` is a path as profiles have it (GBK).
    explicit MarkRemoval(const std::string& profile);
    ~MarkRemoval();
    MarkRemoval(const MarkRemoval&) = delete;
    MarkRemoval& operator=(const MarkRemoval&) = delete;

    /// Takes a name out of the list under a key; texts are GBK.
    void Remove(const std::string& key, const std::string& name);
    void Write();
    void Keep() { written_ = false; }

private:
    std::string path_;
    win32::FileLock lock_;
    std::string before_;
    win32::ProfileText text_;
    bool changed_ = false;
    bool written_ = false;
};

}  // namespace lab
