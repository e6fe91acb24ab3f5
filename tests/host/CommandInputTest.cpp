#include "host/CommandInput.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using host::CommandInput;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
std::vector<std::string> Words(const std::string& text) {
    CommandInput input = CommandInput::OfText(text);
    std::vector<std::string> words;
    while (const auto word = input.Next()) {
        words.push_back(*word);
    }
    return words;
}
}  // namespace

TEST(CommandInputTest, SplitsLinesIntoWords) {
    EXPECT_THAT(Words("zoom e "), ElementsAre("zoom", "e"));
    EXPECT_THAT(Words("\n  ZOOM\t E \r\n\nQUIT"), ElementsAre("ZOOM", "E", "QUIT"));
    EXPECT_THAT(Words("; a comment \"\n  ;another\nSDI 0;1\n"), ElementsAre("SDI", "0;1"));
    EXPECT_THAT(Words("\x03GoDBManage\n"), ElementsAre("\x03", "GoDBManage"));
    EXPECT_THAT(Words(" \n\t\n"), IsEmpty());
}

TEST(CommandInputTest, TextsInQuotesAreOneWord) {
    EXPECT_THAT(Words("OPEN \"a b.dwg\""), ElementsAre("OPEN", "a b.dwg"));
    EXPECT_THAT(Words(R"("say ""hi""" next)"), ElementsAre("say \"hi\"", "next"));
    EXPECT_THAT(Words(R"("" x)"), ElementsAre("", "x"));
    EXPECT_THAT(Words(R"("""")"), ElementsAre("\""));
    EXPECT_THAT(Words("a\"b\"c"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Words("\"no ; comment\""), ElementsAre("no ; comment"));
}

TEST(CommandInputTest, ALineWithAnOpenQuoteIsLeftOutAndTold) {
    CommandInput input = CommandInput::OfText("ONE\nOPEN \"a b\nTWO\n");
    EXPECT_EQ(input.Next(), "ONE");
    EXPECT_EQ(input.TakeBadLine(), "");
    EXPECT_EQ(input.Next(), std::nullopt);
    EXPECT_EQ(input.TakeBadLine(), "OPEN \"a b");
    EXPECT_EQ(input.TakeBadLine(), "");
    EXPECT_EQ(input.Next(), "TWO");
}

TEST(CommandInputTest, WordsOfTheLineEndWithIt) {
    CommandInput input = CommandInput::OfText("MOVE #2A  \n1,1\n");
    EXPECT_EQ(input.NextOnLine(), std::nullopt) << "no line was begun";
    EXPECT_EQ(input.Next(), "MOVE");
    EXPECT_FALSE(input.AtLineEnd());
    EXPECT_EQ(input.NextOnLine(), "#2A");
    EXPECT_TRUE(input.AtLineEnd());
    EXPECT_EQ(input.NextOnLine(), std::nullopt);
    EXPECT_EQ(input.Next(), "1,1");
}

TEST(CommandInputTest, ASourceThatHadNothingIsAskedAgain) {
    std::optional<std::string> line;
    CommandInput input([&] { return std::exchange(line, std::nullopt); });
    EXPECT_EQ(input.Next(), std::nullopt);
    line = "LATER";
    EXPECT_EQ(input.Next(), "LATER");
}
