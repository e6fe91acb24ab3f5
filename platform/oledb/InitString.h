#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace oledb {

/// An initialisation string taken apart: `Keyword=Value;…`. A value may stand in double or single
/// quotes, in which the quote itself is doubled; blanks around keywords and unquoted values do not
/// count; keywords are compared without regard to case; of a keyword given twice the last counts.
class InitString {
public:
    /// False with the reason in `error` when the text has another form.
    bool Parse(std::string_view utf8, std::string& error);

    /// The keyword's value (UTF-8), or null when it is missing.
    const std::string* Find(std::string_view keyword) const;
    const std::vector<std::pair<std::string, std::string>>& Entries() const { return entries_; }

    static bool SameKeyword(std::string_view left, std::string_view right);

private:
    std::vector<std::pair<std::string, std::string>> entries_;
};

}  // namespace oledb
