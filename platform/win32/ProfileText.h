#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace win32 {

/// The text of a profile, line by line as it stands. The rules are those of private_profile.h.
class ProfileText {
public:
    explicit ProfileText(std::string_view content);

    /// False when section or key is missing; a value without blanks and quotes around it.
    bool Find(std::string_view section, std::string_view key, std::string& value) const;

    /// These change one line or section, and tell whether there was anything to change.
    bool Set(std::string_view section, std::string_view key, std::string_view value);
    bool Remove(std::string_view section, std::string_view key);
    bool RemoveSection(std::string_view section);

    std::string Text() const;

    /// False for texts that would not be found again: with a line break, a key with '=', one that
    /// looks like a comment or a section, a section with ']'. Null key and value can be held.
    static bool CanHold(const char* section, const char* key, const char* value);

private:
    struct Line {
        std::string text;
        std::string end;  ///< line break as it stands; empty in a last line without one
    };
    /// The lines below a section's header, up to the next header.
    struct Range {
        bool found = false;
        std::size_t first = 0;
        std::size_t end = 0;
    };

    Range FindSection(std::string_view section) const;
    /// Index of the key's line, range.end when there is none.
    std::size_t FindKey(const Range& range, std::string_view key) const;
    void Insert(std::size_t index, std::string text);

    std::vector<Line> lines_;
    std::string lineBreak_ = "\r\n";
};

}  // namespace win32
