// Drawings inserted into others as blocks.
#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbText.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/DrawingDamage.h"
#include "tests/platform/dwg/DwgFixture.h"
#include "tests/platform/dwg/FindingListener.h"
#include "tests/platform/dwg/TestCurve.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

/// The fixture's own drawing is the one that is inserted.
class InsertTest : public DwgFixture {
protected:
    static constexpr const char* kPath = "D:\\suite\\Support\\gltka3.dwg";

    AcDbObjectId insert(Acad::ErrorStatus expected = Acad::eOk) {
        AcDbObjectId id;
        EXPECT_EQ(target_.insert(id, kPath, &database_), expected);
        return id;
    }

    const AcDbLayerTableRecord& layerOf(const AcDbEntity& entity) {
        return static_cast<const AcDbLayerTableRecord&>(*AcDbDatabase::objectOf(entity.layerId()));
    }

    AcDbDatabase target_;
};

TEST_F(InsertTest, TheModelSpaceBecomesABlockWithWhatItNeeds) {
    database_.setClayer(addLayer("FRAME", 3));
    const AcDbObjectId style = addTextStyle("TITLE", "a.shx", "b.shx");
    appendLine({}, {0.42, 0, 0});
    append(std::make_unique<AcDbText>(AcGePoint3d(), "A3", style, 0.003));
    const AcDbObjectId nested = addBlock("Nested");
    append(std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 2), "Nested");
    append(std::make_unique<AcDbBlockReference>(AcGePoint3d(1, 1, 0), nested));
    database_.header().INSBASE = {5, 6, 0};
    // A template in inches: nothing but the reference's own scale counts.
    database_.header().INSUNITS = 1;
    database_.header().MEASUREMENT = 0;

    const AcDbObjectId id = insert();
    EXPECT_EQ(nameOf(id), kPath);
    EXPECT_EQ(block(target_, kPath)->origin().y, 6);
    const std::vector<AcDbEntity*> copies = entities(target_, kPath);
    ASSERT_THAT(copies, SizeIs(3));
    for (const AcDbEntity* copy : copies) {
        EXPECT_EQ(copy->ownerId(), id);
        EXPECT_EQ(copy->layerId().database(), &target_);
        EXPECT_EQ(copy->linetypeId(), target_.byLayerLinetype());
    }
    EXPECT_EQ(static_cast<const AcDbLine&>(*copies[0]).endPoint().x, 0.42);
    EXPECT_EQ(target_.header().INSUNITS, HeaderVariables().INSUNITS);
    EXPECT_EQ(layerOf(*copies[0]).color().colorIndex(), 3);
    EXPECT_EQ(layerOf(*copies[0]).linetypeObjectId(), target_.continuousLinetype());
    const auto& text = static_cast<const AcDbText&>(*copies[1]);
    EXPECT_EQ(text.textStyle().database(), &target_);
    EXPECT_EQ(nameOf(text.textStyle()), "TITLE");
    const auto& reference = static_cast<const AcDbBlockReference&>(*copies[2]);
    EXPECT_EQ(reference.blockTableRecord().database(), &target_);
    EXPECT_THAT(entities(target_, "NESTED"), SizeIs(1));
    EXPECT_THAT(entities(database_), SizeIs(3)) << "the source stays as it was";

    save(target_, "target.dwg");
    EXPECT_EQ(describe(*read("target.dwg"), kPath), describe(target_, kPath));
}

TEST_F(InsertTest, TheTargetsOwnDefinitionsWin) {
    database_.setClayer(addLayer("shared", 3));
    appendLine({}, {1, 0, 0});
    const AcDbObjectId shared = addLayerTo(target_, "SHARED");
    const AcDbObjectId id = insert();
    EXPECT_EQ(entities(target_, kPath)[0]->layerId(), shared);
    EXPECT_EQ(insert(), id) << "the block is there already";
    EXPECT_THAT(entities(target_, kPath), SizeIs(1));
}

TEST_F(InsertTest, StylesAndBlocksOfTheTargetWinToo) {
    const AcDbObjectId style = addTextStyle("TITLE", "target.shx", "");
    const AcDbObjectId nested = addBlock("Nested");
    appendLine({}, {1, 0, 0}, "Nested");
    save();
    const auto target = read();
    // Since then the template has gone another way.
    Opened<AcDbTextStyleTableRecord>(style)->setFileName("source.shx");
    append(std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 2), "Nested");
    append(std::make_unique<AcDbText>(AcGePoint3d(), "A3", style, 0.003));
    append(std::make_unique<AcDbBlockReference>(AcGePoint3d(), nested));
    AcDbObjectId id;
    ASSERT_EQ(target->insert(id, kPath, &database_), Acad::eOk);
    const std::vector<std::string> picture = describe(*target, kPath);
    ASSERT_THAT(picture, SizeIs(4));
    EXPECT_THAT(picture[1], HasSubstr("target.shx"));
    EXPECT_THAT(picture[3], HasSubstr("polyline 0,0 1,0")) << "and no circle";
    save(*target, "target.dwg");
    EXPECT_EQ(describe(*read("target.dwg"), kPath), picture);
}

