#include "apps/grdx/InputStream.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "apps/grdx/Failure.h"
#include "lab/tables/text_coding.h"
#include "platform/win32/file_replace.h"

namespace console {

bool InputStream::IsName(const std::string& name) {
    return name == "-" || name == "/dev/stdin" || name.starts_with("/dev/fd/");
}

InputStream::InputStream(const std::string& name)
    : name_(name),
      stream_(name.starts_with("/dev/fd/") ? open(name.c_str(), O_RDONLY | O_CLOEXEC)
                                           : fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)) {}

std::optional<std::string> InputStream::NextLine() {
    std::size_t end = std::string::npos;
    while ((end = arrived_.find('\n')) == std::string::npos) {
        if (!ReadMore()) {
            return arrived_.empty() ? std::nullopt
                                    : std::optional(std::exchange(arrived_, std::string()));
        }
    }
    std::string line = arrived_.substr(0, end);
    arrived_.erase(0, end + 1);
    return line;
}

std::string InputStream::Rest() {
    while (ReadMore()) {
    }
    return std::exchange(arrived_, {});
}

/// False at the end.
bool InputStream::ReadMore() {
    char block[65536];
    ssize_t got = -1;
    do {
        got = read(stream_.Get(), block, sizeof block);
    } while (got < 0 && errno == EINTR);
    if (got < 0) {
        throw Failure(name_ + ": " + std::generic_category().message(errno));
    }
    arrived_.append(block, static_cast<std::size_t>(got));
    return got > 0;
}

std::string ReadInputBytes(const std::string& name) {
    std::string bytes;
    std::string error;
    if (InputStream::IsName(name)) {
        bytes = InputStream(name).Rest();
    } else if (!win32::ReadFileWhole(name, bytes, error)) {
        throw Failure(error);
    }
    return bytes;
}

std::string ReadInputText(const std::string& name) {
    std::string error;
    std::string utf8;
    if (!lab::DecodeText(ReadInputBytes(name), utf8, error)) {
        throw Failure(name + ": " + error);
    }
    return utf8;
}

}  // namespace console
