#include "platform/db/AcDbBlockReference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbText.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

using testing::ElementsAre;
constexpr double kQuarter = std::numbers::pi / 2;

class AcDbBlockReferenceTest : public DrawingFixture {
protected:
    static std::unique_ptr<AcDbBlockReference> referenceTo(AcDbObjectId block,
                                                           const AcGePoint3d& position = {},
                                                           double rotation = 0, double scale = 1) {
        auto reference = std::make_unique<AcDbBlockReference>(position, block);
        reference->setRotation(rotation);
        reference->setScaleFactors({scale, scale, scale});
        return reference;
    }

    /// A line from (0, 0) to (1, 0) in a block.
    void addLine(const char* block, Adesk::UInt16 color = 256,
                 AcDbObjectId layer = AcDbObjectId::kNull) {
        const Opened line(appendLine({0, 0, 0}, {1, 0, 0}, block)->objectId());
        line->setColorIndex(color);
        if (!layer.isNull()) {
            line->setLayer(layer);
        }
    }

    static Acad::ErrorStatus extentsOf(const AcDbEntity* entity, AcDbExtents& box) {
        return Opened(entity->objectId(), AcDb::kForRead)->getGeomExtents(box);
    }
};

TEST_F(AcDbBlockReferenceTest, DrawsTheDefinitionTurnedScaledAndMoved) {
    const AcDbObjectId frame = addBlock("frame");
    addLine("frame");
    append(std::make_unique<AcDbCircle>(AcGePoint3d(2, 0, 0), AcGeVector3d::kZAxis, 0.5), "frame");
    append(std::make_unique<AcDbText>(AcGePoint3d(0, 1, 0), "A3", AcDbObjectId::kNull, 0.2),
           "frame");
    AcDbBlockReference* const reference = append(referenceTo(frame, {10, 20, 0}, kQuarter, 1000));
    EXPECT_THAT(drawn(reference),
                ElementsAre("[256] polyline 10,20 10,1020", "circle 10,2020 r 500",
                            "text A3 at -990,20 towards 90 h 200 w 1 txt,"));
    AcDbExtents box;
    EXPECT_EQ(extentsOf(reference, box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().y, 2520.0, 1e-9);
    const AcGeMatrix3d mirrored = AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0});
    EXPECT_EQ(Opened(reference->objectId())->transformBy(mirrored), Acad::eOk);
    EXPECT_THAT(drawn(reference),
                ElementsAre("[256] polyline -10,20 -10,1020", "circle -10,2020 r 500",
                            "text A3 at 990,20 towards 90 mirrored h 200 w 1 txt,"));
}

TEST_F(AcDbBlockReferenceTest, NestedReferencesMultiply) {
    const AcDbObjectId inner = addBlock("inner");
    const AcDbObjectId outer = addBlock("outer");
    addLine("inner");
    append(referenceTo(inner, {1, 0, 0}, kQuarter, 2), "outer");
    EXPECT_THAT(drawn(append(referenceTo(outer, {100, 0, 0}, kQuarter, 3))),
                ElementsAre("[256] polyline 100,3 94,3"));
}

// Files can nest blocks as deep as they like.
TEST_F(AcDbBlockReferenceTest, NestingWithoutEndIsCutOff) {
    constexpr int kBlocks = 3000;
    AcDbObjectId inner = addBlock("0");
    addLine("0");
    for (int i = 1; i < kBlocks; ++i) {
        const std::string name = std::to_string(i);
        const AcDbObjectId block = addBlock(name.c_str());
        append(referenceTo(inner), name.c_str());
        inner = block;
    }
    AcDbBlockReference* const reference = append(referenceTo(inner));
    AcDbExtents box;
    EXPECT_EQ(extentsOf(reference, box), Acad::eDegenerateGeometry) << "the line is too deep";
}

