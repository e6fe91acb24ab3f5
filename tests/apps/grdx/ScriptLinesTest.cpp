#include "apps/grdx/ScriptLines.h"

#include <gmock/gmock.h>

#include "platform/win32/code_page.h"

using console::ScriptLines;
using testing::ElementsAre;

TEST(ScriptLinesTest, AnswersBelongToTheLineAboveThem) {
    std::vector<std::string> events;
    ScriptLines lines(
        ScriptLines::OfText("@answer yes\n"
                            "; a comment\n"
                            "CGRDX\r\n"
                            "\n"
                            "  @page 604\r\n"
                            "; another\n"
                            "@answer no\n"
                            "@nonsense\n"
                            "OPEN 钻孔\n"
                            "OPEN \xF0\x9F\x98\x80\n"),
        [&](const std::string& fault) { events.push_back(fault.substr(0, fault.find(':'))); });
    while (!lines.AtEnd()) {
        while (const auto answer = lines.NextAnswer()) {
            events.push_back(mfc::DescribeAnswer(*answer));
        }
        if (const auto line = lines.NextInput()) {
            events.push_back(win32::Utf8FromGbk(*line));
        }
    }
    EXPECT_THAT(events, ElementsAre("@answer yes", "CGRDX\r", "@page 604", "@answer no", "line 8",
                                    "OPEN 钻孔", "line 10"));
}
