#include "apps/grdx/MessageStream.h"

#include <unistd.h>
#include <cstdio>

namespace console {

namespace {
constexpr const char* kEraseLine = "\r\x1b[K";
}  // namespace

MessageStream::MessageStream() : terminal_(isatty(STDERR_FILENO) == 1) {}

void MessageStream::EndLine() {
    ShowProgress("");
    if (!atLineStart_) {
        Write("\n");
    }
}

void MessageStream::Print(std::string_view text) {
    ShowProgress("");
    if (atLineStart_ && text.starts_with('\n')) {
        text.remove_prefix(1);
    }
    Write(text);
}

void MessageStream::PrintLine(std::string_view text) {
    Print("\n");
    Write(text);
    Print("\n");
}

void MessageStream::Report(std::string_view finding) {
    PrintLine("grdx: " + std::string(finding));
}

void MessageStream::PrintResult(std::string_view text) {
    EndLine();
    results_.Print(text);
}

void MessageStream::ShowProgress(const std::string& progress) {
    if (!terminal_ || progress == progress_) {
        return;
    }
    std::fputs(progress_.empty() ? "" : kEraseLine, stderr);
    std::fputs(progress.c_str(), stderr);
    std::fflush(stderr);
    progress_ = progress;
}

void MessageStream::Write(std::string_view text) {
    if (!text.empty()) {
        std::fwrite(text.data(), 1, text.size(), stderr);
        atLineStart_ = text.back() == '\n';
    }
}

}  // namespace console
