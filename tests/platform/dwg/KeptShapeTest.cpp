// What is drawn of entities that are kept as their files have them.
#include <functional>
#include <numbers>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/codec/kept_fields.h"
#include "platform/dwg/entity_types.h"
#include "platform/dwg/kept_bits.h"
#include "platform/dwg/multiline_text.h"
#include "platform/gi/AcGiProxyGraphicsRecorder.h"
#include "platform/gi/ProxyGraphicsPlayer.h"
#include "platform/gi/ProxyGraphicsStream.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/dwg/DwgFixture.h"
#include "tests/platform/dwg/KeptEntities.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kQuarter = std::numbers::pi / 2.0;

class KeptShapeTest : public DwgFixture {
protected:
    AcDbKeptEntity* add(std::uint16_t type, const kept::Fill& fill,
                        std::vector<AcDbKeptReference> references = {},
                        const char* block = ACDB_MODEL_SPACE) {
        return append(kept::Make(type, fill, std::move(references)), block);
    }

    AcDbObjectId addPart(AcDbObjectId owner, std::uint16_t type, const kept::Fill& fill) {
        return kept::AddPart(database_, owner, type, fill);
    }
};

TEST_F(KeptShapeTest, CommonTypesAreDrawnByTheirFields) {
    const AcDbObjectId style = addTextStyle("NOTE", "a.shx", "b.shx");
    const auto drawnOf = [&](std::uint16_t type, const kept::Fill& fill) {
        std::vector<std::string> whole = drawn(add(type, fill, {{5, style}}));
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
    EXPECT_THAT(drawnOf(dwg::kArc,
                        [](DwgBitWriter& b) { kept::Arc(b, 10, 20, 5, 3 * kQuarter, kQuarter); }),
                ElementsAre("[256] arc 10,20 r 5 from 270 by 180"));
    EXPECT_THAT(drawnOf(dwg::kPoint, [](DwgBitWriter& b) { kept::Point(b, 1, 2); }),
                ElementsAre("[256] polyline 1,2 1,2"));
    EXPECT_THAT(drawnOf(dwg::kSolid, [](DwgBitWriter& b) { kept::Solid(b, 4, 3); }),
                ElementsAre("[256] polygon 0,0 4,0 4,3 0,3"));
    const auto ellipse =
        drawnOf(dwg::kEllipse, [](DwgBitWriter& b) { kept::Ellipse(b, 10, 0, 4); });
    ASSERT_THAT(ellipse, SizeIs(1));
    EXPECT_EQ(ellipse[0].substr(0, 20), "[256] polyline 14,0 ");
    EXPECT_EQ(ellipse[0].substr(ellipse[0].size() - 4), " 6,0");
    EXPECT_THAT(drawnOf(dwg::kMultilineText,
                        [](DwgBitWriter& b) {
                            kept::MultilineText(b, 100, 50, "{\\fArial|b0;Line} one\\Ptwo");
                        }),
                ElementsAre("[256] text Line one at 100,47 towards 0 h 3 w 1 a.shx,b.shx",
                            "text two at 100,42 towards 0 h 3 w 1 a.shx,b.shx"));
    EXPECT_THAT(drawnOf(dwg::kArc, [](DwgBitWriter& b) { b.bitDouble(1); }), IsEmpty())
        << "fields that end too early";
    EXPECT_THAT(drawnOf(38, [](DwgBitWriter& b) { b.bit(true); }), IsEmpty());
}

TEST_F(KeptShapeTest, PartsAreDrawnWithTheEntityThatTheyBelongTo) {
    const AcDbObjectId frame = addBlock("Frame");
    appendLine({}, {9, 0, 0}, "Frame");
    add(
        dwg::kAttributeDefinition, [](DwgBitWriter& b) { kept::Attribute(b, 1, 1, "default", 0); },
        {}, "Frame");
    add(
        dwg::kAttributeDefinition, [](DwgBitWriter& b) { kept::Attribute(b, 2, 2, "always", 2); },
        {}, "Frame");
    AcDbKeptEntity* insert =
        add(dwg::kBlockReference, [](DwgBitWriter& b) { kept::Reference(b, 100, 0, true); },
            {{5, frame}});
    const AcDbObjectId shown = addPart(insert->objectId(), dwg::kAttribute, [](DwgBitWriter& b) {
        kept::Attribute(b, 101, 1, "ZK1", 0);
    });
    const AcDbObjectId hidden = addPart(insert->objectId(), dwg::kAttribute, [](DwgBitWriter& b) {
        kept::Attribute(b, 101, 2, "no", 1);
    });
    kept::Own(*insert, {shown, hidden});

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

    Opened(shown)->setLayer(addLayer("values", 3));
    EXPECT_EQ(drawn(insert)[2].substr(0, 14), "[3] text ZK1 a") << "as its own layer has it";

    // As a template: the parts come along.
    AcDbDatabase target;
    AcDbObjectId block;
    ASSERT_EQ(target.insert(block, "TEMPLATE", copy.get()), Acad::eOk);
    EXPECT_EQ(drawn(entities(target, "TEMPLATE")[0]), picture);
    save(target, "target.dwg");
    EXPECT_EQ(drawn(entities(*read("target.dwg"), "TEMPLATE")[0]), picture);

    // Erased with the reference: nothing stays behind that belongs to nothing.
    Opened(entities(*copy)[0]->objectId())->erase();
    save(*copy, "erased.dwg");
    const auto rest = read("erased.dwg");
    for (const AcDbStub& stub : rest->entries()) {
        EXPECT_FALSE(stub.object != nullptr && stub.object->isA() == AcDbKeptEntity::desc() &&
                     stub.object->ownerId().stub()->object == nullptr)
            << std::hex << stub.handle;
    }
}

TEST_F(KeptShapeTest, OlderPolylinesAndRowsOfReferencesAreDrawn) {
    AcDbKeptEntity* polyline =
        add(dwg::kPolyline2d, [](DwgBitWriter& b) { kept::Polyline(b, true); });
    std::vector<AcDbObjectId> vertices;
    for (const double x : {0.0, 4.0}) {
        vertices.push_back(addPart(polyline->objectId(), dwg::kVertex2d, [x](DwgBitWriter& b) {
            kept::Vertex(b, x, 0, x == 0.0 ? 0.0 : 1.0);
        }));
    }
    kept::Own(*polyline, vertices);
    const std::vector<std::string> picture = drawn(polyline);
    ASSERT_THAT(picture, SizeIs(2));
    EXPECT_EQ(picture[0], "[256] polyline 0,0,7 4,0,7");
    EXPECT_EQ(picture[1], "arc 2,0,7 r 2 from 0 by 180");

    const AcDbObjectId frame = addBlock("Frame");
    appendLine({}, {1, 0, 0}, "Frame");
    const auto* rows = add(dwg::kBlockReferenceRows,
                           [](DwgBitWriter& b) {
                               kept::Reference(b, 10, 0, false);
                               b.bitShort(2);
                               b.bitShort(1);
                               b.bitDouble(5);
                               b.bitDouble(0);
                           },
                           {{5, frame}});
    const std::vector<std::string> lines{"[256] polyline 10,0 11,0", "polyline 15,0 16,0"};
    EXPECT_EQ(drawn(const_cast<AcDbKeptEntity*>(rows)), lines);
    AcDbKeptEntity* loop =
        add(dwg::kBlockReference, [](DwgBitWriter& b) { kept::Reference(b, 0, 0, true); },
            {{5, frame}});
    kept::Own(*loop, {loop->objectId()});
    EXPECT_THAT(drawn(loop), ElementsAre("[256] polyline 0,0 1,0")) << "is not its own attribute";
    // A dimension is a picture in a block.
    EXPECT_THAT(drawn(add(dwg::kOrdinateDimension, [](DwgBitWriter&) {}, {{5, frame}})),
                ElementsAre("[256] polyline 0,0 1,0"));
}

// What draws nothing may not do so for hours.
TEST_F(KeptShapeTest, MeshesWithoutPointsAndVerticesInCirclesComeToAnEnd) {
    for (const std::uint32_t rows : {0U, ~0U}) {
        ProxyGraphicsStream mesh;
        mesh.put(0.0);  // where a stream has its own head
        mesh.begin(ProxyGraphicsKind::kMesh);
        mesh.put(rows);
        mesh.put(~rows);
        RecordingWorldDraw picture;
        EXPECT_FALSE(PlayProxyGraphics(mesh.bytes(), picture));
    }
    AcDbKeptEntity* const polyline =
        add(dwg::kPolyline2d, [](DwgBitWriter& b) { kept::Polyline(b, false); });
    std::vector<AcDbObjectId> vertices(100);
    for (int x = 0; x < 100; ++x) {
        vertices[static_cast<std::size_t>(x)] =
            addPart(polyline->objectId(), dwg::kVertex2d,
                    [x](DwgBitWriter& b) { kept::Vertex(b, x, 0, 0); });
    }
    kept::Own(*polyline, vertices);
    auto& second = static_cast<AcDbKeptEntity&>(*AcDbDatabase::objectOf(vertices[1]));
    DwgFields<AcDbKeptEntity>::setLinks(second, {{}, vertices[0]});
    EXPECT_THAT(PartsOf(*polyline, 0), SizeIs(testing::Lt(6)));
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
    std::vector<std::string> shapes{"[3] polyline 0,0 4,0 4,3", "circle 1,2 r 5",
                                    "[1] polygon 0,0 4,0 4,3", "arc 0,0 r 2 from 90 by 90"};
    shapes.push_back(std::string("text ") + "颗粒"_gbk + " at 1,1 towards 90 h 2.5 w 1 a.shx,");
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

    AcDbKeptEntity* kept = add(dwg::kArc, [](DwgBitWriter& b) { kept::Point(b, 10, 20); });
    const std::string file = save();
    EXPECT_EQ(Opened(kept->objectId())->transformBy(AcGeMatrix3d::translation({1, 0, 0})),
              Acad::eNotApplicable);
    EXPECT_EQ(save(), file);
}

TEST(MultilineText, CodesAreTakenOutAndLongLinesBroken) {
    using dwg::PlainLines;
    EXPECT_THAT(PlainLines(R"(a\Pb{\H2.5x;c}\X1;\~d\\\{)", 0), ElementsAre("a", R"(bc d\{)"));
    EXPECT_THAT(PlainLines(R"(\A1;{\S1^2;}\U+9897 \LX\l)", 0),
                ElementsAre(std::string("1/2") + "颗"_gbk + " X"));
    EXPECT_THAT(PlainLines("one two three", 5), ElementsAre("one two ", "three"));
    EXPECT_THAT(PlainLines("\xC4\x5CP", 0), SizeIs(1)) << "a trail byte is no backslash";
    EXPECT_THAT(PlainLines("粗砂细砂"_gbk, 2), ElementsAre("粗砂"_gbk, "细砂"_gbk));
    EXPECT_THAT(PlainLines(R"(\f)", 0), ElementsAre(""));
}

}  // namespace
