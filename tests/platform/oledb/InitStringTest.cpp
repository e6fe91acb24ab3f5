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
        for (const auto& [keyword, value] : parsed.Entries()) {
            entries.append(keyword).append("=").append(value).append("|");
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

}  // namespace
