#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace oledb {

struct Token {
    enum class Kind { Word, QuotedName, String, Number, Sign, Bad };
    Kind kind;
    std::string_view text;  ///< as it stands, quotes included

    /// A word compared without regard to case; `word` in capitals.
    bool Is(std::string_view word) const;
    bool IsSign(char c) const { return kind == Kind::Sign && text.front() == c; }
    /// Name or text without its quotes.
    std::string Unquoted() const;
};

/// The words, names, literals and signs of an SQL text; blanks are left out. What cannot be one of
/// these, such as a quote that nothing closes or a comment, is a Bad token with which the list
/// ends.
std::vector<Token> Tokens(std::string_view sql);

}  // namespace oledb
