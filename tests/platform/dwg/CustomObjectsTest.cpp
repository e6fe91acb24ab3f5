// Objects of classes that modules bring, and of classes that nothing here knows.
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLine.h"
#include "platform/dwg/DwgBitReader.h"
#include "platform/dwg/file_layout.h"
#include "platform/dwg/object_map.h"
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
        append(std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(1, 0, 0)));
        auto curve = std::make_unique<TestCurve>();
        curve->origin = {10, 20, 0};
        curve->points = {{1, 2, 0}, {3, 1.5, 0}, {0, 0, 1}};
        curve->shortNumber = -5;
        curve->text = "ZK1";
        curve->size = 2.5;
        curve->flag = true;
        curve->unsignedNumber = 257;
        curve->style = style_;
        curve->mainLayer = 3;
        curve->subLayer = 400;
        curve->setColorIndex(257);
        TestCurve* added = append(std::move(curve));
        append(std::make_unique<AcDbLine>(AcGePoint3d(2, 0, 0), AcGePoint3d(3, 0, 0)));
        return added;
    }

    static TestCurve& curveOf(AcDbDatabase& database) {
        return *static_cast<TestCurve*>(entities(database)[1]);
    }

    static void expectFields(const TestCurve& curve) {
        EXPECT_EQ(curve.origin.y, 20);
        ASSERT_EQ(curve.points.length(), 3);
        EXPECT_EQ(curve.points[1].y, 1.5);
        EXPECT_EQ(curve.shortNumber, -5);
        EXPECT_EQ(curve.text, "ZK1");
        EXPECT_EQ(curve.size, 2.5);
        EXPECT_TRUE(curve.flag);
        EXPECT_EQ(curve.unsignedNumber, 257);
        EXPECT_EQ(nameOf(curve.style), "QV_FONT");
        EXPECT_EQ(curve.colorIndex(), 257);
    }

    static std::string objectAt(const std::string& file, AcDbHandle handle) {
        const std::size_t at = dwg::kLocatorsPosition + dwg::kObjectMap * dwg::kLocatorSize;
        const std::string map = file.substr(dwg::LongAt(file, at + 1), dwg::LongAt(file, at + 5));
        for (const dwg::MapEntry& entry : dwg::ReadObjectMap(map)) {
            if (entry.handle == handle) {
                const dwg::ObjectFrame frame = dwg::FrameAt(file, entry.position);
                return file.substr(frame.contentPosition, frame.contentSize);
            }
        }
        return "";
    }

    AcDbObjectId style_;
};

TEST_F(CustomObjectsTest, ACurveComesBackThroughItsClass) {
    const TestCurve::Registration registration;
    addCurve();
    const std::string file = save();
    const auto copy = read();
    expectFields(curveOf(*copy));
    EXPECT_EQ(describe(*copy), describe(database_));
    EXPECT_EQ(save(*copy, "again.dwg"), file);
}

TEST_F(CustomObjectsTest, TheFileNamesTheClassAndHoldsItsGraphics) {
    const TestCurve::Registration registration;
    TestCurve* curve = addCurve();
    const std::string file = save();

    AcGiProxyGraphicsRecorder recorder;
    TestCurve drawn;
    drawn.points = curve->points;
    drawn.worldDraw(&recorder);
    const std::string object = objectAt(file, curve->objectId().handle());
    DwgBitReader reader(dwg::BytesOf(object), 0, 8 * object.size());
    const std::int16_t number = reader.bitShort();
    reader.rawLong();
    reader.handle();
    EXPECT_EQ(reader.bitShort(), 0);
    ASSERT_TRUE(reader.bit()) << "graphics are there";
    std::vector<std::uint8_t> graphics;
    reader.bytes(reader.rawLong(), graphics);
    EXPECT_EQ(graphics, recorder.bytes());

    const auto copy = read();
    // The classes that every drawing has come first.
    EXPECT_EQ(number, 503);
    const std::size_t at = dwg::kLocatorsPosition + dwg::kClasses * dwg::kLocatorSize;
    const std::string classes = file.substr(dwg::LongAt(file, at + 1) + 20, 400);
    DwgBitReader list(dwg::BytesOf(classes), 0, 8 * classes.size());
    std::string app;
    std::string name;
    std::string dxfName;
    while (list.bitShort() != number) {
        list.bitShort();
        list.text(app);
        list.text(name);
        list.text(dxfName);
        list.bit();
        list.bitShort();
    }
    EXPECT_EQ(list.bitShort(), 255) << "what may be done to a proxy";
    list.text(app);
    list.text(name);
    list.text(dxfName);
    EXPECT_EQ(app + " " + name + " " + dxfName, "TESTAPP TestCurve TESTCURVE");
    EXPECT_FALSE(list.bit());
    EXPECT_EQ(list.bitShort(), 0x1F2);
}

TEST_F(CustomObjectsTest, WithoutItsClassACurveIsKeptAsItIs) {
    std::string file;
    {
        const TestCurve::Registration registration;
        addCurve();
        TestCurve::filesLayers() = true;
        file = save();
    }
    auto stranger = read();
    const AcDbEntity* kept = entities(*stranger)[1];
    ASSERT_EQ(kept->isA(), AcDbKeptEntity::desc());
    EXPECT_EQ(static_cast<const AcDbKeptEntity*>(kept)->keptClass().name, "TestCurve");
    EXPECT_FALSE(static_cast<const AcDbKeptEntity*>(kept)->graphics().empty());
    EXPECT_EQ(save(*stranger, "kept.dwg"), file) << "bit for bit";

    // Its place, its neighbours and its layer may change all the same.
    AcDbEntity* first = nullptr;
    ASSERT_EQ(acdbOpenObject(first, entities(*stranger)[0]->objectId(), AcDb::kForWrite),
              Acad::eOk);
    first->erase();
    first->close();
    AcDbEntity* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, kept->objectId(), AcDb::kForWrite), Acad::eOk);
    opened->setLinetype(stranger->header().LTYPE_BYBLOCK);
    opened->close();
    save(*stranger, "changed.dwg");

    const TestCurve::Registration registration;
    const auto back = read("changed.dwg");
    const auto& curve = static_cast<const TestCurve&>(*entities(*back)[0]);
    expectFields(curve);
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
    expectFields(curveOf(*copy));
    EXPECT_EQ(curveOf(*copy).mainLayer, 0) << "not read in this mode";
    TestCurve* opened = nullptr;
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(acdbOpenObject(entity, curveOf(*copy).objectId(), AcDb::kForWrite), Acad::eOk);
    opened = static_cast<TestCurve*>(entity);
    opened->assertWriteEnabled();
    opened->shortNumber = 12;
    opened->close();
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
    expectFields(curveOf(*copy));
    EXPECT_EQ(curveOf(*copy).mainLayer, 0);
}

TEST_F(CustomObjectsTest, KeptObjectsOfTheFormatGoRoundUnchanged) {
    AcDbKeptFields fields;
    fields.bits = {0xA5, 0x5A, 0xE0};
    fields.bitCount = 19;
    fields.references = {{5, style_}, {4, {}}, {3, database_.header().DICTIONARY_ACAD_GROUP}};
    append(std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(1, 0, 0)));
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
