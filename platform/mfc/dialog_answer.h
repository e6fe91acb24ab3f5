#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mfc {

/// One thing that a user would do with a dialog or a box. Texts are GBK.
struct Answer {
    enum class Kind {
        Page,    ///< bring the page of template `id` to the front
        Select,  ///< click the items `texts` of list `id`
        Type,    ///< write texts[0] into edit field `id`, or a date YYYY-MM-DD into a date picker
        Check,   ///< turn check box `id` on or off
        Press,   ///< press button `id`; IDOK and IDCANCEL also without such a button
        Box,     ///< answer a message box with button `id`
        Show     ///< look at the window, and do nothing
    };

    Kind kind;
    int id = 0;
    std::vector<std::string> texts = {};
    bool on = false;
};

/// Reads an answer line (UTF-8): `@page NUMBER`, `@select ID TEXT…`, `@type ID TEXT`,
/// `@check ID on|off`, `@press ID|ok|cancel`, `@answer yes|no|ok|cancel`, `@show`. A text with
/// blanks stands in double quotes, within which "" is a quote. False, with what is wrong in `error`
/// (UTF-8).
bool ParseAnswer(std::string_view line, Answer& answer, std::string& error);

/// The answer as such a line (UTF-8).
std::string DescribeAnswer(const Answer& answer);

}  // namespace mfc
