#include "platform/dwg/multiline_text.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/code_page.h"

namespace dwg {

namespace {

/// Takes the codes out of a content, character by character.
class PlainText {
public:
    explicit PlainText(std::string_view content) : content_(content) {}

    std::vector<std::string> paragraphs() {
        while (at_ < content_.size()) {
            const std::size_t length = win32::CharLength(content_, at_);
            const char c = content_[at_];
            if (length == 2) {
                lines_.back().append(content_.substr(at_, length));
                at_ += length;
            } else if (c == '\\' && at_ + 1 < content_.size()) {
                code(content_[at_ + 1]);
            } else {
                plain(c);
                ++at_;
            }
        }
        return std::move(lines_);
    }

private:
    void plain(char c) {
        if (c == '\n') {
            lines_.emplace_back();
        } else if (c != '{' && c != '}' && c != '\r') {
            lines_.back() += c == '\t' ? ' ' : c;
        }
    }

    void code(char letter) {
        constexpr std::string_view kWithArgument = "fFHCcWQTApX";
        at_ += 2;
        if (letter == 'P') {
            lines_.emplace_back();
        } else if (letter == '~') {
            lines_.back() += ' ';
        } else if (letter == 'S') {
            std::string stacked = argument();
            std::replace_if(
                stacked.begin(), stacked.end(), [](char c) { return c == '^' || c == '#'; }, '/');
            lines_.back() += stacked;
        } else if (letter == 'U' && content_.substr(at_).starts_with('+')) {
            unicode();
        } else if (kWithArgument.find(letter) != std::string_view::npos) {
            argument();
        } else if (letter == '\\' || letter == '{' || letter == '}') {
            lines_.back() += letter;
        }
    }

    /// What stands before the next semicolon, which is passed over.
    std::string argument() {
        const std::size_t end = std::min(win32::FindChar(content_, ';', at_), content_.size());
        std::string result(content_.substr(at_, end - at_));
        at_ = std::min(end + 1, content_.size());
        return result;
    }

    void unicode() {
        constexpr std::size_t kDigits = 4;
        const std::string digits(content_.substr(at_ + 1, kDigits));
        const char16_t letter[] = {
            static_cast<char16_t>(std::strtoul(digits.c_str(), nullptr, 16))};
        lines_.back() += win32::GbkFromUtf16({letter, 1});
        at_ = std::min(at_ + 1 + kDigits, content_.size());
    }

    std::string_view content_;
    std::size_t at_ = 0;
    std::vector<std::string> lines_{""};
};

/// Breaks a paragraph behind blanks and double-byte characters.
void breakLine(std::string_view line, double width, std::vector<std::string>& lines) {
    std::size_t start = 0;
    std::size_t lastBreak = 0;
    double filled = 0.0;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t length = win32::CharLength(line, at);
        filled += LineWidth(line.substr(at, length));
        if (filled > width && lastBreak > start && line[at] != ' ') {
            lines.emplace_back(line.substr(start, lastBreak - start));
            start = lastBreak;
            filled = LineWidth(line.substr(start, at + length - start));
        }
        at += length;
        if (length == 2 || line[at - 1] == ' ') {
            lastBreak = at;
        }
    }
    lines.emplace_back(line.substr(start));
}

}  // namespace

double LineWidth(std::string_view line) {
    double width = 0.0;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t length = win32::CharLength(line, at);
        width += length == 2 ? 1.0 : kNarrowCharacter;
        at += length;
    }
    return width;
}

std::vector<std::string> PlainLines(std::string_view content, double width) {
    std::vector<std::string> lines;
    for (const std::string& paragraph : PlainText(content).paragraphs()) {
        if (width > 0.0) {
            breakLine(paragraph, width, lines);
        } else {
            lines.push_back(paragraph);
        }
    }
    return lines;
}

}  // namespace dwg
