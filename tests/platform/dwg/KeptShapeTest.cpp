// What is drawn of entities that are kept as their files have them.
#include <functional>
#include <numbers>

#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLine.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/codec/kept_fields.h"
#include "platform/dwg/multiline_text.h"
#include "platform/gi/AcGiProxyGraphicsRecorder.h"
#include "platform/gi/ProxyGraphicsPlayer.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kQuarter = std::numbers::pi / 2.0;

class KeptShapeTest : public DwgFixture {
protected:
    using Fill = std::function<void(DwgBitWriter&)>;

    static std::unique_ptr<AcDbKeptEntity> make(std::uint16_t type, const Fill& fill,
                                                std::vector<AcDbKeptReference> references = {}) {
        DwgBitWriter bits;
        fill(bits);
        AcDbKeptFields fields;
        fields.bitCount = bits.bitPosition();
        fields.bits.assign(bits.view().begin(), bits.view().end());
        fields.references = std::move(references);
        return std::make_unique<AcDbKeptEntity>(AcDbKeptClass{type, nullptr, "kept"}, fields);
    }

    AcDbKeptEntity* add(std::uint16_t type, const Fill& fill,
                        std::vector<AcDbKeptReference> references = {},
                        const char* block = ACDB_MODEL_SPACE) {
        return append(make(type, fill, std::move(references)), block);
    }

    /// Entities that belong to another; they stand in no block.
    AcDbObjectId addPart(AcDbObjectId owner, std::uint16_t type, const Fill& fill,
                         std::vector<AcDbKeptReference> references = {}) {
        auto part = make(type, fill, std::move(references));
        part->setDatabaseDefaults(&database_);
        return database_.addObject(std::move(part), owner);
    }

    /// Makes the parts the chain of an entity's parts, `end` being the entity that closes it.
    static void own(AcDbKeptEntity& owner, const std::vector<AcDbObjectId>& parts,
                    AcDbObjectId end) {
        using Fields = DwgFields<AcDbKeptEntity>;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            auto& part = static_cast<AcDbKeptEntity&>(*AcDbDatabase::objectOf(parts[i]));
            Fields::setLinks(part, {i > 0 ? parts[i - 1] : AcDbObjectId::kNull,
                                    i + 1 < parts.size() ? parts[i + 1] : AcDbObjectId::kNull});
        }
        auto& references = Fields::fields(owner).references;
        references.insert(references.end(), {{4, parts.front()}, {4, parts.back()}, {3, end}});
    }

    static void point(DwgBitWriter& bits, double x, double y, double z = 0.0) {
        bits.bitDouble(x);
        bits.bitDouble(y);
        bits.bitDouble(z);
    }
    /// Text, or the text of an attribute: left-aligned, level.
    static void text(DwgBitWriter& bits, double x, double y, const char* content) {
        bits.rawChar(0xFF);
        bits.rawDouble(x);
        bits.rawDouble(y);
        bits.bit(true);
        bits.bit(true);
        bits.rawDouble(2.5);
        bits.text(content);
    }
    static void attribute(DwgBitWriter& bits, double x, double y, const char* value,
                          std::uint8_t flags) {
        text(bits, x, y, value);
        bits.text("TAG");
        bits.bitShort(0);
        bits.rawChar(flags);
    }
    static void reference(DwgBitWriter& bits, double x, double y, bool hasAttributes) {
        point(bits, x, y);
        bits.bits(3, 2);      // no scale
        bits.bitDouble(0.0);  // rotation
        point(bits, 0, 0, 1);
        bits.bit(hasAttributes);
    }
};

