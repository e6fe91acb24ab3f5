#include <gtest/gtest.h>

#include "platform/db/AcDbCopyFiler.h"
#include "tests/platform/db/DrawingFixture.h"
#include "tests/platform/dwg/TestCurve.h"

namespace {

/// A class whose record has no constructor.
class AbstractEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AbstractEntity);
};
ACRX_DEFINE_MEMBERS(AbstractEntity, AcDbEntity, nullptr);

/// Files less than its copy reads.
class ShortenedCurve : public TestCurve {
public:
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        const Acad::ErrorStatus status = TestCurve::dwgOutFields(filer);
        filesLayers() = true;
        return status;
    }
};

class CloneTest : public DrawingFixture {
protected:
    ~CloneTest() override { TestCurve::filesLayers() = false; }
    const TestCurve::Registration registration_;
};

TEST_F(CloneTest, AnEntityOfAModuleIsCopiedByFilingIt) {
    const AcDbObjectId layer = addLayer("A");
    auto filled = std::make_unique<TestCurve>();
    filled->fill(addTextStyle("QV_FONT", "a.shx", ""));
    filled->mainLayer = -70000;
    filled->setLayer(layer);
    const TestCurve* const source = append(std::move(filled));
    TestCurve::filesLayers() = true;
    const auto made = Opened(source->objectId(), AcDb::kForRead)->clone();
    ASSERT_NE(made, nullptr);
    ASSERT_EQ(made->isA(), source->isA());
    const auto& copy = static_cast<const TestCurve&>(*made);
    copy.expectFilled();
    EXPECT_EQ(copy.mainLayer, -70000);
    EXPECT_EQ(copy.layerId(), layer);
    EXPECT_EQ(copy.linetypeId(), database_.byLayerLinetype());
    EXPECT_TRUE(copy.objectId().isNull());
    EXPECT_TRUE(copy.ownerId().isNull());
}

TEST_F(CloneTest, WhatCannotBeMadeOrFiledGivesNoCopy) {
    EXPECT_EQ(AbstractEntity().clone(), nullptr);
    EXPECT_EQ(ShortenedCurve().clone(), nullptr);
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
