#pragma once

#include <unistd.h>

#include <utility>

namespace win32 {

/// A file descriptor that is closed in the end.
class OpenFile {
public:
    explicit OpenFile(int descriptor = -1) : descriptor_(descriptor) {}
    ~OpenFile() { Close(); }
    OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    int Get() const { return descriptor_; }
    /// False when the system reports a late failure.
    bool Close() {
        const int descriptor = std::exchange(descriptor_, -1);
        return descriptor < 0 || close(descriptor) == 0;
    }

private:
    int descriptor_;
};

}  // namespace win32
