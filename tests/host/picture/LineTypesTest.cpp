// Line types, line weights, and layers that are off, frozen or not printed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/db/HeaderVariables.h"
#include "tests/host/picture/PictureFixture.h"

namespace {

using picture::Point;
using picture::Shape;
using picture::ShapeKind;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class LineTypesTest : public PictureFixture {
protected:
    AcDbObjectId addLinetype(const char* name, const std::vector<double>& lengths) {
        auto* const record = new AcDbLinetypeTableRecord;
        record->setName(name);
        record->setDashLengths(lengths);
        AcDbObjectId id;
        EXPECT_EQ(
            Opened<AcDbLinetypeTable>(database_.header().LTYPE_CONTROL_OBJECT)->add(id, record),
            Acad::eOk);
        record->close();
        return id;
    }
    AcDbObjectId addLayerWith(const char* name, AcDbObjectId linetype, AcDb::LineWeight weight) {
        const AcDbObjectId id = addLayer(name, 3);
        const Opened<AcDbLayerTableRecord> layer(id);
        layer->setLinetypeObjectId(linetype);
        EXPECT_EQ(layer->setLineWeight(weight), Acad::eOk);
        return id;
    }
    template <class T>
    T* appendWith(AcDbObjectId linetype, std::unique_ptr<T> entity) {
        T* const appended = append(std::move(entity));
        Opened(appended->objectId())->setLinetype(linetype);
        return appended;
    }
    void appendReference(const char* block, AcDbObjectId layer, AcDbObjectId linetype, double scale,
                         const char* into = ACDB_MODEL_SPACE) {
        AcDbObjectId definition;
        Opened<AcDbBlockTable>(database_.header().BLOCK_CONTROL_OBJECT, AcDb::kForRead)
            ->getAt(block, definition);
        auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(), definition);
        reference->setScaleFactors({scale, scale, scale});
        reference->setLayer(layer);
        reference->setLinetype(linetype);
        append(std::move(reference), into);
    }

    /// Where the drawn parts of level lines start and end.
    std::vector<std::pair<double, double>> dashes() {
        std::vector<std::pair<double, double>> found;
        for (const Shape& shape : shapes()) {
            found.emplace_back(shape.box.left, shape.box.right);
        }
        return found;
    }
    static auto dash(double from, double to) {
        return Pair(DoubleNear(from, 1e-9), DoubleNear(to, 1e-9));
    }

    const AcDbObjectId dashed_ = addLinetype("DASHED", {2, -1});
    const AcDbObjectId center_ = addLinetype("CENTER", {4, -1, 0, -1});
};

TEST_F(LineTypesTest, LinesStartAndEndWithDashes) {
    AcDbLine* const line = appendLine({0, 5, 0}, {10, 5, 0});
    Opened(line->objectId())->setLinetype(dashed_);
    // Three times three and one over: the ends are half a dash and half of what is over.
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 1.5), dash(2.5, 4.5), dash(5.5, 7.5), dash(8.5, 10)));
    Opened(line->objectId())->setLinetype(center_);
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 4), dash(5, 5), dash(6, 10)));
    database_.header().LTSCALE = 2.0;
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 10))) << "no room for a pattern of 12";
    database_.header().LTSCALE = 1e-6;
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 10))) << "nobody could tell the dashes apart";

    database_.header().LTSCALE = 1.0;
    Opened(line->objectId())->setLinetype(addLinetype("DOT", {0, -3}));
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 0), dash(10. / 3, 10. / 3), dash(20. / 3, 20. / 3),
                                      dash(10, 10)));
    Opened(line->objectId())->setLinetype(addLinetype("odd", {-1, -1, NAN}));
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 10)));
}

