#include <gtest/gtest.h>

#include <cstring>

#include "platform/db/AcDbCopyFiler.h"
#include "platform/db/AcDbLine.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/db/DrawingFixture.h"

namespace {

/// An entity as a module brings it: it knows filing, not copying.
class CustomEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(CustomEntity);

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        AcDbEntity::dwgOutFields(filer);
        filer->writePoint3d(point);
        filer->writeInt32(count);
        filer->writeInt16(small);
        filer->writeUInt16(color);
        filer->writeDouble(length);
        filer->writeString(text.c_str());
        filer->writeBoolean(flag);
        filer->writeHardPointerId(style);
        if (writesLess) {
            return Acad::eOk;
        }
        filer->writeInt32(last);
        return Acad::eOk;
    }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
        AcDbEntity::dwgInFields(filer);
        char* read = nullptr;
        filer->readPoint3d(&point);
        filer->readInt32(&count);
        filer->readInt16(&small);
        filer->readUInt16(&color);
        filer->readDouble(&length);
        filer->readString(&read);
        text = read;
        acutDelString(read);
        EXPECT_EQ(read, nullptr);
        filer->readBoolean(&flag);
        filer->readHardPointerId(&style);
        filer->readInt32(&last);
        return Acad::eOk;
    }

    AcGePoint3d point;
    Adesk::Int32 count = 0;
    Adesk::Int16 small = 0;
    Adesk::UInt16 color = 0;
    double length = 0.0;
    std::string text;
    bool flag = false;
    AcDbHardPointerId style;
    Adesk::Int32 last = 0;
    bool writesLess = false;
};
ACRX_DEFINE_MEMBERS(CustomEntity, AcDbEntity, []() -> AcRxObject* { return new CustomEntity; });

/// A class whose record has no constructor.
class AbstractEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AbstractEntity);
};
ACRX_DEFINE_MEMBERS(AbstractEntity, AcDbEntity, nullptr);

std::unique_ptr<CustomEntity> filledEntity(const AcDbDatabase& database) {
    auto entity = std::make_unique<CustomEntity>();
    entity->point.set(1.5, -2.5, 0.25);
    entity->count = -70000;
    entity->small = -3;
    entity->color = 257;
    entity->length = 1e-300;
    entity->text = "颗分曲线"_gbk;
    entity->flag = true;
    entity->style = database.textstyle();
    entity->last = 77;
    return entity;
}

class CloneTest : public DrawingFixture {};

TEST_F(CloneTest, ACustomEntityIsCopiedByFilingIt) {
    const AcDbObjectId layer = addLayer("A");
    std::unique_ptr<CustomEntity> filled = filledEntity(database_);
    filled->setLayer(layer);
    filled->setColorIndex(3);
    CustomEntity* const source = append(std::move(filled));
    AcDbObject* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, source->objectId(), AcDb::kForRead), Acad::eOk);
    const std::unique_ptr<AcDbObject> made = source->clone();
    opened->close();

    ASSERT_NE(made, nullptr);
    ASSERT_EQ(made->isA(), CustomEntity::desc());
    const auto& copy = static_cast<const CustomEntity&>(*made);
    EXPECT_TRUE(copy.point.isEqualTo({1.5, -2.5, 0.25}, 0.0));
    EXPECT_EQ(copy.count, -70000);
    EXPECT_EQ(copy.small, -3);
    EXPECT_EQ(copy.color, 257);
    EXPECT_EQ(copy.length, 1e-300);
    EXPECT_EQ(copy.text, "颗分曲线"_gbk);
    EXPECT_TRUE(copy.flag);
    EXPECT_EQ(copy.style, database_.textstyle());
    EXPECT_EQ(copy.last, 77);
    EXPECT_EQ(copy.layerId(), layer);
    EXPECT_EQ(copy.colorIndex(), 3);
    EXPECT_EQ(copy.linetypeId(), database_.byLayerLinetype());
    EXPECT_TRUE(copy.objectId().isNull());
    EXPECT_TRUE(copy.ownerId().isNull());
}

TEST_F(CloneTest, WhatCannotBeMadeOrFiledGivesNoCopy) {
    EXPECT_EQ(AbstractEntity().clone(), nullptr);
    CustomEntity shortened;
    shortened.writesLess = true;
    EXPECT_EQ(shortened.clone(), nullptr);
}

TEST_F(CloneTest, TheLayersOwnEntitiesKeepReactorsButNoDictionary) {
    AcDbLine line({1, 2, 3}, {4, 5, 6});
    line.setColorIndex(5);
    line.highlight();
    line.addPersistentReactor(database_.clayer());
    line.fileData().extensionDictionary = database_.clayer();
    line.fileData().extendedData = {1, 2, 3};
    const std::unique_ptr<AcDbObject> made = line.clone();
    const auto& copy = static_cast<const AcDbLine&>(*made);
    EXPECT_TRUE(copy.endPoint().isEqualTo({4, 5, 6}));
    EXPECT_EQ(copy.colorIndex(), 5);
    EXPECT_FALSE(copy.isHighlighted());
    EXPECT_EQ(copy.persistentReactors().length(), 1);
    EXPECT_EQ(copy.fileData().extendedData.size(), 3U);
    EXPECT_TRUE(copy.fileData().extensionDictionary.isNull());
}

TEST(AcDbCopyFilerTest, ReadingPastTheEndGivesNothingAndSaysSo) {
    AcDbCopyFiler filer;
    filer.writeInt16(7);
    filer.writeString(nullptr);
    Adesk::Int16 number = 0;
    EXPECT_EQ(filer.readInt16(&number), Acad::eOk);
    EXPECT_EQ(number, 7);
    char* text = nullptr;
    EXPECT_EQ(filer.readString(&text), Acad::eOk);
    EXPECT_STREQ(text, "");
    acutDelString(text);

    double value = 3.0;
    EXPECT_EQ(filer.readDouble(&value), Acad::eEndOfFile);
    EXPECT_EQ(value, 0.0);
    EXPECT_EQ(filer.readString(&text), Acad::eEndOfFile);
    EXPECT_STREQ(text, "");
    acutDelString(text);
    EXPECT_EQ(filer.filerStatus(), Acad::eEndOfFile);
}

}  // namespace
