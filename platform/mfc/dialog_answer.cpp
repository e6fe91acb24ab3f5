#include "platform/mfc/dialog_answer.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/mfc/message_box.h"
#include "platform/win32/code_page.h"

namespace mfc {
namespace {

struct KindWord {
    std::string_view word;
    Answer::Kind kind;
    const char* usage;
};
constexpr KindWord kKinds[] = {
    {"@page", Answer::Kind::Page, "@page NUMBER"},
    {"@select", Answer::Kind::Select, "@select ID TEXT..."},
    {"@type", Answer::Kind::Type, "@type ID TEXT"},
    {"@check", Answer::Kind::Check, "@check ID on|off"},
    {"@press", Answer::Kind::Press, "@press ID|ok|cancel"},
    {"@answer", Answer::Kind::Box, "@answer yes|no|ok|cancel"},
    {"@show", Answer::Kind::Show, "@show"},
};

struct ButtonWord {
    std::string_view word;
    int id;
};
constexpr ButtonWord kPressWords[] = {{"ok", IDOK}, {"cancel", IDCANCEL}};
constexpr ButtonWord kBoxWords[] = {
    {"yes", IDYES}, {"no", IDNO}, {"ok", IDOK}, {"cancel", IDCANCEL}};

constexpr std::string_view kBlanks = " \t\r\n";

/// Takes a quoted text, whose first quote is at `pos`; false when its end is missing.
bool TakeQuoted(std::string_view line, std::size_t& pos, std::string& word) {
    for (++pos; pos < line.size(); ++pos) {
        if (line[pos] != '"') {
            word += line[pos];
        } else if (line.substr(pos + 1).starts_with('"')) {
            word += line[++pos];
        } else {
            ++pos;
            return true;
        }
    }
    return false;
}

bool SplitWords(std::string_view line, std::vector<std::string>& words, std::string& error) {
    for (std::size_t pos = line.find_first_not_of(kBlanks); pos < line.size();
         pos = line.find_first_not_of(kBlanks, pos)) {
        std::string word;
        if (line[pos] == '"') {
            if (!TakeQuoted(line, pos, word)) {
                error = "a quoted text has no end";
                return false;
            }
        } else {
            const std::size_t end = std::min(line.find_first_of(kBlanks, pos), line.size());
            word = line.substr(pos, end - pos);
            pos = end;
        }
        words.push_back(std::move(word));
    }
    return true;
}

std::optional<int> ParseNumber(const std::string& word) {
    int number = 0;
    const auto [end, status] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool whole = status == std::errc() && end == word.data() + word.size();
    return whole && number > 0 && number < 0xFFFF ? std::optional(number) : std::nullopt;
}

template <std::size_t size>
std::optional<int> ParseButton(const ButtonWord (&table)[size], const std::string& word) {
    for (const ButtonWord& button : table) {
        if (button.word == word) {
            return button.id;
        }
    }
    return std::nullopt;
}

/// Reads what comes after an answer's word.
class ArgumentReader {
public:
    ArgumentReader(const std::vector<std::string>& words, std::string& error)
        : words_(words), error_(error) {}

    bool Read(Answer& answer, const char* usage) {
        const bool taken = TakeAll(answer);
        if (!taken && error_.empty()) {
            error_ = std::string(usage) + " (a text with blanks stands in double quotes)";
        }
        return taken;
    }

private:
    bool TakeAll(Answer& answer) {
        switch (answer.kind) {
            case Answer::Kind::Page:
                return words_.size() == 2 && Take(answer.id, ParseNumber(words_[1]));
            case Answer::Kind::Select:
                return words_.size() >= 3 && TakeIdAndTexts(answer);
            case Answer::Kind::Type:
                return words_.size() == 3 && TakeIdAndTexts(answer);
            case Answer::Kind::Check:
                return words_.size() == 3 && Take(answer.id, ParseNumber(words_[1])) &&
                       TakeSwitch(answer.on);
            case Answer::Kind::Press:
                return words_.size() == 2 &&
                       (Take(answer.id, ParseButton(kPressWords, words_[1])) ||
                        Take(answer.id, ParseNumber(words_[1])));
            case Answer::Kind::Show:
                return words_.size() == 1;
            default:
                return words_.size() == 2 && Take(answer.id, ParseButton(kBoxWords, words_[1]));
        }
    }
    static bool Take(int& target, std::optional<int> value) {
        target = value.value_or(target);
        return value.has_value();
    }
    bool TakeSwitch(bool& on) const {
        on = words_[2] == "on";
        return on || words_[2] == "off";
    }
    bool TakeIdAndTexts(Answer& answer) {
        if (!Take(answer.id, ParseNumber(words_[1]))) {
            return false;
        }
        for (std::size_t i = 2; i < words_.size(); ++i) {
            if (!win32::TryGbkFromUtf8(words_[i], answer.texts.emplace_back())) {
                error_ = "a text that GBK cannot write: " + words_[i];
                return false;
            }
        }
        return true;
    }

    const std::vector<std::string>& words_;
    std::string& error_;
};

std::string Quoted(const std::string& gbk) {
    std::string text = win32::Utf8FromGbk(gbk);
    if (!text.empty() && text.find_first_of(" \t\"") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    return quoted + '"';
}

template <std::size_t size>
std::string ButtonName(const ButtonWord (&table)[size], int id) {
    for (const ButtonWord& button : table) {
        if (button.id == id) {
            return std::string(button.word);
        }
    }
    return std::to_string(id);
}

}  // namespace

bool ParseAnswer(std::string_view line, Answer& answer, std::string& error) {
    error.clear();
    std::vector<std::string> words;
    if (!SplitWords(line, words, error)) {
        return false;
    }
    for (const KindWord& known : kKinds) {
        if (words.empty() || words[0] != known.word) {
            continue;
        }
        Answer read{known.kind};
        if (!ArgumentReader(words, error).Read(read, known.usage)) {
            return false;
        }
        answer = std::move(read);
        return true;
    }
    error = "an answer is one of @page, @select, @type, @check, @press, @answer and @show";
    return false;
}

std::string DescribeAnswer(const Answer& answer) {
    std::string line;
    for (const KindWord& known : kKinds) {
        if (known.kind == answer.kind) {
            line = known.word;
        }
    }
    if (answer.kind == Answer::Kind::Show) {
        return line;
    }
    line += ' ';
    line += answer.kind == Answer::Kind::Press ? ButtonName(kPressWords, answer.id)
            : answer.kind == Answer::Kind::Box ? ButtonName(kBoxWords, answer.id)
                                               : std::to_string(answer.id);
    if (answer.kind == Answer::Kind::Check) {
        line += answer.on ? " on" : " off";
    }
    for (const std::string& text : answer.texts) {
        line += ' ' + Quoted(text);
    }
    return line;
}

}  // namespace mfc