TEST_F(LineTypesTest, CornersHaveDashesOnBothSidesAndCurvesRunOn) {
    auto frame = std::make_unique<AcDbPolyline>();
    const AcGePoint2d corners[] = {{0, 0}, {10, 0}, {10, 7}, {0, 7}};
    for (unsigned i = 0; i < 4; ++i) {
        frame->addVertexAt(i, corners[i]);
    }
    frame->setClosed(true);
    const AcDbPolyline* const rectangle = appendWith(dashed_, std::move(frame));
    int atCorners = 0;
    for (const Shape& shape : shapes()) {
        for (const Point end : {list_.points(shape).front(), list_.points(shape).back()}) {
            atCorners += (end.x == 0 || end.x == 10) && (end.y == 0 || end.y == 7) ? 1 : 0;
        }
    }
    EXPECT_EQ(atCorners, 8);

    // Wide ones are broken as well.
    Opened<AcDbPolyline>(rectangle->objectId())->erase();
    auto wide = std::make_unique<AcDbPolyline>();
    wide->addVertexAt(0, {0, 0}, 0.0, 1.0, 2.0);
    wide->addVertexAt(1, {10, 0});
    const AcDbPolyline* const arrow = appendWith(dashed_, std::move(wide));
    const std::vector<Shape> parts = shapes();
    ASSERT_THAT(parts, SizeIs(4));
    EXPECT_EQ(parts[1].kind, ShapeKind::kFill);
    EXPECT_DOUBLE_EQ(parts[1].box.left, 2.5);
    EXPECT_DOUBLE_EQ(parts[1].box.right, 4.5);
    EXPECT_DOUBLE_EQ(parts[1].box.top, 0.5 * 1.45) << "as wide as the whole is there";

    Opened(arrow->objectId())->erase();
    appendWith(dashed_, std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 5.0));
    const std::vector<Shape> arcs = shapes();
    ASSERT_THAT(arcs, SizeIs(10)) << "of a length of 31.4";
    for (const Shape& shape : arcs) {
        EXPECT_NEAR(list_.arc(shape).sweepAngle, M_PI / 5 * 2 / 3, 1e-12);
    }

    Opened(list_.items()[0].entity)->setLinetype(center_);
    const Shape dot = shapes()[1];
    EXPECT_EQ(list_.points(dot).front(), list_.points(dot).back());

    Opened(list_.items()[0].entity)->setLinetype(addLinetype("DOT", {0, -3}));
    EXPECT_THAT(shapes(), SizeIs(10)) << "the first dot is the last as well";

    Opened(list_.items()[0].entity)->erase();
    const AcGePoint3dArray fit{{0, 0, 0}, {20, 10, 0}, {40, 0, 0}};
    appendWith(dashed_, std::make_unique<AcDbSpline>(fit, 4, 0.0));
    double drawn = 0.0;
    for (const Shape& shape : shapes()) {
        const auto points = list_.points(shape);
        double length = 0.0;
        for (std::size_t i = 1; i < points.size(); ++i) {
            length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
        }
        EXPECT_LT(length, 2.6);
        drawn += length;
    }
    EXPECT_GT(drawn, 28.0) << "two thirds of the curve";
    EXPECT_LT(drawn, 34.0);
}

