#pragma once

#include <string>
#include <string_view>

#include "host/ResultStream.h"

namespace console {

/// What the console program says: on standard error texts of the plug-in as they stand, lines of
/// the program itself, and the progress of long work, which only a terminal shows; on standard
/// output the results. All UTF-8.
class MessageStream {
public:
    MessageStream();
    ~MessageStream() { EndLine(); }
    MessageStream(const MessageStream&) = delete;
    MessageStream& operator=(const MessageStream&) = delete;

    /// A text as it stands; a line break at its start only makes sure that it begins a line.
    void Print(std::string_view text);
    /// A text on lines of its own.
    void PrintLine(std::string_view text);
    /// A finding of the program's own, named as such.
    void Report(std::string_view finding);
    /// A result, which ends with a line break.
    void PrintResult(std::string_view text);
    /// Whether a result has not been written, and what to say of it (host::ResultStream).
    bool ResultsFailed() const { return results_.Failed(); }
    std::string ResultFault() const { return results_.Fault(); }
    /// Ends the line begun last, so that what standard output says next begins one on a terminal.
    void EndLine();
    /// Replaces the progress shown last; an empty text takes it away.
    void ShowProgress(const std::string& progress);

private:
    void Write(std::string_view text);

    host::ResultStream results_;
    bool terminal_;
    bool atLineStart_ = true;
    std::string progress_;  ///< shown last
};

}  // namespace console