TEST_F(InsertTest, ReferencesAmongTheEntitiesFollowThem) {
    addDot({}, 1);
    insert();
    const std::vector<AcDbEntity*> copies = entities(target_, kPath);
    ASSERT_THAT(copies, SizeIs(2));
    EXPECT_EQ(static_cast<const AcDbHatch&>(*copies[1]).loopAt(0).boundaryIds[0],
              copies[0]->objectId());
    EXPECT_EQ(copies[0]->persistentReactors()[0], copies[1]->objectId());
}

TEST_F(InsertTest, EntitiesOfModulesAndUnknownOnesAreCopied) {
    const TestCurve::Registration registration;
    const AcDbObjectId style = addTextStyle("TITLE", "a.shx", "");
    auto curve = std::make_unique<TestCurve>();
    curve->text = "ZK1";
    curve->style = style;
    append(std::move(curve));
    AcDbKeptFields fields;
    fields.bits = {0x80};
    fields.bitCount = 3;
    fields.references = {{5, style}};
    append(std::make_unique<AcDbKeptEntity>(AcDbKeptClass{44, nullptr, "AcDbMText"}, fields));
    fields.references = {{5, database_.header().CMLSTYLE}};
    append(std::make_unique<AcDbKeptEntity>(AcDbKeptClass{47, nullptr, "AcDbMline"}, fields));
    const FindingListener listener;
    insert();
    const std::vector<AcDbEntity*> copies = entities(target_, kPath);
    ASSERT_THAT(copies, SizeIs(2)) << "all but the one that needs a style of another kind";
    EXPECT_THAT(listener.heard, ElementsAre(HasSubstr("left out: AcDbMline (1)")));
    const auto& copy = static_cast<const TestCurve&>(*copies[0]);
    EXPECT_EQ(copy.text, "ZK1");
    EXPECT_EQ(copy.style.database(), &target_);
    EXPECT_EQ(static_cast<const AcDbKeptEntity&>(*copies[1]).keptFields().references[0].id,
              copy.style);
}

// Entities that belong to each other in a long row, as no drawing has them but a file may.
TEST_F(InsertTest, PartsOfPartsAreNotFollowed) {
    appendLine({}, {1, 0, 0});
    AcDbObjectId owner = entities(database_)[0]->objectId();
    for (int i = 0; i < 100'000; ++i) {
        owner = database_.addObject(std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(2, 0, 0)),
                                    owner);
    }
    insert();
    EXPECT_THAT(entities(target_, kPath), SizeIs(1));
}

// No drawing has such references, but any file may.
TEST_F(InsertTest, ReferencesInCirclesAndInLongRowsComeToAnEnd) {
    const auto lean = [](AcDbObjectId layer, AcDbObjectId on) {
        Opened<AcDbLayerTableRecord>(layer)->setLinetypeObjectId(on);
    };
    const auto refer = [this](const std::string& from, AcDbObjectId to) {
        append(std::make_unique<AcDbBlockReference>(AcGePoint3d(), to), from.c_str());
    };
    const auto expectCopied = [this](const char* what) {
        AcDbDatabase target;
        AcDbObjectId id;
        EXPECT_EQ(target.insert(id, kPath, readContent(save()).get()), Acad::eOk) << what;
        EXPECT_EQ(layerOf(*entities(target, kPath)[0]).linetypeObjectId(),
                  target.continuousLinetype());
        save(target, "target.dwg");
        const auto again = read("target.dwg");
        EXPECT_TRUE(again->damage().empty()) << what;
        EXPECT_EQ(describe(*again, kPath), describe(target, kPath)) << what;
    };
    const AcDbObjectId own = addLayer("own");
    database_.setClayer(own);
    const AcDbObjectId line = appendLine({}, {1, 0, 0})->objectId();
    lean(own, own);
    expectCopied("a layer is its own line type");

    AcDbObjectId layer = own;
    std::string block = ACDB_MODEL_SPACE;
    for (int i = 0; i < 20'000; ++i) {
        const std::string name = "N" + std::to_string(i);
        const AcDbObjectId next = addLayer(name.c_str());
        lean(layer, next);
        layer = next;
        refer(block, addBlock(name.c_str()));
        block = name;
    }
    lean(layer, own);
    refer(block, this->block(database_, "N0")->objectId());
    expectCopied("rows of layers and of blocks lead back to their first");

    const AcDbObjectId root = database_.header().DICTIONARY_NAMED_OBJECTS;
    for (const AcDbObjectId id : {root, own, line, database_.header().BLOCK_RECORD_MODEL_SPACE}) {
        const Opened<AcDbObject> object(id);
        object->setOwnerId(id);
        object->addPersistentReactor(id);
        object->fileData().extensionDictionary = root;
    }
    Opened<AcDbDictionary>(root)->setAt("SELF", root);
    expectCopied("objects own, name and hear themselves");
}

TEST_F(InsertTest, WhatCannotBeInsertedIsSaid) {
    AcDbObjectId id;
    AcDbDatabase empty(false);
    EXPECT_EQ(target_.insert(id, kPath, &empty), Acad::eNoDatabase);
    EXPECT_EQ(target_.insert(id, kPath, nullptr), Acad::eNoDatabase);
    EXPECT_EQ(target_.insert(id, "", &database_), Acad::eInvalidInput);
    EXPECT_EQ(target_.insert(id, kPath, &target_), Acad::eInvalidInput);
    EXPECT_TRUE(id.isNull());
}

}  // namespace
