#pragma once

#include <functional>
#include <optional>
#include <string>

namespace host {

/// Command-line input (GBK) as a person types it: words between blanks and line ends, a text with
/// blanks in double quotes ("" within is a quote), a line that starts with ';' is a comment. The
/// control character 0x03 (cancel) is a word of its own.
class CommandInput {
public:
    /// Gives the next line without its end; nothing when there is none for now. It is asked again
    /// when a word is wanted later.
    using LineSource = std::function<std::optional<std::string>()>;

    explicit CommandInput(LineSource lines) : lines_(std::move(lines)) {}
    /// The lines of a text.
    static CommandInput OfText(std::string text);

    static constexpr const char* kCancel = "\x03";

    /// The next word, from further lines where the present one is used up; nothing when there is
    /// none. A line with a quote left open is left out and told with BadLine.
    std::optional<std::string> Next();
    /// The next word of the line that the last word came from; nothing at its end.
    std::optional<std::string> NextOnLine();
    /// True when the line that the last word came from holds no more words.
    bool AtLineEnd();

    /// The line left out last, empty for none; asking forgets it.
    std::string TakeBadLine();

private:
    bool FetchLine();
    void SkipBlanks();

    LineSource lines_;
    std::string line_;
    std::size_t position_ = 0;
    std::string badLine_;
};

}  // namespace host
