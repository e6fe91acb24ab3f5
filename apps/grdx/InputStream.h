#pragma once

#include <optional>
#include <string>

#include "platform/win32/open_file.h"

namespace console {

/// A stream that the program was started with: what "-" and the entries of /dev/fd, /dev/stdin
/// among them, mean in place of a file. Unlike a file it may be a pipe or a terminal. Every
/// operation throws Failure with the name and the reason.
class InputStream {
public:
    static bool IsName(const std::string& name);

    explicit InputStream(const std::string& name);

    /// A line without its end, as soon as it has arrived; nothing at the end.
    std::optional<std::string> NextLine();
    /// All that is still to come.
    std::string Rest();

private:
    bool ReadMore();

    std::string name_;
    win32::OpenFile stream_;
    std::string arrived_;
};

/// The whole content of a file or such a stream. Failure when it cannot be read.
std::string ReadInputBytes(const std::string& name);
/// The whole text of a file or such a stream, as UTF-8. Failure when it cannot be read or is no
/// text.
std::string ReadInputText(const std::string& name);

}  // namespace console
