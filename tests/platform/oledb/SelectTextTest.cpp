#include "platform/oledb/providers/SelectText.h"

#include <gtest/gtest.h>

namespace {

using oledb::Value;

/// list / from / tail / parameters
std::string Parts(const oledb::SelectText& text) {
    std::string parts = text.list + "/" + text.from + "/" + text.tail + "/";
    for (const Value& value : text.parameters) {
        parts += value.kind == Value::Kind::Integer ? std::to_string(value.integer)
                                                    : "'" + std::string(value.text) + "'";
        parts += ' ';
    }
    return parts;
}

TEST(SelectText, LiteralsOfTheConditionBecomeParameters) {
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT a,b FROM t", "a,b/t//"},
        {"SELECT a FROM t WHERE g > -1 and g= 12 and z='Z''K' ORDER BY a,2;",
         "a/t/ WHERE g > -1 and g= ? and z=? ORDER BY a,2/12 'Z'K' "},
        {"SELECT 'x',1 FROM s.\"t\"\"u\" AS v WHERE a IN (1,'b') LIMIT 3",
         "'x',1/s.\"t\"\"u\" AS v/ WHERE a IN (?,?) LIMIT 3/1 'b' "},
        {"SELECT a FROM [t t] WHERE a=1.5 AND b=0x1F AND c=x'00' AND d=99999999999999999999",
         "a/[t t]/ WHERE a=1.5 AND b=0x1F AND c=x'00' AND d=99999999999999999999/"},
        {"SELECT a FROM t WHERE a=1 ORDER BY 1 LIMIT 2", "a/t/ WHERE a=? ORDER BY 1 LIMIT 2/1 "},
        {"SELECT a FROM t WHERE a='\"' AND \"b'c\"=1", "a/t/ WHERE a=? AND \"b'c\"=?/'\"' 1 "},
    };
    for (const auto& [sql, parts] : cases) {
        SCOPED_TRACE(sql);
        oledb::SelectText text;
        std::string error;
        ASSERT_EQ(text.Parse(sql, error), S_OK) << error;
        EXPECT_TRUE(text.fromOneTable);
        EXPECT_EQ(Parts(text), parts);
    }
}

}  // namespace
