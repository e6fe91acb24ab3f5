#include <gtest/gtest.h>

#include <fstream>

#include "host/picture/color_index.h"
#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/ed/file_search.h"
#include "platform/win32/gbk_literal.h"
#include "tests/host/picture/PictureFixture.h"
#include "tests/host/picture/ShapeFontBytes.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace {

using picture::DisplayList;
using picture::Point;
using picture::Shape;
using picture::ShapeKind;

class PictureTest : public PictureFixture {
protected:
    /// The characters of all runs with where they stand in the drawing.
    std::vector<std::pair<char32_t, Point>> characters() {
        std::vector<std::pair<char32_t, Point>> all;
        for (const Shape& shape : shapes()) {
            if (shape.kind == ShapeKind::kGlyphs) {
                const picture::GlyphRun& run = list_.glyphs(shape);
                for (const picture::GlyphCell& cell : run.cells) {
                    all.emplace_back(cell.character, run.cellToWorld.map({cell.x, 0.0}));
                }
            }
        }
        return all;
    }

    AcDbText* addText(const char* text, double height, double widthFactor, double rotation = 0.0) {
        auto entity = std::make_unique<AcDbText>(AcGePoint3d(10.0, 20.0, 0.0), text,
                                                 AcDbObjectId::kNull, height, rotation);
        entity->setWidthFactor(widthFactor);
        return append(std::move(entity));
    }
};

TEST_F(PictureTest, ColoursAreResolvedByLayerAndBlockAndHiddenLayersLeftOut) {
    const AcDbObjectId green = addLayer("green", 3);
    const AcDbObjectId off = addLayer("off", 5, true);
    const auto add = [&](AcDbObjectId layer, Adesk::UInt16 color, const char* block) {
        const Opened line(appendLine({}, {1, 1, 0}, block)->objectId());
        line->setLayer(layer);
        line->setColorIndex(color);
    };
    const AcDbObjectId block = addBlock("B");
    add(green, 256, "B");
    add(green, 0, "B");
    add(off, 1, "B");
    auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(), block);
    reference->setColorIndex(6);
    reference->setLayer(green);
    const AcDbBlockReference* const inserted = append(std::move(reference));
    add(green, 256, ACDB_MODEL_SPACE);
    add(off, 256, ACDB_MODEL_SPACE);
    add(green, 257, ACDB_MODEL_SPACE);
    add(green, 2, ACDB_MODEL_SPACE);
    std::vector<int> colors;
    for (const Shape& shape : shapes()) {
        colors.push_back(shape.colorIndex);
    }
    EXPECT_EQ(colors, (std::vector<int>{3, 6, 3, 3, 2}));
    ASSERT_EQ(list_.items().size(), 4U);
    EXPECT_EQ(list_.items()[0].entity, inserted->objectId());

    using picture::Background;
    using picture::ColorOf;
    using picture::Rgb;
    EXPECT_EQ(ColorOf(7, Background::kLight), (Rgb{0, 0, 0}));
    EXPECT_EQ(ColorOf(7, Background::kDark), (Rgb{255, 255, 255}));
    EXPECT_EQ(ColorOf(3, Background::kDark), (Rgb{0, 255, 0}));
    EXPECT_EQ(ColorOf(30, Background::kLight), (Rgb{255, 127, 0}));
    EXPECT_EQ(ColorOf(94, Background::kLight), (Rgb{0, 127, 0}));
}

TEST_F(PictureTest, WidePolylinesAreOutlinesWithMitredCorners) {
    auto frame = std::make_unique<AcDbPolyline>();
    const AcGePoint2d corners[] = {{0, 0}, {10, 0}, {10, 5}, {0, 5}};
    for (unsigned i = 0; i < 4; ++i) {
        frame->addVertexAt(i, corners[i], 0.0, 1.0, 1.0);
    }
    frame->setClosed(true);
    append(std::move(frame));
    auto arrow = std::make_unique<AcDbPolyline>();
    arrow->addVertexAt(0, {20, 0}, 0.0, 2.0, 0.0);
    arrow->addVertexAt(1, {24, 0});
    append(std::move(arrow));

    const std::vector<Shape> drawn = shapes();
    ASSERT_EQ(drawn.size(), 2U);
    EXPECT_EQ(drawn[0].kind, ShapeKind::kFill);
    const auto outline = list_.points(drawn[0]);
    // Four inner and four outer corners, each side closed.
    const std::vector<Point> expected{{0.5, 0.5},   {9.5, 0.5},   {9.5, 4.5},  {0.5, 4.5},
                                      {0.5, 0.5},   {-0.5, -0.5}, {-0.5, 5.5}, {10.5, 5.5},
                                      {10.5, -0.5}, {-0.5, -0.5}};
    EXPECT_EQ(std::vector<Point>(outline.begin(), outline.end()), expected);
    const auto tip = list_.points(drawn[1]);
    EXPECT_EQ(std::vector<Point>(tip.begin(), tip.end()),
              (std::vector<Point>{{20, 1}, {24, 0}, {24, 0}, {20, -1}}));
}

