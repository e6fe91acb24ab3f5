// Objects of classes that modules bring, and of classes that nothing here knows.
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgBitReader.h"
#include "platform/gi/AcGiProxyGraphicsRecorder.h"
#include "tests/platform/dwg/DwgFixture.h"
#include "tests/platform/dwg/TestCurve.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class CustomObjectsTest : public DwgFixture {
protected:
    CustomObjectsTest() : style_(addTextStyle("QV_FONT", "ComFont.shx", "Hztxt.shx")) {
        TestCurve::filesLayers() = false;
    }
    ~CustomObjectsTest() override { TestCurve::filesLayers() = false; }

    /// A curve with something in every field, between two lines.
    TestCurve* addCurve() {
        appendLine({}, {1, 0, 0});
        auto curve = std::make_unique<TestCurve>();
        curve->fill(style_);
        TestCurve* added = append(std::move(curve));
        appendLine({2, 0, 0}, {3, 0, 0});
        return added;
    }

    static TestCurve& curveOf(AcDbDatabase& database) {
        return *static_cast<TestCurve*>(entities(database)[1]);
    }

    AcDbObjectId style_;
};

TEST_F(CustomObjectsTest, ACurveComesBackThroughItsClass) {
    const TestCurve::Registration registration;
    addCurve();
    const std::string file = save();
    const auto copy = read();
    curveOf(*copy).expectFilled();
    EXPECT_EQ(describe(*copy), describe(database_));
    EXPECT_EQ(save(*copy, "again.dwg"), file);
}

TEST_F(CustomObjectsTest, WithoutItsClassACurveIsKeptAsItIs) {
    std::string file;
    AcGiProxyGraphicsRecorder drawn;
    {
        const TestCurve::Registration registration;
        Opened(addCurve()->objectId(), AcDb::kForRead)->worldDraw(&drawn);
        TestCurve::filesLayers() = true;
        file = save();
    }
    auto stranger = read();
    const AcDbEntity* const unknown = entities(*stranger)[1];
    ASSERT_EQ(unknown->isA(), AcDbKeptEntity::desc());
    const auto* const kept = static_cast<const AcDbKeptEntity*>(unknown);
    EXPECT_EQ(kept->graphics(), drawn.bytes());
    const std::string object = objects(file)[kept->objectId().handle()];
    DwgBitReader reader(dwg::BytesOf(object), 0, 8 * object.size());
    EXPECT_EQ(reader.bitShort(), 503) << "the classes that every drawing has come first";
    reader.rawLong();
    reader.handle();
    EXPECT_EQ(reader.bitShort(), 0) << "no application data";
    ASSERT_TRUE(reader.bit()) << "graphics are there";
    std::vector<std::uint8_t> graphics;
    reader.bytes(reader.rawLong(), graphics);
    EXPECT_EQ(graphics, drawn.bytes());
    const AcDbFileClass& record = *kept->keptClass().record;
    EXPECT_EQ(record.appName + " " + record.className + " " + record.dxfName,
              "TESTAPP TestCurve TESTCURVE");
    EXPECT_EQ(record.proxyFlags, 255);
    EXPECT_TRUE(record.isEntity && !record.wasProxy);
    EXPECT_EQ(save(*stranger, "kept.dwg"), file) << "bit for bit";

    // Its place, its neighbours and its layer may change all the same.
    Opened(entities(*stranger)[0]->objectId())->erase();
    Opened(kept->objectId())->setLinetype(stranger->header().LTYPE_BYBLOCK);
    save(*stranger, "changed.dwg");

    const TestCurve::Registration registration;
    const auto back = read("changed.dwg");
    const auto& curve = static_cast<const TestCurve&>(*entities(*back)[0]);
    curve.expectFilled();
    EXPECT_EQ(curve.subLayer, 400);
    EXPECT_EQ(nameOf(curve.linetypeId()), "ByBlock");
}

