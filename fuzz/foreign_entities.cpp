#include "fuzz/foreign_entities.h"

#include <stdexcept>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbLine.h"
#include "platform/dwg/entity_types.h"
#include "platform/gi/AcGiProxyGraphicsRecorder.h"
#include "platform/win32/gbk_literal.h"
#include "src/entity/append_entity.h"
#include "tests/platform/dwg/KeptEntities.h"

namespace {

AcDbKeptEntity& Add(AcDbDatabase& drawing, std::uint16_t type, const kept::Fill& fill,
                    std::vector<AcDbKeptReference> references = {}) {
    const AcDbObjectId id = AppendOrDrop(&drawing, kept::Make(type, fill, std::move(references)));
    if (id.isNull()) {
        throw std::runtime_error("an entity cannot be appended");
    }
    return static_cast<AcDbKeptEntity&>(*AcDbDatabase::objectOf(id));
}

/// A block with a line and two definitions of attributes, one of them constant.
AcDbObjectId AddTitleBlock(AcDbDatabase& drawing) {
    AcDbBlockTable* blocks = nullptr;
    if (drawing.getSymbolTable(blocks, AcDb::kForWrite) != Acad::eOk) {
        throw std::runtime_error("a drawing has no blocks");
    }
    auto* const block = new AcDbBlockTableRecord;
    AcDbObjectId id;
    block->setName("TITLE");
    blocks->add(id, block);
    blocks->close();
    const auto append = [&](AcDbEntity* entity) {
        AcDbObjectId appended;
        block->appendAcDbEntity(appended, entity);
        entity->close();
    };
    append(new AcDbLine({}, {9, 0, 0}));
    for (const std::uint8_t constant : {0, 2}) {
        append(kept::Make(dwg::kAttributeDefinition, [=](DwgBitWriter& b) {
                   kept::Attribute(b, 1, 1, "ZK1", constant);
               }).release());
    }
    block->close();
    return id;
}

void DrawCurves(AcDbDatabase& drawing) {
    using kept::Point;
    Add(drawing, dwg::kArc, [](DwgBitWriter& b) { kept::Arc(b, 10, 20, 5, 4.5, 1.5); });
    Add(drawing, dwg::kEllipse, [](DwgBitWriter& b) { kept::Ellipse(b, 10, 0, 4); });
    Add(drawing, dwg::kPoint, [](DwgBitWriter& b) { Point(b, 1, 2); });
    Add(drawing, dwg::kSolid, [](DwgBitWriter& b) { kept::Solid(b, 4, 3); });
    Add(drawing, dwg::kFace, [](DwgBitWriter& b) {
        b.bit(true);
        b.bit(true);
        b.rawDouble(0.0);
        b.rawDouble(0.0);
        for (int coordinate = 0; coordinate < 9; ++coordinate) {
            b.doubleWithDefault(coordinate % 3 + 0.5, 0.0);
        }
    });
    Add(drawing, dwg::kLeader, [](DwgBitWriter& b) {
        b.bit(false);
        b.bitShort(0);
        b.bitShort(0);
        b.bitLong(3);
        for (const double x : {0.0, 5.0, 9.0}) {
            Point(b, x, 2 * x);
        }
    });
    AcDbKeptEntity& flat =
        Add(drawing, dwg::kPolyline2d, [](DwgBitWriter& b) { kept::Polyline(b, true); });
    AcDbKeptEntity& spatial = Add(drawing, dwg::kPolyline3d, [](DwgBitWriter& b) {
        b.rawChar(0);
        b.rawChar(1);
    });
    std::vector<AcDbObjectId> flatVertices;
    std::vector<AcDbObjectId> spatialVertices;
    for (const double x : {0.0, 4.0, 7.0}) {
        flatVertices.push_back(
            kept::AddPart(drawing, flat.objectId(), dwg::kVertex2d,
                          [=](DwgBitWriter& b) { kept::Vertex(b, x, 0, 0.5 * x); }));
        spatialVertices.push_back(
            kept::AddPart(drawing, spatial.objectId(), dwg::kVertex3d, [=](DwgBitWriter& b) {
                b.rawChar(0);
                Point(b, x, 1, x);
            }));
    }
    kept::Own(flat, flatVertices);
    kept::Own(spatial, spatialVertices);
}

void DrawTexts(AcDbDatabase& drawing) {
    const AcDbObjectId style = drawing.textstyle();
    for (const char* content :
         {"{\\fSimSun|b0;line} one\\Pt\\Swo^2; 0.075\\U+9897\\~~\\{\\C1;x\\}", "颗粒\\P分析"_gbk}) {
        Add(drawing, dwg::kMultilineText,
            [=](DwgBitWriter& b) { kept::MultilineText(b, 100, 50, content, 9); }, {{5, style}});
    }
    const AcDbObjectId title = AddTitleBlock(drawing);
    AcDbKeptEntity& reference =
        Add(drawing, dwg::kBlockReference,
            [](DwgBitWriter& b) { kept::Reference(b, 100, 0, true); }, {{5, title}});
    std::vector<AcDbObjectId> attributes;
    for (const std::uint8_t invisible : {0, 1}) {
        attributes.push_back(kept::AddPart(
            drawing, reference.objectId(), dwg::kAttribute,
            [=](DwgBitWriter& b) { kept::Attribute(b, 1, 1, "ZK1", invisible); }, {{5, style}}));
    }
    kept::Own(reference, attributes);
    Add(drawing, dwg::kBlockReferenceRows,
        [](DwgBitWriter& b) {
            kept::Reference(b, 10, 0, false);
            b.bitShort(2);
            b.bitShort(3);
            b.bitDouble(5);
            b.bitDouble(4);
        },
        {{5, title}});
    Add(drawing, dwg::kOrdinateDimension + 1, [](DwgBitWriter& b) { kept::Point(b, 1, 1); },
        {{5, style}, {5, title}});
}

/// A loop of every kind of edge and one of vertices, filled with two families of lines.
void DrawPatternedHatch(AcDbDatabase& drawing) {
    Add(drawing, dwg::kHatch, [](DwgBitWriter& b) {
        const auto rawPoint = [&b](double x, double y) {
            b.rawDouble(x);
            b.rawDouble(y);
        };
        const auto arcEnd = [&b] {
            b.bitDouble(0.0);
            b.bitDouble(3.0);
            b.bit(true);
        };
        b.bitDouble(0.0);
        kept::Point(b, 0, 0, 1);
        b.text("ANSI31");
        b.bit(false);
        b.bit(false);
        b.bitLong(2);  // loops
        b.bitLong(1);
        b.bitLong(4);  // edges
        b.rawChar(1);
        rawPoint(0, 0);
        rawPoint(10, 0);
        b.rawChar(2);
        rawPoint(10, 5);
        b.bitDouble(5.0);
        arcEnd();
        b.rawChar(3);
        rawPoint(5, 10);
        rawPoint(5, 0);
        b.bitDouble(0.5);
        arcEnd();
        b.rawChar(4);
        b.bitLong(1);
        b.bit(true);
        b.bit(false);
        b.bitLong(4);
        b.bitLong(2);
        for (const double knot : {0.0, 0.0, 1.0, 1.0}) {
            b.bitDouble(knot);
        }
        for (const double place : {10.0, 0.0}) {
            rawPoint(place / 2, place);
            b.bitDouble(1.0);
        }
        b.bitLong(0);
        b.bitLong(2 | 4);  // vertices, derived
        b.bit(true);
        b.bit(true);
        b.bitLong(3);
        for (const double x : {1.0, 3.0, 5.0}) {
            rawPoint(x, 3 - x / 2);
            b.bitDouble(0.2);
        }
        b.bitLong(0);
        b.bitShort(0);
        b.bitShort(1);
        b.bitDouble(0.5);
        b.bitDouble(2.0);
        b.bit(false);
        b.bitShort(2);  // families of lines
        for (const double angle : {0.5, 2.0}) {
            b.bitDouble(angle);
            for (const double value : {0.0, 0.0, 0.5, 1.5}) {
                b.bitDouble(value);
            }
            b.bitShort(3);
            for (const double dash : {1.0, -0.5, 0.0}) {
                b.bitDouble(dash);
            }
        }
        b.bitDouble(0.01);
        b.bitLong(1);
        rawPoint(2, 2);
    });
}

void DrawProxy(AcDbDatabase& drawing) {
    AcGiProxyGraphicsRecorder recorder;
    const AcGePoint3d corners[] = {{0, 0, 0}, {4, 0, 0}, {4, 3, 0}};
    recorder.subEntityTraits().setColor(3);
    recorder.geometry().polyline(3, corners);
    recorder.geometry().polygon(3, corners);
    recorder.geometry().circle({1, 2, 0}, 5, AcGeVector3d::kZAxis);
    recorder.geometry().circularArc({0, 0, 0}, 2, 0.5, 1.5);
    AcGiTextStyle style;
    style.setTextSize(2.5);
    style.setFileName("a.shx");
    recorder.geometry().text({1, 1, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, "颗粒"_gbk, -1,
                             false, style);
    AcDbFileClass other;
    other.appName = "OTHER";
    other.className = "OtherEntity";
    other.dxfName = "OTHER_ENTITY";
    other.isEntity = true;
    auto proxy = std::make_unique<AcDbKeptEntity>();
    DwgFields<AcDbKeptEntity>::set(*proxy,
                                   {0, std::make_shared<const AcDbFileClass>(other), "OtherEntity"},
                                   {}, recorder.bytes());
    AppendOrDrop(&drawing, std::move(proxy));
}

}  // namespace

void DrawForeignEntities(AcDbDatabase& drawing) {
    DrawCurves(drawing);
    DrawTexts(drawing);
    DrawPatternedHatch(drawing);
    DrawProxy(drawing);
}