TEST_F(AcDbBlockReferenceTest, ExplodesIntoCopiesWhereTheyWereDrawn) {
    const AcDbObjectId block = addBlock("b");
    addLine("b", 3);
    append(std::make_unique<AcDbCircle>(AcGePoint3d(2, 0, 0), AcGeVector3d::kZAxis, 0.5), "b");
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(referenceTo(block, {10, 20, 0}, kQuarter, 2)->explode(pieces), Acad::eOk);
    RecordingWorldDraw context;
    for (void* const piece : pieces) {
        const std::unique_ptr<AcDbEntity> entity(static_cast<AcDbEntity*>(piece));
        context.subEntityTraits().setColor(entity->colorIndex());
        entity->worldDraw(&context);
    }
    EXPECT_THAT(context.lines(), ElementsAre("[3] polyline 10,20 10,22", "[256] circle 10,24 r 1"));

    const auto uneven = referenceTo(block);
    uneven->setScaleFactors({1, 2, 1});
    pieces = {};
    EXPECT_EQ(uneven->explode(pieces), Acad::eNotApplicable);
    EXPECT_TRUE(pieces.isEmpty());
}

TEST_F(AcDbBlockReferenceTest, ColoursAndLayersMeanWhatTheyMeanAtTheReference) {
    const AcDbObjectId block = addBlock("dots");
    const AcDbObjectId red = addLayer("red", 1);
    const AcDbObjectId frozen = addLayer("frozen", 2);
    Opened<AcDbLayerTableRecord>(frozen)->setIsFrozen(true);
    addLine("dots", 3);
    addLine("dots", 0);                        // by block
    addLine("dots", 256, red);                 // by layer
    addLine("dots", 256, database_.clayer());  // by layer, on layer "0"
    addLine("dots", 257, red);
    addLine("dots", 4, frozen);
    auto reference = referenceTo(block);
    reference->setColorIndex(5);
    EXPECT_THAT(drawn(append(std::move(reference))),
                ElementsAre("[3] polyline 0,0 1,0", "[5] polyline 0,0 1,0", "[1] polyline 0,0 1,0",
                            "[256] polyline 0,0 1,0", "[1] polyline 0,0 1,0"));
}

TEST_F(AcDbBlockReferenceTest, ADefinitionThatContainsItselfEnds) {
    const AcDbObjectId a = addBlock("a");
    const AcDbObjectId b = addBlock("b");
    addLine("a");
    append(referenceTo(b, {0, 5, 0}), "a");
    append(referenceTo(a, {0, 7, 0}), "b");
    addLine("b");
    EXPECT_THAT(drawn(append(referenceTo(a))),
                ElementsAre("[256] polyline 0,0 1,0", "polyline 0,5 1,5"));
}

TEST_F(AcDbBlockReferenceTest, ErasedEntitiesAreLeftOutOpenOnesDrawn) {
    const AcDbObjectId block = addBlock("b");
    const Opened open(appendLine({0, 0, 0}, {1, 0, 0}, "b")->objectId());
    Opened(appendLine({0, 0, 0}, {2, 0, 0}, "b")->objectId())->erase();
    EXPECT_THAT(drawn(append(referenceTo(block))), ElementsAre("[256] polyline 0,0 1,0"));
    EXPECT_TRUE(open->isWriteEnabled());

    AcDbBlockReference loose;
    EXPECT_EQ(loose.setBlockTableRecord(AcDbObjectId::kNull), Acad::eNullObjectId);
    EXPECT_EQ(loose.setBlockTableRecord(database_.clayer()), Acad::eNotApplicable);
    AcDbExtents box;
    EXPECT_EQ(loose.getGeomExtents(box), Acad::eDegenerateGeometry);
}

TEST_F(AcDbBlockReferenceTest, BlocksThatMultiplyBeyondReasonComeToAnEnd) {
    AcDbObjectId inner = addBlock("0th");
    addLine("0th");
    // Ten references to the block before, twenty times over.
    for (int level = 1; level <= 20; ++level) {
        const std::string name = std::to_string(level) + "th";
        const AcDbObjectId block = addBlock(name.c_str());
        for (int i = 0; i < 10; ++i) {
            append(referenceTo(inner, {1.0 * i, 0, 0}), name.c_str());
        }
        inner = block;
    }
    AcDbBlockReference* const reference = append(referenceTo(inner));
    AcDbExtents box;
    EXPECT_EQ(extentsOf(reference, box), Acad::eOk);
    EXPECT_GE(box.maxPoint().x, 6.0);
}

}  // namespace
