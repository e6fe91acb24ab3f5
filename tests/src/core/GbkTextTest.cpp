#include "src/core/gbk_text.h"

#include <gtest/gtest.h>

#include "platform/win32/code_page.h"

namespace {

TEST(GbkText, ListsAreSplitAtWholeCharactersAndTheirPartsTrimmed) {
    struct Row {
        const char* text;
        std::vector<std::string> parts;
        const char* reason;
    };
    const Row rows[] = {
        {" a | b c|d ", {"a", "b c", "d"}, "blanks around parts go, those within stay"},
        {"a||b|", {"a", "", "b", ""}, "empty parts count"},
        {"亅|乗", {"亅", "乗"}, "a trail byte is no separator"},
        {"|", {"", ""}, "a separator alone"},
        {" \t", {}, "nothing but blanks"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> parts = {"left over"};
        EXPECT_EQ(SplitList(win32::GbkFromUtf8(row.text), '|', parts), !row.parts.empty())
            << row.reason;
        for (std::string& part : parts) {
            part = win32::Utf8FromGbk(part);
        }
        EXPECT_EQ(parts, row.parts) << row.reason;
    }
}

}  // namespace
