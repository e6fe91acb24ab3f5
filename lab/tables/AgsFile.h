#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lab/tables/Findings.h"

namespace lab {

/// One group of an AGS4 file.
struct AgsGroup {
    struct Row {
        std::size_t line;
        std::vector<std::string_view> values;  ///< one for each heading
    };
    std::size_t line = 0;
    std::vector<std::string_view> headings;
    std::vector<std::string_view> units;  ///< empty, or one for each heading
    std::vector<Row> rows;

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    /// Index of a heading, kNone when the group has none of that name.
    std::size_t IndexOf(std::string_view heading) const;
};

/// The groups of a file in the form AGS4, by the rules of that form that concern reading: every
/// line ends with CR LF, every value stands in double quotes with "" for a quote, values are parted
/// by commas; a group has its lines GROUP, HEADING, UNIT, TYPE and DATA in this order, and each
/// line a value for every heading. What breaks a rule is refused with its line.
class AgsFile {
public:
    /// The text (UTF-8) must outlive the object. Only the groups named are kept.
    AgsFile(const std::string& name, std::string_view text,
            const std::vector<std::string_view>& wanted, Findings& findings);

    /// Null when the file has no such group.
    const AgsGroup* Find(std::string_view group) const;
    /// Names of the groups that were not wanted.
    const std::vector<std::string>& Others() const { return others_; }

private:
    void ReadLine(std::string_view line);
    bool Split(std::string_view line, std::vector<std::string_view>& values);
    void Begin(const std::vector<std::string_view>& values);
    void Enter(std::vector<std::string_view>& values);
    void Refuse(const std::string& reason);

    const std::string& name_;
    const std::vector<std::string_view>& wanted_;
    Findings& findings_;
    std::size_t line_ = 0;
    std::map<std::string, AgsGroup, std::less<>> groups_;
    AgsGroup* current_ = nullptr;  ///< null before the first group
    AgsGroup unwanted_;            ///< takes the lines of a group that nobody wants
    std::vector<std::string> others_;
    std::deque<std::string> unescaped_;
};

}  // namespace lab
