#include "src/core/gbk_text.h"

#include <gtest/gtest.h>

#include "platform/win32/code_page.h"

namespace {

TEST(GbkText, ListsAreSplitAtWholeCharactersAndTheirPartsTrimmed) {
    const std::tuple<const char*, std::vector<std::string>, const char*> rows[] = {
        {" a | b c|d ", {"a", "b c", "d"}, "blanks around parts go, those within stay"},
        {"a||b|", {"a", "", "b", ""}, "empty parts count"},
        {"亅|乗", {"亅", "乗"}, "a trail byte is no separator"},
        {"|", {"", ""}, "a separator alone"},
        {" \t", {}, "nothing but blanks"},
    };
    for (const auto& [text, expected, reason] : rows) {
        std::vector<std::string> parts = {"left over"};
        EXPECT_EQ(SplitList(win32::GbkFromUtf8(text), '|', parts), !expected.empty()) << reason;
        for (std::string& part : parts) {
            part = win32::Utf8FromGbk(part);
        }
        EXPECT_EQ(parts, expected) << reason;
    }
}

}  // namespace