TEST_F(LineTypesTest, BlocksTakeTypesAndWeightsAsTheyTakeColours) {
    const AcDbObjectId layer = addLayerWith("axes", dashed_, AcDb::kLnWt050);
    const AcDbObjectId outer = addLayerWith("outer", center_, AcDb::kLnWt100);
    EXPECT_EQ(Opened<AcDbLayerTableRecord>(layer)->setLineWeight(static_cast<AcDb::LineWeight>(51)),
              Acad::eInvalidInput);
    addBlock("B");
    // On a layer of its own, on layer "0", by block.
    Opened(appendLine({0, 0, 0}, {3, 0, 0}, "B")->objectId())->setLayer(layer);
    appendLine({0, 1, 0}, {5, 1, 0}, "B");
    const Opened<AcDbLine> byBlock(appendLine({0, 2, 0}, {3, 2, 0}, "B")->objectId());
    byBlock->setLayer(layer);
    byBlock->setLinetype(database_.byBlockLinetype());
    byBlock->setLineWeight(AcDb::kLnWtByBlock);
    appendReference("B", outer, database_.byLayerLinetype(), 2);

    std::vector<std::pair<double, float>> found;  // height, weight
    for (const Shape& shape : shapes()) {
        found.emplace_back(shape.box.top, shape.lineWeight);
    }
    // The pattern is enlarged with the block: a period of six on six, of twelve on ten and six.
    EXPECT_THAT(found, ElementsAre(Pair(0, 0.5F), Pair(0, 0.5F), Pair(2, 1.0F), Pair(4, 1.0F)));
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 2), dash(4, 6), dash(0, 10), dash(0, 6)));

    Opened(list_.items()[0].entity)->setLinetype(dashed_);
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 2), dash(4, 6), dash(0, 10), dash(0, 2), dash(4, 6)));
    Opened(list_.items()[0].entity)->setLineWeight(AcDb::kLnWt013);
    EXPECT_FLOAT_EQ(shapes().back().lineWeight, 0.13F);

    // The same through a block around it: by block and layer "0" lead to the outer reference.
    Opened(list_.items()[0].entity)->erase();
    addBlock("C");
    appendReference("B", database_.clayer(), database_.byBlockLinetype(), 2, "C");
    appendReference("C", outer, dashed_, 1);
    EXPECT_THAT(dashes(), ElementsAre(dash(0, 2), dash(4, 6), dash(0, 10), dash(0, 2), dash(4, 6)));
    EXPECT_FLOAT_EQ(shapes()[2].lineWeight, 1.0F);
}

TEST_F(LineTypesTest, OfAReferenceOnALayerThatIsOffTheOtherLayersAreSeen) {
    const AcDbObjectId layer = addLayer("sheet", 3, true);
    addBlock("B");
    append(std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 5.0), "B");
    append(std::make_unique<AcDbText>(AcGePoint3d(), "A3", AcDbObjectId::kNull, 2), "B");
    Opened(appendLine({0, 2, 0}, {1, 2, 0}, "B")->objectId())->setLayer(addLayer("frame", 3));
    appendReference("B", layer, database_.byLayerLinetype(), 1);
    Opened(appendLine({}, {1, 0, 0})->objectId())->setLayer(layer);
    ASSERT_THAT(shapes(), SizeIs(1));
    EXPECT_EQ(list_.box().top, 2.0);
    Opened<AcDbLayerTableRecord>(layer)->setIsFrozen(true);
    EXPECT_THAT(shapes(), IsEmpty());
}

TEST_F(LineTypesTest, LayersThatAreNotPrintedStayOffThePaper) {
    const AcDbObjectId notes = addLayer("notes", 3);
    Opened<AcDbLayerTableRecord>(notes)->setIsPlottable(false);
    const AcDbObjectId guides = addLayer("Defpoints", 3);
    addBlock("B");
    appendLine({0, 0, 0}, {1, 0, 0}, "B");
    Opened(appendLine({0, 1, 0}, {1, 1, 0}, "B")->objectId())->setLayer(guides);
    Opened(appendLine({0, 2, 0}, {1, 2, 0}, "B")->objectId())->setLayer(addLayer("frame", 3));
    appendReference("B", notes, database_.byLayerLinetype(), 1);
    appendLine({50, 50, 0}, {60, 60, 0});
    Opened(appendLine({500, 0, 0}, {501, 0, 0})->objectId())->setLayer(notes);
    std::vector<bool> printed;
    for (const Shape& shape : shapes()) {
        printed.push_back(shape.printed);
    }
    EXPECT_EQ(printed, (std::vector<bool>{false, false, true, true, false}));
    EXPECT_EQ(list_.printedBox().right, 60.0);
    EXPECT_EQ(list_.box().right, 501.0);
}

}  // namespace
