#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/codec/kept_fields.h"
#include "platform/dwg/entity_types.h"

/// Entities of the format's own types as a file of another program has them: type number and bits.
namespace kept {

using Fill = std::function<void(DwgBitWriter&)>;

inline std::unique_ptr<AcDbKeptEntity> Make(std::uint16_t type, const Fill& fill,
                                            std::vector<AcDbKeptReference> references = {}) {
    DwgBitWriter bits;
    fill(bits);
    AcDbKeptFields fields;
    fields.bitCount = bits.bitPosition();
    fields.bits.assign(bits.view().begin(), bits.view().end());
    fields.references = std::move(references);
    return std::make_unique<AcDbKeptEntity>(AcDbKeptClass{type, nullptr, "kept"}, fields);
}

/// An entity that belongs to another; it stands in no block.
inline AcDbObjectId AddPart(AcDbDatabase& drawing, AcDbObjectId owner, std::uint16_t type,
                            const Fill& fill, std::vector<AcDbKeptReference> references = {}) {
    auto part = Make(type, fill, std::move(references));
    part->setDatabaseDefaults(&drawing);
    return drawing.addObject(std::move(part), owner);
}

/// Makes the parts the chain of an entity's parts, closed by an entity of its own.
inline void Own(AcDbKeptEntity& owner, const std::vector<AcDbObjectId>& parts) {
    using Fields = DwgFields<AcDbKeptEntity>;
    const AcDbObjectId end =
        AddPart(*owner.database(), owner.objectId(), dwg::kSequenceEnd, [](DwgBitWriter&) {});
    for (std::size_t i = 0; i < parts.size(); ++i) {
        auto& part = static_cast<AcDbKeptEntity&>(*AcDbDatabase::objectOf(parts[i]));
        Fields::setLinks(part, {i > 0 ? parts[i - 1] : AcDbObjectId::kNull,
                                i + 1 < parts.size() ? parts[i + 1] : AcDbObjectId::kNull});
    }
    auto& references = Fields::fields(owner).references;
    references.insert(references.end(), {{4, parts.front()}, {4, parts.back()}, {3, end}});
}

inline void Point(DwgBitWriter& bits, double x, double y, double z = 0.0) {
    bits.bitDouble(x);
    bits.bitDouble(y);
    bits.bitDouble(z);
}

/// Text, or the text of an attribute: left-aligned, level, 2.5 high.
inline void Text(DwgBitWriter& bits, double x, double y, const char* content) {
    bits.rawChar(0xFF);
    bits.rawDouble(x);
    bits.rawDouble(y);
    bits.bit(true);
    bits.bit(true);
    bits.rawDouble(2.5);
    bits.text(content);
}

inline void Attribute(DwgBitWriter& bits, double x, double y, const char* value,
                      std::uint8_t flags) {
    Text(bits, x, y, value);
    bits.text("TAG");
    bits.bitShort(0);
    bits.rawChar(flags);
}

/// A reference to a block: not scaled, not turned.
inline void Reference(DwgBitWriter& bits, double x, double y, bool hasAttributes) {
    Point(bits, x, y);
    bits.bits(3, 2);
    bits.bitDouble(0.0);
    Point(bits, 0, 0, 1);
    bits.bit(hasAttributes);
}

inline void Arc(DwgBitWriter& bits, double x, double y, double radius, double start, double end) {
    Point(bits, x, y);
    bits.bitDouble(radius);
    bits.bit(true);
    bits.bit(true);
    bits.bitDouble(start);
    bits.bitDouble(end);
}

/// Lines of text, 3 high, hanging from their upper left corner; broken at `width`, 0 for not.
inline void MultilineText(DwgBitWriter& bits, double x, double y, const char* content,
                          double width = 0.0) {
    Point(bits, x, y);
    Point(bits, 0, 0, 1);
    Point(bits, 1, 0);
    bits.bitDouble(width);
    bits.bitDouble(3);
    bits.bitShort(1);
    bits.bitShort(1);
    bits.bitDouble(0);
    bits.bitDouble(0);
    bits.text(content);
    bits.bitShort(1);
    bits.bitDouble(1);
    bits.bit(false);
}

/// Half an ellipse, twice as wide as high.
inline void Ellipse(DwgBitWriter& bits, double x, double y, double major) {
    constexpr double kHalfTurn = 3.14159265358979323846;
    Point(bits, x, y);
    Point(bits, major, 0);
    Point(bits, 0, 0, 1);
    bits.bitDouble(0.5);
    bits.bitDouble(0);
    bits.bitDouble(kHalfTurn);
}

/// A filled rectangle from the origin.
inline void Solid(DwgBitWriter& bits, double width, double height) {
    bits.bit(true);
    bits.bitDouble(0);
    for (const double d : {0.0, 0.0, width, 0.0, 0.0, height, width, height}) {
        bits.rawDouble(d);
    }
    bits.bit(true);
}

/// A polyline of the older kind, 7 above the ground; its vertices are parts.
inline void Polyline(DwgBitWriter& bits, bool closed) {
    bits.bitShort(closed ? 1 : 0);
    bits.bitShort(0);
    bits.bitDouble(0);
    bits.bitDouble(0);
    bits.bit(true);
    bits.bitDouble(7);
    bits.bit(true);
}

inline void Vertex(DwgBitWriter& bits, double x, double y, double bulge) {
    bits.rawChar(0);
    Point(bits, x, y);
    bits.bitDouble(0);
    bits.bitDouble(0);
    bits.bitDouble(bulge);
    bits.bitDouble(0);
}

}  // namespace kept
