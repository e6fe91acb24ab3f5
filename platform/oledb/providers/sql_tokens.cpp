#include "platform/oledb/providers/sql_tokens.h"

#include <algorithm>
#include <cstddef>

namespace oledb {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
bool IsWordStart(char c) {
    return (Upper(c) >= 'A' && Upper(c) <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordPart(char c) {
    return IsWordStart(c) || IsDigit(c) || c == '$';
}

/// Length of the quoted token at the front, a doubled quote being part of it; 0 when it is open.
std::size_t QuotedLength(std::string_view sql, char closing) {
    for (std::size_t at = 1; at < sql.size(); ++at) {
        if (sql[at] != closing) continue;
        if (closing == ']' || at + 1 >= sql.size() || sql[at + 1] != closing) return at + 1;
        ++at;
    }
    return 0;
}

/// Length of the number at the front: digits, point, exponent, hexadecimal digits; letters that do
/// not belong to it are taken along and make it one that the database refuses.
std::size_t NumberLength(std::string_view sql) {
    std::size_t at = 0;
    while (at < sql.size() && (IsWordPart(sql[at]) || sql[at] == '.' ||
                               ((sql[at] == '+' || sql[at] == '-') && Upper(sql[at - 1]) == 'E'))) {
        ++at;
    }
    return at;
}

Token NextToken(std::string_view sql) {
    const char c = sql.front();
    const auto quoted = [&](Token::Kind kind, char closing) {
        const std::size_t length = QuotedLength(sql, closing);
        return length == 0 ? Token{Token::Kind::Bad, sql} : Token{kind, sql.substr(0, length)};
    };
    if (c == '\'') return quoted(Token::Kind::String, '\'');
    if (c == '"' || c == '`') return quoted(Token::Kind::QuotedName, c);
    if (c == '[') return quoted(Token::Kind::QuotedName, ']');
    if (sql.starts_with("--") || sql.starts_with("/*") || c == '\0') {
        return {Token::Kind::Bad, sql};
    }
    if (IsDigit(c) || (c == '.' && sql.size() > 1 && IsDigit(sql[1]))) {
        return {Token::Kind::Number, sql.substr(0, NumberLength(sql))};
    }
    if (IsWordStart(c)) {
        const auto end = std::find_if_not(sql.begin(), sql.end(), IsWordPart);
        return {Token::Kind::Word, sql.substr(0, static_cast<std::size_t>(end - sql.begin()))};
    }
    return {Token::Kind::Sign, sql.substr(0, 1)};
}

}  // namespace

bool Token::Is(std::string_view word) const {
    return kind == Kind::Word &&
           std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char own, char other) { return Upper(own) == other; });
}

std::string Token::Unquoted() const {
    if (kind != Kind::String && kind != Kind::QuotedName) return std::string(text);
    std::string plain;
    for (std::size_t at = 1; at + 1 < text.size(); ++at) {
        plain.push_back(text[at]);
        const bool doubled = text[at] == text.back() && text.front() == text.back();
        if (doubled) ++at;
    }
    return plain;
}

std::vector<Token> Tokens(std::string_view sql) {
    std::vector<Token> tokens;
    while (true) {
        while (!sql.empty() && IsBlank(sql.front())) sql.remove_prefix(1);
        if (sql.empty()) return tokens;
        tokens.push_back(NextToken(sql));
        if (tokens.back().kind == Token::Kind::Bad) return tokens;
        sql.remove_prefix(tokens.back().text.size());
    }
}

}  // namespace oledb
