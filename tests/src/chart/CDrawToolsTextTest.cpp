#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/win32/gbk_literal.h"
#include "src/chart/CDrawTools.h"
#include "tests/src/chart/SheetDump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Drawn(const std::string& text, double height) {
    AcDbDatabase drawing;
    EXPECT_EQ(CDrawTools().DrawText(&drawing, 10, 20, text, height), 1);
    return Dump(drawing);
}

TEST(DrawText, RunsOfOneKindFollowEachOther) {
    EXPECT_THAT(Drawn("", 3), IsEmpty());
    EXPECT_THAT(Drawn("100", 3), ElementsAre("text 10,20.3 h2.4 100"));
    // 0.7 × 3 for the character, 0.7 × 2.4 for the blank
    EXPECT_THAT(Drawn("颗 粒"_gbk, 3),
                ElementsAre("text 10,20 h3 颗", "text 12.1,20.3 h2.4  ", "text 13.78,20 h3 粒"));
    EXPECT_THAT(Drawn("粒径 d(mm)"_gbk, 4),
                ElementsAre("text 10,20 h4 粒径", "text 15.6,20.4 h3.2  d(mm)"));
}

TEST(DrawText, SecondBytesBelow0x80StayInTheirCharacter) {
    // 丂 is 81 40, 丄 is 81 41: their second bytes are "@" and "A".
    EXPECT_THAT(Drawn("丂丄A"_gbk, 3), ElementsAre("text 10,20 h3 丂丄", "text 14.2,20.3 h2.4 A"));
    EXPECT_THAT(Drawn("@丂"_gbk, 3), ElementsAre("text 10,20.3 h2.4 @", "text 11.68,20 h3 丂"));
}

TEST(DrawText, LongRunsStayWhole) {
    const std::string name(500, 'x');
    EXPECT_THAT(Drawn(name, 3), ElementsAre("text 10,20.3 h2.4 " + name));
}

TEST(DrawText, TextsHaveColourWidthAndTheStyleOfTheDrawing) {
    AcDbDatabase drawing;
    CDrawTools().DrawMixedText(1, 2, "ab", 5, 0.25, 4, &drawing);
    VisitModelSpace(drawing, [&drawing](const AcDbEntity& entity) {
        const auto& text = dynamic_cast<const AcDbText&>(entity);
        EXPECT_EQ(text.colorIndex(), 4);
        EXPECT_EQ(text.rotation(), 0.25);
        EXPECT_EQ(text.widthFactor(), 0.7);
        EXPECT_EQ(text.textStyle(), drawing.textstyle());
        EXPECT_EQ(text.layerId(), drawing.clayer());
    });
}

TEST(TextWidth, CountsCharactersNotBytes) {
    const CDrawTools tools;
    EXPECT_EQ(tools.TextWidth("", 3), 0.0);
    EXPECT_NEAR(tools.TextWidth("5555", 3), 8.4, 1e-6);
    EXPECT_NEAR(tools.TextWidth("颗粒d"_gbk, 10), 21.0, 1e-6);
    EXPECT_NEAR(tools.TextWidth("丂"_gbk, 10), 7.0, 1e-6);
    EXPECT_EQ(tools.TextWidth("c", 1.0), static_cast<double>(0.7F)) << "single precision";
}

/// The pieces of a label at height 10, as "text dx,dy h", and the total width last.
std::vector<std::string> Split(const std::string& coded) {
    std::vector<TextPiece> pieces{{"old", 0, 0, 0}};
    double width = -1.0;
    CDrawTools().SplitStackedText(coded, pieces, 10.0, width);
    std::vector<std::string> lines;
    lines.reserve(pieces.size() + 1);
    for (const TextPiece& piece : pieces) {
        lines.push_back(win32::Utf8FromGbk(piece.text) + " " + Coordinate(piece.dx) + "," +
                        Coordinate(piece.dy) + " h" + Coordinate(piece.height));
    }
    lines.push_back("width " + Coordinate(width));
    return lines;
}

TEST(SplitStackedText, PiecesAndWidth) {
    EXPECT_THAT(Split(""), ElementsAre("width 0"));
    EXPECT_THAT(Split("!d$60"), ElementsAre("d 0,0 h10", "60 7,-2 h6", "width 15.4"));
    EXPECT_THAT(Split("!d@2$30"), ElementsAre("d 0,0 h10", "2 7,6 h6", "30 7,-2 h6", "width 15.4"));
    EXPECT_THAT(Split("!a#1%23!b"),
                ElementsAre("a 0,0 h10", "1 7,6 h4", "23 7,-3 h4", "b 12.6,0 h10", "width 19.6"));
    EXPECT_THAT(Split("!a@22$1!b"),
                ElementsAre("a 0,0 h10", "22 7,6 h6", "1 7,-2 h6", "b 11.2,0 h10", "width 18.2"))
        << "goes on after the script written last";
}

TEST(SplitStackedText, CodesAndCharacters) {
    EXPECT_THAT(Split("!a!b"), ElementsAre("a!b 0,0 h10", "width 21")) << "its own code is text";
    EXPECT_THAT(Split("x6%0!b"), ElementsAre("6%0 0,-3 h4", "b 8.4,0 h10", "width 15.4"))
        << "an unknown code acts as %";
    EXPECT_THAT(Split("!丂$2"_gbk), ElementsAre("丂 0,0 h10", "2 7,-2 h6", "width 11.2"))
        << "a second byte is no code";
    EXPECT_THAT(Split("丂a!b"_gbk), ElementsAre("a 0,-3 h4", "b 2.8,0 h10", "width 9.8"));
}

}  // namespace
