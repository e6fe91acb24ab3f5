#include "host/picture/ShapeFont.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/host/picture/ShapeFontBytes.h"

namespace {

using picture::Point;
using picture::ShapeFont;
using picture::ShapeFontFile;
using picture::StrokeGlyph;
using picture::TextCharacter;
using shape_font::Shapes;

using Strokes = std::vector<std::vector<Point>>;

ShapeFont FontOf(const std::string& bytes) {
    ShapeFontFile file;
    std::string error;
    EXPECT_TRUE(file.read(bytes, error)) << error;
    return ShapeFont(std::move(file));
}

TextCharacter Single(int code) {
    return {static_cast<char32_t>(code), code, false, false, false};
}

/// Strokes in units of the font: the fonts made here have capitals of 10 units.
Strokes InUnits(const StrokeGlyph& glyph) {
    Strokes strokes = glyph.strokes;
    for (auto& stroke : strokes) {
        for (Point& point : stroke) {
            point = {std::round(point.x * 1e7) / 1e6, std::round(point.y * 1e7) / 1e6};
        }
    }
    return strokes;
}

Strokes StrokesOf(const shape_font::Commands& commands, const Shapes& others = {}) {
    Shapes shapes{{'A', commands}};
    shapes.insert(shapes.end(), others.begin(), others.end());
    ShapeFont font = FontOf(shape_font::ShapesFont(shapes));
    const StrokeGlyph* const glyph = font.glyph(Single('A'));
    return glyph != nullptr ? InUnits(*glyph) : Strokes{{{-1.0, -1.0}}};
}

TEST(ShapeFont, FollowsEveryCommandThatDrawsStraight) {
    EXPECT_EQ(StrokesOf({0x44, 0x30}), (Strokes{{{0, 0}, {0, 4}, {3, 4}}})) << "directions";
    EXPECT_EQ(StrokesOf({0x21, 0x2B}), (Strokes{{{0, 0}, {2, 1}, {1, -1}}})) << "half steps";
    EXPECT_EQ(StrokesOf({2, 8, 5, 0xFE, 1, 0x14}), (Strokes{{{5, -2}, {5, -1}}})) << "pen, step";
    EXPECT_EQ(StrokesOf({9, 1, 2, 3, 0, 0, 0, 0x10}), (Strokes{{{0, 0}, {1, 2}, {4, 2}, {5, 2}}}));
    EXPECT_EQ(StrokesOf({4, 3, 0x20, 3, 6, 0x24}), (Strokes{{{0, 0}, {6, 0}, {6, 1}}})) << "scale";
    EXPECT_EQ(StrokesOf({5, 0x34, 6, 0x30}), (Strokes{{{0, 0}, {0, 3}}, {{0, 0}, {3, 0}}}));
    EXPECT_EQ(StrokesOf({2, 0x20, 7, 'B', 0x10}, {{'B', {0x24}}}),
              (Strokes{{{2, 0}, {2, 2}, {3, 2}}}))
        << "a shape within starts with the pen down";
    EXPECT_EQ(StrokesOf({14, 8, 9, 9, 14, 7, 'B', 14, 0x55, 0x10}, {{'B', {0x24}}}),
              (Strokes{{{0, 0}, {1, 0}}}))
        << "what is for vertical texts only";
}

TEST(ShapeFont, ArcsPassWhereTheyShould) {
    const double s = std::sqrt(0.5);
    const auto at = [](double degrees, double radius) {
        const double angle = degrees * M_PI / 180.0;
        return Point{std::cos(angle) * radius, std::sin(angle) * radius};
    };
    const std::tuple<const char*, shape_font::Commands, Point, Point> cases[] = {
        {"quarter from the right", {10, 4, 0x02}, {4 * s - 4, 4 * s}, {-4, 4}},
        {"the same clockwise", {10, 4, 0x82}, {4 * s - 4, -4 * s}, {-4, -4}},
        {"whole circle from the top", {10, 4, 0x20}, {0, -8}, {0, 0}},
        {"55 to 95 degrees, radius 300",
         {11, 56, 28, 1, 44, 0x12},
         at(75, 300) - at(54.84375, 300),
         at(94.921875, 300) - at(54.84375, 300)},
        {"half circle by its bulge", {12, 6, 0, 127}, {3, -3}, {6, 0}},
        {"flat clockwise bulges", {13, 0, 4, 0x81, 0, 4, 0, 0, 0}, {-2, 2}, {0, 8}},
    };
    for (const auto& [what, commands, middle, end] : cases) {
        const Strokes strokes = StrokesOf(commands);
        ASSERT_EQ(strokes.size(), 1U) << what;
        EXPECT_NEAR(strokes[0].back().x, end.x, 0.03) << what;
        EXPECT_NEAR(strokes[0].back().y, end.y, 0.03) << what;
        double nearest = 1e9;
        for (const Point& point : strokes[0]) {
            nearest = std::min(nearest, std::hypot(point.x - middle.x, point.y - middle.y));
        }
        EXPECT_LT(nearest, commands[0] == 11 ? 15.0 : 0.2) << what;
        if (commands[0] == 10) {  // all of it on the circle
            const Point center = commands[2] == 0x20 ? Point{0, -4} : Point{-4, 0};
            for (const Point& point : strokes[0]) {
                EXPECT_NEAR(std::hypot(point.x - center.x, point.y - center.y), 4.0, 1e-5);
            }
        }
    }
}

TEST(ShapeFont, EachKindFindsItsCharactersAndAdvances) {
    ShapeFont shapes = FontOf(shape_font::ShapesFont({{'A', {0x60}}, {256, {0x20}}}));
    EXPECT_DOUBLE_EQ(shapes.glyph(Single('A'))->advance, 0.6);
    EXPECT_DOUBLE_EQ(shapes.glyph(Single(127))->advance, 0.2) << "the degree sign";
    EXPECT_EQ(shapes.glyph(Single('B')), nullptr);

    ShapeFont unifont =
        FontOf(shape_font::Unifont({{0x4E2D, {0xA0, 7, 0x00, 0x41}}, {'A', {0x20}}}));
    const TextCharacter middle{U'中', 0xD6D0, true, false, false};
    EXPECT_DOUBLE_EQ(unifont.glyph(middle)->advance, 1.2) << "numbers of shapes have two bytes";

    ShapeFont big = FontOf(shape_font::BigFont({{0xD6D0, {0x50}}, {0x8140, {0x50}}}));
    EXPECT_DOUBLE_EQ(big.glyph(middle)->advance, 0.5);
    EXPECT_EQ(big.glyph({U'丂', 0x8140, true, false, false}), nullptr)
        << "its lead byte is none of this font's";

    // Part 0xA1A2 is a bar from (0, 0) to (10, 20) in a matrix 10 wide and 20 high; the character
    // has it at half width and a quarter of the height from (3, 4).
    ShapeFont composed = FontOf(shape_font::BigFont(
        {{0xA1A2, {8, 10, 20}}, {0xD6D0, {7, 0, 0xA1, 0xA2, 3, 4, 5, 5}}}, {20, 0, 0, 10}));
    const StrokeGlyph* const glyph = composed.glyph(middle);
    ASSERT_NE(glyph, nullptr);
    EXPECT_EQ(InUnits(*glyph), (Strokes{{{1.5, 2.0}, {4.0, 4.5}}}));
    EXPECT_DOUBLE_EQ(glyph->advance, 0.5);
}

TEST(ShapeFont, ADamagedCharacterIsLeftToOthersAndNamedOnce) {
    const shape_font::Commands damaged[] = {
        {8, 1},    // ends within a command
        {15},      // no such command
        {3, 0},    // scale without end
        {6},       // back to nowhere
        {7, 'A'},  // itself
    };
    for (const shape_font::Commands& commands : damaged) {
        ShapeFont font = FontOf(shape_font::ShapesFont({{'A', commands}, {'B', {0x10}}}));
        EXPECT_EQ(font.glyph(Single('A')), nullptr);
        EXPECT_NE(font.takeFault().find("shape 65"), std::string::npos);
        EXPECT_EQ(font.glyph(Single('A')), nullptr);
        EXPECT_EQ(font.takeFault(), "");
        EXPECT_NE(font.glyph(Single('B')), nullptr);
    }
}

TEST(ShapeFontFile, FilesCutAnywhereAreRefusedWithThePlace) {
    const Shapes shapes{{'A', {0x10}}, {'B', {0x10}}};
    for (const std::string& whole : {shape_font::ShapesFont(shapes), shape_font::Unifont(shapes),
                                     shape_font::BigFont({{0xD6D0, {0x50}}})}) {
        std::string error;
        ASSERT_TRUE(ShapeFontFile().read(whole, error)) << error;
        for (std::size_t length = 0; length < whole.size(); ++length) {
            error.clear();
            EXPECT_FALSE(ShapeFontFile().read(whole.substr(0, length), error)) << length;
            EXPECT_EQ(error.substr(0, 5), "byte ") << error;
        }
    }
}

}  // namespace
