#include "platform/oledb/providers/SelectText.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

#include "platform/oledb/providers/sql_tokens.h"

namespace oledb {
namespace {

constexpr std::string_view kClauses[] = {"WHERE", "ORDER", "LIMIT"};
/// Words with which a select is more than rows of one table.
constexpr std::string_view kForeign[] = {"GROUP",  "HAVING",    "WINDOW", "UNION",
                                         "EXCEPT", "INTERSECT", "JOIN"};

bool IsOneOf(const Token& token, const auto& words) {
    return std::any_of(std::begin(words), std::end(words),
                       [&](std::string_view word) { return token.Is(word); });
}

std::string Text(const Token& first, const Token& last) {
    const char* const end = last.text.data() + last.text.size();
    return {first.text.data(), static_cast<std::size_t>(end - first.text.data())};
}

/// Reads the tokens of one select from front to back.
class Reader {
public:
    Reader(const std::vector<Token>& tokens, SelectText& out) : tokens_(tokens), out_(out) {}

    /// False as soon as the select is not one of a single table.
    bool Read() {
        at_ = 1;
        out_.distinct = Here("DISTINCT");
        if (out_.distinct || Here("ALL")) ++at_;
        return ReadList() && ReadTable() && ReadTail();
    }

private:
    bool End() const { return at_ >= tokens_.size(); }
    bool Here(std::string_view word) const { return !End() && tokens_[at_].Is(word); }
    bool NameHere() const {
        return !End() && (tokens_[at_].kind == Token::Kind::Word ||
                          tokens_[at_].kind == Token::Kind::QuotedName);
    }

    bool ReadList() {
        const std::size_t first = at_;
        for (; !End() && !tokens_[at_].Is("FROM"); ++at_) {
            if (tokens_[at_].IsSign('(')) return false;
        }
        if (End() || at_ == first) return false;
        out_.list = Text(tokens_[first], tokens_[at_ - 1]);
        ++at_;
        return true;
    }

    bool ReadTable() {
        const std::size_t first = at_;
        if (!NameHere()) return false;
        out_.table = tokens_[at_++].Unquoted();
        if (!End() && tokens_[at_].IsSign('.')) {
            ++at_;
            if (!NameHere()) return false;
            out_.schema = std::move(out_.table);
            out_.table = tokens_[at_++].Unquoted();
        }
        out_.name = Text(tokens_[first], tokens_[at_ - 1]);
        if (Here("AS")) ++at_;
        if (NameHere() && !IsOneOf(tokens_[at_], kClauses) && !IsOneOf(tokens_[at_], kForeign)) {
            ++at_;
        }
        out_.from = Text(tokens_[first], tokens_[at_ - 1]);
        return End() || IsOneOf(tokens_[at_], kClauses);
    }

    /// Copies the rest. Literals of the condition become parameters; those after ORDER and LIMIT
    /// stay, since a number there may name a column.
    bool ReadTail() {
        int depth = 0;
        bool condition = false;
        out_.literals.reserve(tokens_.size());
        for (; !End(); ++at_) {
            const Token& token = tokens_[at_];
            depth += token.IsSign('(') ? 1 : token.IsSign(')') ? -1 : 0;
            if (depth == 0 && IsOneOf(token, kForeign)) return false;
            if (depth == 0 && IsOneOf(token, kClauses)) condition = token.Is("WHERE");
            if (out_.tail.empty() || tokens_[at_ - 1].text.end() != token.text.begin()) {
                out_.tail += ' ';
            }
            if (condition && MakeParameter(token)) continue;
            out_.tail += token.text;
        }
        return true;
    }

    bool MakeParameter(const Token& token) {
        const Token& before = tokens_[at_ - 1];
        const bool joined = before.text.end() == token.text.begin();
        if (token.kind == Token::Kind::String) {
            // A word right in front, as in x'00', makes it something other than a text.
            if (joined && before.kind == Token::Kind::Word) return false;
            out_.parameters.push_back(
                Value::Of(std::string_view(out_.literals.emplace_back(token.Unquoted()))));
        } else {
            std::int64_t number = 0;
            const char* const end = token.text.data() + token.text.size();
            const auto read = std::from_chars(token.text.data(), end, number);
            const bool whole =
                token.kind == Token::Kind::Number && read.ec == std::errc{} && read.ptr == end;
            // Behind a sign a server could not tell of what type the parameter is.
            if (!whole || before.IsSign('-')) return false;
            out_.parameters.push_back(Value::Of(number));
        }
        out_.tail += '?';
        return true;
    }

    const std::vector<Token>& tokens_;
    SelectText& out_;
    std::size_t at_ = 0;
};

}  // namespace

HRESULT SelectText::Parse(std::string_view utf8, std::string& error) {
    *this = SelectText();
    std::vector<Token> tokens = Tokens(utf8);
    if (!tokens.empty() && tokens.back().kind == Token::Kind::Bad) {
        error = "not to be read from here on: \"" + std::string(tokens.back().text) + "\"";
        return DB_E_ERRORSINCOMMAND;
    }
    const auto semicolon = std::find_if(tokens.begin(), tokens.end(),
                                        [](const Token& token) { return token.IsSign(';'); });
    if (semicolon != tokens.end() && semicolon + 1 != tokens.end()) {
        error = "more than one statement";
        return DB_E_MULTIPLESTATEMENTS;
    }
    if (semicolon != tokens.end()) tokens.pop_back();
    if (tokens.empty() || !tokens.front().Is("SELECT")) {
        error = "not a select";
        return DB_E_ERRORSINCOMMAND;
    }
    statement = Text(tokens.front(), tokens.back());
    fromOneTable = Reader(tokens, *this).Read();
    return S_OK;
}

std::string SelectText::Key() const {
    if (!fromOneTable) return statement;
    return (distinct ? "DISTINCT " : "ALL ") + list + " FROM " + from + tail;
}

}  // namespace oledb
