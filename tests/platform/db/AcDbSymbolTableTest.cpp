#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbSymbolTable.h"

#include <gtest/gtest.h>

#include "platform/win32/gbk_literal.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

class AcDbSymbolTableTest : public DrawingFixture {
protected:
    AcDbSymbolTableTest() { database_.getSymbolTable(layers_, AcDb::kForWrite); }
    ~AcDbSymbolTableTest() override { layers_->close(); }

    /// Adds a layer and closes it; the table keeps it only when that went well.
    Acad::ErrorStatus add(const char* name, AcDbObjectId& id) {
        auto layer = std::make_unique<AcDbLayerTableRecord>();
        layer->setName(name);
        const Acad::ErrorStatus status = layers_->add(id, layer.get());
        if (status == Acad::eOk) {
            layer.release()->close();
        }
        return status;
    }

    AcDbLayerTable* layers_ = nullptr;
};

TEST_F(AcDbSymbolTableTest, NamesCompareWithoutCaseButByWholeCharacters) {
    AcDbObjectId id;
    ASSERT_EQ(add("zzt_Tc", id), Acad::eOk);
    EXPECT_TRUE(layers_->has("ZZT_TC"));
    EXPECT_EQ(add("ZZT_tc", id), Acad::eDuplicateRecordName);
    EXPECT_FALSE(layers_->has("ZZT_T"));
    EXPECT_FALSE(layers_->has(""));
    EXPECT_FALSE(layers_->has(nullptr));

    // The trail bytes are 'A' and 'a': two characters, not two cases of one.
    AcDbObjectId capital;
    AcDbObjectId small;
    ASSERT_EQ(add("\x81\x41x", capital), Acad::eOk);
    ASSERT_EQ(add("\x81\x61X", small), Acad::eOk);
    AcDbObjectId found;
    EXPECT_EQ(layers_->getAt("\x81\x61x", found), Acad::eOk);
    EXPECT_EQ(found, small);
    ASSERT_EQ(add("土层a"_gbk, id), Acad::eOk);
    EXPECT_TRUE(layers_->has("土层A"_gbk));
}

TEST_F(AcDbSymbolTableTest, AnErasedRecordFreesItsName) {
    AcDbObjectId first;
    ASSERT_EQ(add("A", first), Acad::eOk);
    Opened<AcDbLayerTableRecord>(first)->erase();
    AcDbObjectId found;
    EXPECT_EQ(layers_->getAt("a", found), Acad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    EXPECT_EQ(layers_->getAt("a", found, true), Acad::eOk);
    EXPECT_EQ(found, first);

    AcDbObjectId second;
    ASSERT_EQ(add("a", second), Acad::eOk);
    EXPECT_EQ(layers_->getAt("A", found), Acad::eOk);
    EXPECT_EQ(found, second);
    EXPECT_EQ(layers_->records().back(), second);
}

TEST_F(AcDbSymbolTableTest, RefusedRecordsStayTheCallers) {
    AcDbObjectId id;
    AcDbLayerTableRecord unnamed;
    EXPECT_EQ(layers_->add(id, nullptr), Acad::eNullObjectPtr);
    EXPECT_EQ(layers_->add(id, &unnamed), Acad::eInvalidInput);
    EXPECT_EQ(unnamed.setName(""), Acad::eInvalidInput);
    EXPECT_EQ(unnamed.setName(nullptr), Acad::eInvalidInput);
    AcDbLayerTable free;
    unnamed.setName("B");
    EXPECT_EQ(free.add(id, &unnamed), Acad::eNotInDatabase);
    EXPECT_TRUE(id.isNull());

    ASSERT_EQ(add("C", id), Acad::eOk);
    auto* const added = static_cast<AcDbLayerTableRecord*>(AcDbDatabase::objectOf(id));
    EXPECT_EQ(layers_->add(id, added), Acad::eAlreadyInDb);
    EXPECT_EQ(added->setName("D"), Acad::eAlreadyInDb);
}

TEST_F(AcDbSymbolTableTest, AnAddedRecordIsOpenAndHasItsDrawingsDefaults) {
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName("ZZT_TC");
    AcDbObjectId id;
    ASSERT_EQ(layers_->add(id, layer), Acad::eOk);
    layer->setIsOff(true);  // open for write
    EXPECT_EQ(layer->ownerId(), layers_->objectId());
    EXPECT_EQ(layer->linetypeObjectId(), database_.continuousLinetype());
    EXPECT_EQ(layer->color().colorIndex(), 7);
    layer->close();
}

TEST_F(AcDbSymbolTableTest, OnlyItsOwnLayersAndStylesBecomeCurrent) {
    AcDbObjectId layer;
    ASSERT_EQ(add("A", layer), Acad::eOk);
    const AcDbObjectId before = database_.clayer();
    const AcDbDatabase other;
    EXPECT_EQ(database_.setClayer(AcDbObjectId::kNull), Acad::eNullObjectId);
    EXPECT_EQ(database_.setClayer(other.clayer()), Acad::eWrongDatabase);
    EXPECT_EQ(database_.setClayer(database_.textstyle()), Acad::eNotApplicable);
    EXPECT_EQ(database_.setTextstyle(layer), Acad::eNotApplicable);
    EXPECT_EQ(database_.clayer(), before);
    database_.setModified(false);
    EXPECT_EQ(database_.setClayer(layer), Acad::eOk);
    EXPECT_EQ(database_.clayer(), layer);
    EXPECT_TRUE(database_.isModified());
}

TEST_F(AcDbSymbolTableTest, RecordsAreCopiedTablesAreNot) {
    AcDbObjectId id;
    ASSERT_EQ(add("A", id), Acad::eOk);
    const std::unique_ptr<AcDbObject> copy = AcDbDatabase::objectOf(id)->clone();
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(static_cast<AcDbLayerTableRecord*>(copy.get())->name(), "A");
    EXPECT_TRUE(copy->objectId().isNull());
    EXPECT_EQ(layers_->clone(), nullptr);
}

}  // namespace