TEST_F(KeptShapeTest, CommonTypesAreDrawnByTheirFields) {
    const AcDbObjectId style = addTextStyle("NOTE", "a.shx", "b.shx");
    const auto drawnOf = [&](std::uint16_t type, const Fill& fill) {
        const std::vector<std::string> whole = drawn(add(type, fill, {{5, style}}));
        // Fields that end too early draw what they would, or nothing.
        DwgBitWriter bits;
        fill(bits);
        for (std::size_t count = 0; count < bits.bitPosition(); ++count) {
            const auto cut = [&](DwgBitWriter& b) {
                fill(b);
                b.truncate(count);
            };
            EXPECT_THAT(drawn(add(type, cut, {{5, style}})), testing::AnyOf(IsEmpty(), whole));
        }
        return whole;
    };
    EXPECT_THAT(drawnOf(17,
                        [](DwgBitWriter& b) {
                            point(b, 10, 20);
                            b.bitDouble(5);
                            b.bit(true);
                            b.bit(true);
                            b.bitDouble(3 * kQuarter);
                            b.bitDouble(kQuarter);
                        }),
                ElementsAre("[256] arc 10,20 r 5 from 270 by 180"));
    EXPECT_THAT(drawnOf(27, [](DwgBitWriter& b) { point(b, 1, 2); }),
                ElementsAre("[256] polyline 1,2 1,2"));
    EXPECT_THAT(drawnOf(31,
                        [](DwgBitWriter& b) {
                            b.bit(true);
                            b.bitDouble(0);
                            for (const double d : {0.0, 0.0, 4.0, 0.0, 0.0, 3.0, 4.0, 3.0}) {
                                b.rawDouble(d);
                            }
                            b.bit(true);
                        }),
                ElementsAre("[256] polygon 0,0 4,0 4,3 0,3"));
    const auto ellipse = drawnOf(35, [](DwgBitWriter& b) {
        point(b, 10, 0);
        point(b, 4, 0);
        point(b, 0, 0, 1);
        b.bitDouble(0.5);
        b.bitDouble(0);
        b.bitDouble(2 * kQuarter);
    });
    ASSERT_THAT(ellipse, SizeIs(1));
    EXPECT_EQ(ellipse[0].substr(0, 20), "[256] polyline 14,0 ");
    EXPECT_EQ(ellipse[0].substr(ellipse[0].size() - 4), " 6,0");
    EXPECT_THAT(drawnOf(44,
                        [](DwgBitWriter& b) {
                            point(b, 100, 50);
                            point(b, 0, 0, 1);
                            point(b, 1, 0);
                            b.bitDouble(0);
                            b.bitDouble(3);
                            b.bitShort(1);
                            b.bitShort(1);
                            b.bitDouble(0);
                            b.bitDouble(0);
                            b.text("{\\fArial|b0;Line} one\\Ptwo");
                            b.bitShort(1);
                            b.bitDouble(1);
                            b.bit(false);
                        }),
                ElementsAre("[256] text Line one at 100,47 towards 0 h 3 w 1 a.shx,b.shx",
                            "text two at 100,42 towards 0 h 3 w 1 a.shx,b.shx"));
    EXPECT_THAT(drawnOf(17, [](DwgBitWriter& b) { b.bitDouble(1); }), IsEmpty())
        << "fields that end too early";
    EXPECT_THAT(drawnOf(38, [](DwgBitWriter& b) { b.bit(true); }), IsEmpty());
}