TEST_F(PictureTest, CurvesKeepTheWantedChordErrorAndArcsStayArcs) {
    append(std::make_unique<AcDbCircle>(AcGePoint3d(5, 5, 0), AcGeVector3d::kZAxis, 2.0));
    const AcGePoint3dArray fit{{0, 0, 0}, {10, 8, 0}, {20, -5, 0}};
    append(std::make_unique<AcDbSpline>(fit, 4, 0.0));
    const std::vector<Shape> coarse = shapes();
    ASSERT_EQ(coarse.size(), 2U);
    ASSERT_EQ(coarse[0].kind, ShapeKind::kArc);
    EXPECT_DOUBLE_EQ(list_.arc(coarse[0]).radius, 2.0);
    EXPECT_DOUBLE_EQ(coarse[0].box.left, 3.0);
    EXPECT_DOUBLE_EQ(coarse[0].box.top, 7.0);
    const DisplayList fine = picture::PictureOf(database_, fonts_, picture::kChordError / 100.0);
    EXPECT_GT(fine.shapes(fine.items()[1])[0].count, 8 * coarse[1].count);
}

// A small drawing must not take all memory, nor be shown in part as if that were all.
TEST_F(PictureTest, BlocksThatMultiplyBeyondReasonAreShownInPartAndSaySo) {
    AcDbObjectId inner = addBlock("0th");
    appendLine({}, {1, 0, 0}, "0th");
    auto course = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < 50'000; ++i) {
        course->addVertexAt(i, {i % 2 + 0.0, 0.0});
    }
    append(std::move(course), "0th");
    for (int level = 1; level <= 20; ++level) {
        const std::string name = std::to_string(level) + "th";
        const AcDbObjectId block = addBlock(name.c_str());
        for (int i = 0; i < 10; ++i) {
            append(std::make_unique<AcDbBlockReference>(AcGePoint3d(1.0 * i, 0, 0), inner),
                   name.c_str());
        }
        inner = block;
    }
    appendLine({}, {7, 0, 0});
    EXPECT_EQ(shapes().size(), 1U);
    EXPECT_TRUE(list_.isWhole());
    for (int i = 0; i < 50; ++i) {
        append(std::make_unique<AcDbBlockReference>(AcGePoint3d(0, i, 0), inner));
    }
    EXPECT_LT(shapes().size(), 600'000U);
    EXPECT_FALSE(list_.isWhole());
    // Nor does measuring them for a file take longer with each.
    EXPECT_FALSE(DwgFileWriter(database_).write().empty());
    EXPECT_GE(database_.header().EXTMAX.x, 7.0);
}

TEST_F(PictureTest, MappedCharactersAdvanceByHeightTimesWidthFactorOrFourFifthsOfIt) {
    addText("%%o1%%o中%%d%%u2%%u"_gbk, 4.0, 0.7);
    const auto placed = characters();
    ASSERT_EQ(placed.size(), 4U);
    const std::u32string expected = U"1中\u00B02";
    const double cells[] = {0.0, 0.8, 1.8, 2.6};
    for (std::size_t i = 0; i < placed.size(); ++i) {
        EXPECT_EQ(placed[i].first, expected[i]);
        EXPECT_NEAR(placed[i].second.x, 10.0 + 2.8 * cells[i], 1e-12);
        EXPECT_NEAR(placed[i].second.y, 20.0, 1e-12);
    }
    const std::vector<Shape> drawn = shapes();
    EXPECT_NEAR(drawn.back().box.top, 20.0 + 4.0 * 1.2, 1e-12) << "above the first";
    const Shape line = drawn[drawn.size() - 2];
    ASSERT_EQ(line.kind, ShapeKind::kPolyline);
    EXPECT_NEAR(line.box.left, 10.0 + 2.8 * 2.6, 1e-12);
    EXPECT_NEAR(line.box.right, 10.0 + 2.8 * 3.4, 1e-12);
    EXPECT_LT(line.box.top, 20.0);
}

TEST_F(PictureTest, ShapeFontsOnTheSearchPathStrokeTexts) {
    const ScratchFolder folder;
    std::ofstream(folder.Path("latin.SHX"), std::ios::binary)
        << shape_font::ShapesFont({{'A', {0xA4, 2, 8, 6, 0xF6}}});
    std::ofstream(folder.Path("han.shx"), std::ios::binary)
        << shape_font::BigFont({{0xD6D0, {0xA0}}});
    ed::SetSearchFolders({folder.Windows()});
    database_.setTextstyle(addTextStyle("S", "latin", "han.shx"));
    addText("A中B"_gbk, 4.0, 0.5, M_PI / 2);

    const std::vector<Shape> drawn = shapes();
    ASSERT_EQ(drawn.size(), 3U) << "B is in neither font";
    const auto stem = list_.points(drawn[0]);
    ASSERT_EQ(stem.size(), 2U);
    EXPECT_NEAR(stem[1].x, 6.0, 1e-12) << "a capital is as tall as the text";
    EXPECT_NEAR(stem[1].y, 20.0, 1e-12);
    const auto bar = list_.points(drawn[1]);
    EXPECT_NEAR(bar[0].y, 20.0 + 0.6 * 2.0, 1e-12) << "the font's advance, narrowed";
    EXPECT_NEAR(bar[1].y, 20.0 + 1.6 * 2.0, 1e-12);
    EXPECT_EQ(list_.glyphs(drawn[2]).cells[0].character, U'B');
    EXPECT_TRUE(fonts_.takeFaults().empty());

    std::ofstream(folder.Path("han.shx"), std::ios::binary | std::ios::trunc) << "no font";
    picture::FontLibrary again;
    list_ = picture::PictureOf(database_, again);
    EXPECT_EQ(list_.shapes(list_.items()[0])[1].kind, ShapeKind::kGlyphs);
    const std::vector<std::string> faults = again.takeFaults();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_NE(faults[0].find("han.shx: byte 0: "), std::string::npos) << faults[0];
    EXPECT_TRUE(again.takeFaults().empty());
}

}  // namespace
