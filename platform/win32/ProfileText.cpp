#include "platform/win32/ProfileText.h"

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_case.h"

namespace win32 {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// True for a section's header, with its name.
bool IsHeader(std::string_view line, std::string_view& name) {
    const std::string_view trimmed = TrimBlanks(line);
    if (!trimmed.starts_with('[')) {
        return false;
    }
    const std::size_t end = FindChar(trimmed, ']');
    if (end == kNone) {
        return false;
    }
    name = TrimBlanks(trimmed.substr(1, end - 1));
    return true;
}

/// True for a line with a key, with the position of its '=' (which no character has as its
/// second byte).
bool IsEntry(std::string_view line, std::size_t& equals) {
    equals = line.find('=');
    return equals != kNone && !TrimBlanks(line).starts_with(';');
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

ProfileText::ProfileText(std::string_view content) {
    while (!content.empty()) {
        const std::size_t feed = content.find('\n');
        if (feed == kNone) {
            lines_.push_back({std::string(content), ""});
            break;
        }
        const std::size_t textEnd = feed > 0 && content[feed - 1] == '\r' ? feed - 1 : feed;
        lines_.push_back({std::string(content.substr(0, textEnd)),
                          std::string(content.substr(textEnd, feed + 1 - textEnd))});
        content.remove_prefix(feed + 1);
    }
    if (!lines_.empty() && !lines_.front().end.empty()) {
        lineBreak_ = lines_.front().end;
    }
}

ProfileText::Range ProfileText::FindSection(std::string_view section) const {
    Range range;
    std::string_view name;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (!IsHeader(lines_[i].text, name)) {
            continue;
        }
        if (range.found) {
            range.end = i;
            return range;
        }
        if (EqualNoCase(name, TrimBlanks(section))) {
            range.found = true;
            range.first = i + 1;
        }
    }
    range.end = lines_.size();
    return range;
}

std::size_t ProfileText::FindKey(const Range& range, std::string_view key) const {
    if (!range.found) {
        return range.end;
    }
    for (std::size_t i = range.first; i < range.end; ++i) {
        const std::string_view line = lines_[i].text;
        std::size_t equals = 0;
        if (IsEntry(line, equals) &&
            EqualNoCase(TrimBlanks(line.substr(0, equals)), TrimBlanks(key))) {
            return i;
        }
    }
    return range.end;
}

bool ProfileText::Find(std::string_view section, std::string_view key, std::string& value) const {
    const Range range = FindSection(section);
    const std::size_t line = FindKey(range, key);
    if (line == range.end) {
        return false;
    }
    const std::string_view text = lines_[line].text;
    value = WithoutQuotes(TrimBlanks(text.substr(text.find('=') + 1)));
    return true;
}

bool ProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
    const Range range = FindSection(section);
    const std::size_t line = FindKey(range, key);
    if (line != range.end) {
        std::string& text = lines_[line].text;
        const std::string before = text;
        text.resize(text.find('=') + 1);
        text += value;
        return text != before;
    }
    const std::string entry = std::string(TrimBlanks(key)) + "=" + std::string(value);
    if (!range.found) {
        Insert(lines_.size(), "[" + std::string(TrimBlanks(section)) + "]");
        Insert(lines_.size(), entry);
        return true;
    }
    std::size_t end = range.end;
    while (end > range.first && TrimBlanks(lines_[end - 1].text).empty()) {
        --end;
    }
    Insert(end, entry);
    return true;
}

bool ProfileText::Remove(std::string_view section, std::string_view key) {
    const Range range = FindSection(section);
    const std::size_t line = FindKey(range, key);
    if (line == range.end) {
        return false;
    }
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
    return true;
}

bool ProfileText::RemoveSection(std::string_view section) {
    const Range range = FindSection(section);
    if (!range.found) {
        return false;
    }
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(range.first - 1),
                 lines_.begin() + static_cast<std::ptrdiff_t>(range.end));
    return true;
}

void ProfileText::Insert(std::size_t index, std::string text) {
    if (index > 0 && lines_[index - 1].end.empty()) {
        lines_[index - 1].end = lineBreak_;
    }
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index),
                  {std::move(text), lineBreak_});
}

std::string ProfileText::Text() const {
    std::string text;
    for (const Line& line : lines_) {
        text += line.text + line.end;
    }
    return text;
}

bool ProfileText::CanHold(const char* section, const char* key, const char* value) {
    const std::string_view name = section;
    if (name.find_first_of("\r\n") != kNone || FindChar(name, ']') != kNone) {
        return false;
    }
    if (key == nullptr) {
        return true;
    }
    const std::string_view entry = TrimBlanks(key);
    if (entry.find_first_of("=\r\n") != kNone || entry.starts_with(';') || entry.starts_with('[')) {
        return false;
    }
    return value == nullptr || std::string_view(value).find_first_of("\r\n") == kNone;
}

}  // namespace win32