TEST_F(KeptShapeTest, PartsAreDrawnWithTheEntityThatTheyBelongTo) {
    const AcDbObjectId frame = addBlock("Frame");
    append(std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(9, 0, 0)), "Frame");
    add(
        3, [](DwgBitWriter& b) { attribute(b, 1, 1, "default", 0); }, {}, "Frame");
    add(
        3, [](DwgBitWriter& b) { attribute(b, 2, 2, "always", 2); }, {}, "Frame");
    AcDbKeptEntity* insert =
        add(7, [](DwgBitWriter& b) { reference(b, 100, 0, true); }, {{5, frame}});
    const AcDbObjectId shown =
        addPart(insert->objectId(), 2, [](DwgBitWriter& b) { attribute(b, 101, 1, "ZK1", 0); });
    const AcDbObjectId hidden =
        addPart(insert->objectId(), 2, [](DwgBitWriter& b) { attribute(b, 101, 2, "no", 1); });
    own(*insert, {shown, hidden}, addPart(insert->objectId(), 6, [](DwgBitWriter&) {}));

    const std::vector<std::string> picture = drawn(insert);
    EXPECT_THAT(picture, ElementsAre("[256] polyline 100,0 109,0",
                                     "text always at 102,2 towards 0 h 2.5 w 1 txt,",
                                     "text ZK1 at 101,1 towards 0 h 2.5 w 1 txt,"));
    EXPECT_THAT(drawn(entities(database_, "Frame")[1]),
                ElementsAre("[256] text TAG at 1,1 towards 0 h 2.5 w 1 txt,"));
    const std::string file = save();
    const auto copy = read();
    EXPECT_EQ(drawn(entities(*copy)[0]), picture);
    EXPECT_EQ(save(*copy, "again.dwg"), file);

    // As a template: the parts come along.
    AcDbDatabase target;
    AcDbObjectId block;
    ASSERT_EQ(target.insert(block, "TEMPLATE", copy.get()), Acad::eOk);
    EXPECT_EQ(drawn(entities(target, "TEMPLATE")[0]), picture);
    save(target, "target.dwg");
    EXPECT_EQ(drawn(entities(*read("target.dwg"), "TEMPLATE")[0]), picture);

    // Erased with the reference: nothing stays behind that belongs to nothing.
    AcDbEntity* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, entities(*copy)[0]->objectId(), AcDb::kForWrite), Acad::eOk);
    opened->erase();
    opened->close();
    save(*copy, "erased.dwg");
    const auto rest = read("erased.dwg");
    for (const AcDbStub& stub : rest->entries()) {
        EXPECT_FALSE(stub.object != nullptr && stub.object->isA() == AcDbKeptEntity::desc() &&
                     stub.object->ownerId().stub()->object == nullptr)
            << std::hex << stub.handle;
    }
}

TEST_F(KeptShapeTest, OlderPolylinesAndRowsOfReferencesAreDrawn) {
    AcDbKeptEntity* polyline = add(15, [](DwgBitWriter& b) {
        b.bitShort(1);  // closed
        b.bitShort(0);
        b.bitDouble(0);
        b.bitDouble(0);
        b.bit(true);
        b.bitDouble(7);
        b.bit(true);
    });
    std::vector<AcDbObjectId> vertices;
    for (const double x : {0.0, 4.0}) {
        vertices.push_back(addPart(polyline->objectId(), 10, [x](DwgBitWriter& b) {
            b.rawChar(0);
            point(b, x, 0);
            b.bitDouble(0);
            b.bitDouble(0);
            b.bitDouble(x == 0.0 ? 0.0 : 1.0);
            b.bitDouble(0);
        }));
    }
    own(*polyline, vertices, addPart(polyline->objectId(), 6, [](DwgBitWriter&) {}));
    const std::vector<std::string> picture = drawn(polyline);
    ASSERT_THAT(picture, SizeIs(2));
    EXPECT_EQ(picture[0], "[256] polyline 0,0,7 4,0,7");
    EXPECT_EQ(picture[1], "arc 2,0,7 r 2 from 0 by 180");

    const AcDbObjectId frame = addBlock("Frame");
    append(std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(1, 0, 0)), "Frame");
    const auto* rows = add(8,
                           [](DwgBitWriter& b) {
                               reference(b, 10, 0, false);
                               b.bitShort(2);
                               b.bitShort(1);
                               b.bitDouble(5);
                               b.bitDouble(0);
                           },
                           {{5, frame}});
    const std::vector<std::string> lines{"[256] polyline 10,0 11,0", "polyline 15,0 16,0"};
    EXPECT_EQ(drawn(const_cast<AcDbKeptEntity*>(rows)), lines);
    AcDbKeptEntity* loop = add(7, [](DwgBitWriter& b) { reference(b, 0, 0, true); }, {{5, frame}});
    own(*loop, {loop->objectId()}, loop->objectId());
    EXPECT_THAT(drawn(loop), ElementsAre("[256] polyline 0,0 1,0")) << "is not its own attribute";
    // A dimension is a picture in a block.
    EXPECT_THAT(drawn(add(21, [](DwgBitWriter&) {}, {{5, frame}})),
                ElementsAre("[256] polyline 0,0 1,0"));
}

