// Drawings written, read and compared.
#include <numbers>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbLayout.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

using testing::ElementsAre;

class DrawingFileTest : public DwgFixture {
protected:
    /// Makes an entity, sets what `change` sets, and appends it.
    template <class T, class Change>
    T* append(T entity, Change change) {
        auto made = std::make_unique<T>(entity);
        change(*made);
        return DrawingFixture::append(std::move(made));
    }
    template <class T>
    T* append(T entity) {
        return append(entity, [](T&) {});
    }
    using DrawingFixture::append;

    static AcGePoint3dArray wave() {
        return {{0, 0, 0}, {10.5, 3, 0}, {20, -3.25, 0}, {31, 0.1, 0}};
    }

    /// One of everything that sheets are made of.
    void drawSheet() {
        database_.setClayer(addLayer("ZZT_TC"));
        database_.setTextstyle(addTextStyle("QV_FONT", "ComFont.shx", "Hztxt.shx"));
        append(AcDbLine({10, 20.5, 0}, {190, 20.5, 0}));
        append(AcDbLine({1, 2, 3}, {4, 5, 6}),
               [&](AcDbLine& line) { line.setLinetype(database_.header().LTYPE_BYBLOCK); });
        auto wide = std::make_unique<AcDbPolyline>();
        wide->addVertexAt(0, {10, 10}, 0, 0.6, 0.6);
        wide->addVertexAt(0, {190, 10}, 0, 0.6, 0.6);
        wide->setColorIndex(7);
        append(std::move(wide));
        append(AcDbText({5, 7, 0}, "颗粒分析"_gbk, AcDbObjectId::kNull, 3.0, 0.0),
               [](AcDbText& text) { text.setWidthFactor(0.7); });
        append(AcDbText({5, 9, 1}, "d60", AcDbObjectId::kNull, 2.4, std::numbers::pi / 2));
        addDot({50, 60, 0}, 0.8);
        append(AcDbSpline(wave()));
        const AcDbObjectId frame = addBlock("Frame");
        appendLine({}, {0.42, 0.297, 0}, "Frame");
        append(AcDbBlockReference({1, 2, 0}, frame), [](AcDbBlockReference& r) {
            r.setScaleFactors({1000, 1000, 1000});
        });
        append(AcDbBlockReference({3, 4, 0}, frame), [](AcDbBlockReference& r) {
            r.setScaleFactors({1, -1, 2});
        });
    }
};

TEST_F(DrawingFileTest, ASheetComesBackEntityForEntity) {
    drawSheet();
    const std::vector<std::string> drawn = describe(database_);
    const std::string file = save();
    const auto copy = read();
    EXPECT_EQ(describe(*copy), drawn);
    EXPECT_EQ(describe(*copy, "frame"), describe(database_, "Frame"));
    EXPECT_EQ(nameOf(copy->clayer()), "ZZT_TC");
    EXPECT_EQ(nameOf(copy->textstyle()), "QV_FONT");
    const auto& style =
        static_cast<const AcDbTextStyleTableRecord&>(*AcDbDatabase::objectOf(copy->textstyle()));
    EXPECT_STREQ(style.fileName(), "ComFont.shx");
    EXPECT_STREQ(style.bigFontFileName(), "Hztxt.shx");
    EXPECT_EQ(save(*copy, "again.dwg"), file) << "an untouched drawing is the same file again";
}

TEST_F(DrawingFileTest, WhatIsNotDrawnComesBackToo) {
    drawSheet();
    save();
    const auto copy = read();
    const std::vector<AcDbEntity*> all = entities(*copy);
    const auto& wide = static_cast<const AcDbPolyline&>(*all[2]);
    ASSERT_EQ(wide.numVerts(), 2U);
    EXPECT_EQ(wide.vertexAt(0).point.x, 190) << "vertices in their stored order";
    EXPECT_EQ(wide.vertexAt(1).startWidth, 0.6);
    EXPECT_FALSE(wide.isClosed());
    const auto& text = static_cast<const AcDbText&>(*all[3]);
    EXPECT_STREQ(text.textString(), "颗粒分析"_gbk);
    EXPECT_EQ(nameOf(text.textStyle()), "QV_FONT");
    const auto& hatch = static_cast<const AcDbHatch&>(*all[6]);
    AcDbObjectIdArray boundary;
    Opened<AcDbHatch>(hatch.objectId(), AcDb::kForRead)->getAssocObjIds(boundary);
    ASSERT_EQ(boundary.length(), 1);
    EXPECT_EQ(boundary[0], all[5]->objectId());
    EXPECT_EQ(all[5]->persistentReactors()[0], hatch.objectId());
    EXPECT_TRUE(hatch.associative() && hatch.isSolidFill());
    const auto& spline = static_cast<const AcDbSpline&>(*all[7]);
    ASSERT_EQ(spline.numFitPoints(), 4);
    EXPECT_EQ(spline.fitPointAt(2).y, -3.25);
    EXPECT_EQ(static_cast<const AcDbBlockReference&>(*all[9]).scaleFactors().sy, -1);
    EXPECT_FALSE(copy->isModified());
    EXPECT_STREQ(copy->getFilename(), folder_.Windows("drawing.dwg").c_str());
}