TEST_F(CustomObjectsTest, FieldsThatTheReaderLeavesAreNotLost) {
    const TestCurve::Registration registration;
    addCurve();
    TestCurve::filesLayers() = true;
    save();
    TestCurve::filesLayers() = false;
    const auto copy = read();
    curveOf(*copy).expectFilled();
    EXPECT_EQ(curveOf(*copy).mainLayer, 0) << "not read in this mode";
    Opened(curveOf(*copy).objectId())->assertWriteEnabled();
    curveOf(*copy).shortNumber = 12;
    save(*copy, "same mode.dwg");
    TestCurve::filesLayers() = true;
    save(*copy, "other mode.dwg");
    for (const char* name : {"same mode.dwg", "other mode.dwg"}) {
        const auto again = read(name);
        EXPECT_EQ(curveOf(*again).shortNumber, 12) << name;
        EXPECT_EQ(curveOf(*again).mainLayer, 3) << name;
        EXPECT_EQ(curveOf(*again).subLayer, 400) << name;
    }
}

TEST_F(CustomObjectsTest, FieldsThatTheFileDoesNotHaveReadAsNothing) {
    const TestCurve::Registration registration;
    addCurve();
    save();
    TestCurve::filesLayers() = true;
    const auto copy = read();
    curveOf(*copy).expectFilled();
    EXPECT_EQ(curveOf(*copy).mainLayer, 0);
}

TEST_F(CustomObjectsTest, KeptObjectsOfTheFormatGoRoundUnchanged) {
    AcDbKeptFields fields;
    fields.bits = {0xA5, 0x5A, 0xE0};
    fields.bitCount = 19;
    fields.references = {{5, style_}, {4, {}}, {3, database_.header().DICTIONARY_ACAD_GROUP}};
    appendLine({}, {1, 0, 0});
    append(std::make_unique<AcDbKeptEntity>(AcDbKeptClass{17, nullptr, "AcDbArc"}, fields));
    const AcDbObjectId record = database_.addObject(
        std::make_unique<AcDbKeptObject>(AcDbKeptClass{79, nullptr, "AcDbXrecord"}, fields),
        database_.header().DICTIONARY_NAMED_OBJECTS);
    const std::string file = save();
    const auto copy = read();
    const auto* arc = static_cast<const AcDbKeptEntity*>(entities(*copy)[1]);
    ASSERT_EQ(arc->isA(), AcDbKeptEntity::desc());
    EXPECT_EQ(arc->keptClass().name, "AcDbArc");
    AcDbObjectId id;
    ASSERT_EQ(copy->getAcDbObjectId(id, record.handle()), Acad::eOk);
    const auto* object = static_cast<const AcDbKeptObject*>(AcDbDatabase::objectOf(id));
    ASSERT_EQ(object->isA(), AcDbKeptObject::desc());
    for (const AcDbKeptFields& kept : {arc->keptFields(), object->keptFields()}) {
        EXPECT_EQ(kept.bitCount, 19U);
        EXPECT_THAT(kept.bits, ElementsAre(0xA5, 0x5A, 0xE0));
        ASSERT_THAT(kept.references, SizeIs(3));
        EXPECT_EQ(nameOf(kept.references[0].id), "QV_FONT");
        EXPECT_TRUE(kept.references[1].id.isNull());
        EXPECT_EQ(kept.references[2].code, 3);
    }
    EXPECT_EQ(save(*copy, "again.dwg"), file);
}

TEST_F(CustomObjectsTest, AClassWithoutANameInFilesStopsTheSave) {
    class Nameless : public AcDbEntity {
    public:
        AcRxClass* isA() const override {
            static AcRxClass* const record = newAcRxClass("Nameless", "AcDbEntity");
            return record;
        }
    };
    save();
    const std::string before = folder_.Read("drawing.dwg");
    append(std::make_unique<Nameless>());
    EXPECT_EQ(database_.saveAs(folder_.Windows("drawing.dwg").c_str()), Acad::eFileAccessErr);
    EXPECT_THAT(database_.lastFileError(), HasSubstr("drawing.dwg: the class Nameless"));
    EXPECT_EQ(folder_.Read("drawing.dwg"), before);
}

}  // namespace
