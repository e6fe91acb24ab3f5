#include "platform/db/AcDbBlockTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbText.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

using AcDbBlockTableRecordTest = DrawingFixture;

TEST_F(AcDbBlockTableRecordTest, WhatIsUnsetTakesTheDrawingsCurrentValues) {
    const AcDbObjectId layer = addLayer("ZZT_TC");
    const AcDbObjectId style = addTextStyle("QV_FONT", "ComFont.shx", "Hztxt.shx");
    ASSERT_EQ(database_.setClayer(layer), Acad::eOk);
    ASSERT_EQ(database_.setTextstyle(style), Acad::eOk);
    const AcDbText* const text = append(std::make_unique<AcDbText>(AcGePoint3d(), "d60"));
    EXPECT_EQ(text->layerId(), layer);
    EXPECT_EQ(text->linetypeId(), database_.byLayerLinetype());
    EXPECT_EQ(text->textStyle(), style);

    const AcDbObjectId other = addTextStyle("KX_FONT", "ComFont.shx", "st64f.shx");
    ASSERT_EQ(database_.setTextstyle(other), Acad::eOk);
    EXPECT_EQ(text->textStyle(), style);
    auto own = std::make_unique<AcDbText>(AcGePoint3d(), "d60", style);
    const AcDbObjectId zero = addLayer("0x");
    own->setLayer(zero);
    const AcDbText* const appended = append(std::move(own));
    EXPECT_EQ(appended->layerId(), zero);
    EXPECT_EQ(appended->textStyle(), style);
}

TEST_F(AcDbBlockTableRecordTest, TheEntityStaysOpenAndInOrder) {
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(database_.getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* space = nullptr;
    EXPECT_EQ(blocks->getAt("*none", space, AcDb::kForRead), Acad::eKeyNotFound);
    EXPECT_EQ(space, nullptr);
    ASSERT_EQ(blocks->getAt("*MODEL_SPACE", space, AcDb::kForWrite), Acad::eOk);

    auto* const first = new AcDbLine;
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, first), Acad::eOk);
    EXPECT_EQ(id, first->objectId());
    EXPECT_EQ(first->ownerId(), space->objectId());
    first->setEndPoint({1, 1, 0});
    EXPECT_EQ(space->appendAcDbEntity(first), Acad::eAlreadyInDb);
    auto* const second = new AcDbLine;
    EXPECT_EQ(space->appendAcDbEntity(second), Acad::eOk);
    EXPECT_THAT(space->entityIds(), testing::ElementsAre(first->objectId(), second->objectId()));
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(second->close(), Acad::eOk);

    EXPECT_EQ(space->appendAcDbEntity(nullptr), Acad::eNullObjectPtr);
    AcDbBlockReference toNothing;
    EXPECT_EQ(space->appendAcDbEntity(&toNothing), Acad::eNullObjectId);
    AcDbBlockTableRecord free;
    AcDbLine line;
    EXPECT_EQ(free.appendAcDbEntity(&line), Acad::eNotInDatabase);
    space->close();
    blocks->close();
}

}  // namespace
