#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace oledb {

/// An initialisation string taken apart: `Keyword=Value;…`. A value may stand in double or single
/// quotes, in which the quote itself is doubled; blanks around keywords and unquoted values do not
/// count; keywords are compared without regard to case; of a keyword given twice the last counts.
class InitString {
public:
    /// False with the reason in `error` when the text, UTF-8 or GBK, has another form.
    bool Parse(std::string_view text, std::string& error);

    /// The keyword's value, or null when it is missing.
    const std::string* Find(std::string_view keyword) const;
    /// The text, with another value where `Find` finds one; the rest of it stays to the character.
    std::string With(std::string_view keyword, std::string_view value) const;

    struct Entry {
        std::string keyword;
        std::string value;
        std::size_t start = 0;  ///< of what stands in the text between '=' and ';'
        std::size_t size = 0;
    };
    const std::vector<Entry>& Entries() const { return entries_; }

    static bool SameKeyword(std::string_view left, std::string_view right);
    /// A value as it can be written, in quotes where it needs them.
    static std::string Written(std::string_view value);

private:
    const Entry* FindEntry(std::string_view keyword) const;

    std::string text_;
    std::vector<Entry> entries_;
};

}  // namespace oledb
