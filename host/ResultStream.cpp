#include "host/ResultStream.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace host {

ResultStream::ResultStream() {
    std::signal(SIGPIPE, SIG_IGN);
}

void ResultStream::Print(std::string_view text) {
    while (!text.empty() && !Failed()) {
        const ssize_t written = write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            fault_ = errno;
        }
    }
}

std::string ResultStream::Fault() const {
    return Failed() && fault_ != EPIPE
               ? "standard output: " + std::generic_category().message(fault_)
               : "";
}

}  // namespace host
