#include "platform/oledb/InitString.h"

#include <gtest/gtest.h>

namespace {

TEST(InitString, IsTakenApart) {
    struct Case {
        const char* text;
        const char* entries;  ///< "keyword=value|…", or null when refused
    };
    const Case cases[] = {
        {"", ""},
        {" ;; ", ""},
        {"A=1", "A=1|"},
        {"A=1;B=2;", "A=1|B=2|"},
        {" Data Source = C:\\a b.db ; B=", "Data Source=C:\\a b.db|B=|"},
        {"A=x=y", "A=x=y|"},
        {"A=\"x;y=\"\"z\"\"\" ; B='it''s'", "A=x;y=\"z\"|B=it's|"},
        {"A=''", "A=|"},
        {"A", nullptr},
        {"=1", nullptr},
        {"A;B=1", nullptr},
        {"A='x", nullptr},
        {"A='x'y", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        oledb::InitString parsed;
        std::string error;
        ASSERT_EQ(parsed.Parse(c.text, error), c.entries != nullptr);
        EXPECT_EQ(error.empty(), c.entries != nullptr);
        if (c.entries == nullptr) continue;
        std::string entries;
        for (const auto& entry : parsed.Entries()) {
            entries.append(entry.keyword).append("=").append(entry.value).append("|");
        }
        EXPECT_EQ(entries, c.entries);
    }
}

TEST(InitString, FindsTheLastOfAKeywordWithoutRegardToCase) {
    oledb::InitString parsed;
    std::string error;
    ASSERT_TRUE(parsed.Parse("Provider=a;PROVIDER=b", error));
    ASSERT_NE(parsed.Find("provider"), nullptr);
    EXPECT_EQ(*parsed.Find("provider"), "b");
    EXPECT_EQ(parsed.Find("Provide"), nullptr);
}

TEST(InitString, OneValueIsReplacedAndTheRestStaysToTheCharacter) {
    const char* const cases[][3] = {
        {" A = 1 ;; B=2", "x", " A = x ;; B=2"},
        {"B=2;a='1;''2' ;", "x y", "B=2;a=x y ;"},
        {"A=1;A=;", "q\"u;o", "A=1;A=\"q\"\"u;o\";"},
        {"A= ", " x", "A=\" x\" "},
        {"B=1", "x", "B=1"},
    };
    for (const auto& [text, value, expected] : cases) {
        oledb::InitString parsed;
        std::string error;
        ASSERT_TRUE(parsed.Parse(text, error));
        EXPECT_EQ(parsed.With("A", value), expected);
        ASSERT_TRUE(parsed.Parse(parsed.With("A", value), error));
        const std::string* const found = parsed.Find("A");
        EXPECT_TRUE(found == nullptr || *found == value) << text;
    }
}

}  // namespace