TEST_F(DrawingFileTest, TheDefaultDrawingHasWhatEveryDrawingHas) {
    AcDbDatabase fresh;
    save(fresh);
    const auto copy = read();
    const HeaderVariables& header = copy->header();
    EXPECT_EQ(nameOf(header.CLAYER), "0");
    EXPECT_EQ(nameOf(header.TEXTSTYLE), "Standard");
    EXPECT_EQ(nameOf(header.DIMSTYLE), "Standard");
    EXPECT_EQ(nameOf(header.CELTYPE), "ByLayer");
    EXPECT_EQ(nameOf(header.LTYPE_CONTINUOUS), "Continuous");
    EXPECT_EQ(nameOf(header.BLOCK_RECORD_PAPER_SPACE), ACDB_PAPER_SPACE);
    const auto& root = static_cast<const AcDbDictionary&>(
        *AcDbDatabase::objectOf(header.DICTIONARY_NAMED_OBJECTS));
    std::vector<std::string> names;
    for (const auto& [name, id] : root.entries()) {
        names.push_back(name);
        EXPECT_EQ(AcDbDatabase::objectOf(id)->ownerId(), root.objectId()) << name;
    }
    EXPECT_THAT(names, ElementsAre("ACAD_GROUP", "ACAD_LAYOUT", "ACAD_MLINESTYLE",
                                   "ACAD_PLOTSETTINGS", "ACAD_PLOTSTYLENAME"));
    EXPECT_TRUE(block(*copy, ACDB_MODEL_SPACE)->isLayout());
    constexpr Adesk::Int32 kDaysTo2024May31 = 2460462;
    EXPECT_EQ(header.TDCREATE, (DrawingTime{kDaysTo2024May31, 0}));
    for (const AcDbStub& stub : copy->entries()) {
        ASSERT_NE(stub.object, nullptr) << "nothing refers to what is not there";
        EXPECT_LT(stub.handle, header.HANDSEED);
    }
}

TEST_F(DrawingFileTest, HeaderVariablesKeepTheirValues) {
    HeaderVariables& header = database_.header();
    header.LTSCALE = 2.5;
    header.USERI3 = -7;
    header.MENU = "menu";
    header.PEXTMAX = {1, 2, 3};
    header.UCSORGS.back = {4, 5, 6};
    header.DIMBLK1 = header.BLOCK_RECORD_MODEL_SPACE;
    header.DIMLWE = 25;
    header.CEPSNTYPE = 3;
    header.CPSNID = header.DICTIONARY_PLOTSTYLES;
    header.unknown54 = {1, 2, 3, 4};
    header.MEASUREMENT = 0;
    header.DWGCODEPAGE = 30;
    save();
    const auto copy = read();
    const HeaderVariables& read = copy->header();
    EXPECT_EQ(read.LTSCALE, 2.5);
    EXPECT_EQ(read.USERI3, -7);
    EXPECT_EQ(read.MENU, "menu");
    EXPECT_EQ(read.PEXTMAX.z, 3);
    EXPECT_EQ(read.UCSORGS.back.y, 5);
    EXPECT_EQ(read.DIMBLK1, read.BLOCK_RECORD_MODEL_SPACE);
    EXPECT_EQ(read.DIMLWE, 25);
    EXPECT_EQ(read.CPSNID, read.DICTIONARY_PLOTSTYLES);
    EXPECT_THAT(read.unknown54, ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(read.MEASUREMENT, 0);
    EXPECT_EQ(read.DWGCODEPAGE, 30);
}

TEST_F(DrawingFileTest, EntitiesAreLinkedAroundErasedOnes) {
    for (int i = 0; i < 6; ++i) {
        append(AcDbLine(AcGePoint3d(i, 0, 0), AcGePoint3d(i, 1, 0)));
    }
    save();
    auto copy = read();
    const std::vector<AcDbLine*> lines = entities<AcDbLine>(*copy);
    for (const int erased : {0, 2, 3, 5}) {
        Opened(lines[static_cast<std::size_t>(erased)]->objectId())->erase();
    }
    save(*copy, "erased.dwg");
    const auto rest = read("erased.dwg");
    const std::vector<AcDbLine*> left = entities<AcDbLine>(*rest);
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(left[0]->startPoint().x, 1);
    EXPECT_EQ(left[1]->startPoint().x, 4);
}

TEST_F(DrawingFileTest, TheSameDrawingIsTheSameFile) {
    drawSheet();
    const std::string file = save();
    EXPECT_EQ(save(), file);
    // Another day is another version, but not another drawing.
    win32::SetClock([] { return kNoonOf2024May31 + 86400; });
    const std::string tomorrow = save();
    EXPECT_NE(tomorrow, file);
    EXPECT_EQ(readContent(tomorrow)->header().FINGERPRINTGUID,
              readContent(file)->header().FINGERPRINTGUID);
}

TEST_F(DrawingFileTest, ManyAndLargeObjectsFit) {
    auto polyline = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < 20000; ++i) {
        polyline->addVertexAt(i, {i * 0.1, i * 0.2}, i % 5 == 0 ? 0.5 : 0.0);
    }
    append(std::move(polyline));
    for (int i = 0; i < 3000; ++i) {
        addLayer(("layer " + std::to_string(i)).c_str());
        append(AcDbLine(AcGePoint3d(i, 0, 0), AcGePoint3d(0, i, 0)));
    }
    save();
    const auto copy = read();
    ASSERT_EQ(entities(*copy).size(), 3001U);
    const auto& vertices = static_cast<const AcDbPolyline&>(*entities(*copy)[0]);
    ASSERT_EQ(vertices.numVerts(), 20000U);
    EXPECT_EQ(vertices.vertexAt(19995).bulge, 0.5);
    EXPECT_TRUE(hasLayer(*copy, "LAYER 2999"));
}

}  // namespace