TEST_F(KeptShapeTest, UnknownClassesAreDrawnByTheirProxyGraphicsAndStayWhereTheyAre) {
    AcGiProxyGraphicsRecorder recorder;
    recorder.subEntityTraits().setColor(3);
    const AcGePoint3d corners[] = {{0, 0, 0}, {4, 0, 0}, {4, 3, 0}};
    recorder.geometry().polyline(3, corners);
    recorder.geometry().circle({1, 2, 0}, 5, AcGeVector3d::kZAxis);
    recorder.subEntityTraits().setColor(1);
    recorder.geometry().polygon(3, corners);
    recorder.geometry().circularArc({0, 0, 0}, 2, kQuarter, kQuarter);
    AcGiTextStyle style;
    style.setTextSize(2.5);
    style.setFileName("a.shx");
    recorder.geometry().text({1, 1, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, "颗粒"_gbk, -1,
                             false, style);
    const std::vector<std::string> shapes{
        "[3] polyline 0,0 4,0 4,3", "circle 1,2 r 5", "[1] polygon 0,0 4,0 4,3",
        "arc 0,0 r 2 from 90 by 90",
        std::string("text ") + "颗粒"_gbk + " at 1,1 towards 90 h 2.5 w 1 a.shx,"};
    RecordingWorldDraw picture;
    const std::vector<std::uint8_t> stream = recorder.bytes();
    EXPECT_TRUE(PlayProxyGraphics(stream, picture));
    EXPECT_EQ(picture.lines(), shapes);
    // Cut anywhere, what is whole is drawn and nothing else.
    for (std::size_t size = 0; size < stream.size(); ++size) {
        RecordingWorldDraw part;
        PlayProxyGraphics(std::span(stream).first(size), part);
        ASSERT_LT(part.lines().size(), shapes.size());
        ASSERT_TRUE(std::equal(part.lines().begin(), part.lines().end(), shapes.begin())) << size;
    }

    AcDbKeptEntity* kept = add(17, [](DwgBitWriter& b) { point(b, 10, 20); });
    const std::string file = save();
    AcDbEntity* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, kept->objectId(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(opened->transformBy(AcGeMatrix3d::translation({1, 0, 0})), Acad::eNotApplicable);
    opened->close();
    EXPECT_EQ(save(), file);
}

TEST(MultilineText, CodesAreTakenOutAndLongLinesBroken) {
    using dwg::PlainLines;
    EXPECT_THAT(PlainLines(R"(a\Pb{\H2.5x;c}\~d\\\{)", 0), ElementsAre("a", R"(bc d\{)"));
    EXPECT_THAT(PlainLines(R"(\A1;{\S1^2;}\U+9897 \LX\l)", 0),
                ElementsAre(std::string("1/2") + "颗"_gbk + " X"));
    EXPECT_THAT(PlainLines("one two three", 5), ElementsAre("one two ", "three"));
    EXPECT_THAT(PlainLines("\xC4\x5CP", 0), SizeIs(1)) << "a trail byte is no backslash";
    EXPECT_THAT(PlainLines("粗砂细砂"_gbk, 2), ElementsAre("粗砂"_gbk, "细砂"_gbk));
    EXPECT_THAT(PlainLines(R"(\f)", 0), ElementsAre(""));
}

}  // namespace
