#include "platform/dwg/kept_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbText.h"
#include "platform/db/BlockWorldDraw.h"
#include "platform/db/entity_drawing.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgCustomObjects.h"
#include "platform/dwg/DwgObjectReader.h"
#include "platform/dwg/codec/kept_fields.h"
#include "platform/dwg/multiline_text.h"

namespace {

constexpr std::uint16_t kTextType = 1;
constexpr std::uint16_t kBlockReferenceType = 7;

/// The values of an entity that is kept, in the codings that entities share.
class KeptBits : public DwgBitReader {
public:
    explicit KeptBits(const AcDbKeptEntity& entity)
        : DwgBitReader(entity.keptFields().bits.data(), 0, entity.keptFields().bitCount) {}

    AcGePoint3d point() {
        const double x = bitDouble();
        const double y = bitDouble();
        return {x, y, bitDouble()};
    }
    AcGeVector3d vector() { return point() - AcGePoint3d(); }
    AcGePoint3d rawPoint(double z) {
        const double x = rawDouble();
        return {x, rawDouble(), z};
    }
    void thickness() {
        if (!bit()) {
            bitDouble();
        }
    }
    AcGeVector3d extrusion() { return bit() ? AcGeVector3d::kZAxis : vector(); }
};

/// Reads the fields of an entity that is kept as those of a class that is understood, into an
/// entity of no drawing that draws in its place.
template <class T>
class StandIn {
public:
    StandIn(const AcDbKeptEntity& entity, const DwgCodec& codec) : bits(entity) {
        AcDbDatabase* const database = entity.database();
        if (database == nullptr) {
            return;
        }
        DwgBitWriter handles;
        for (const AcDbKeptReference& reference : entity.keptFields().references) {
            handles.handle(5, reference.id.handle());
        }
        const auto handleBytes = handles.view();
        DwgBitReader references(handleBytes.data(), 0, 8 * handleBytes.size());
        DwgReadState state;
        DwgObjectReader reader(bits, references, *database, state, entity.objectId().handle());
        made_ = codec.make();
        codec.read(reader, *made_);
        if (bits.failed()) {
            made_ = nullptr;
        } else {
            get()->copyProperties(entity);
        }
    }

    explicit operator bool() const { return made_ != nullptr; }
    T* get() const { return static_cast<T*>(made_.get()); }
    T* operator->() const { return get(); }

    KeptBits bits;  ///< what follows the fields of that class

private:
    std::unique_ptr<AcDbObject> made_;
};

AcDbObjectId referenceAt(const AcDbKeptEntity& entity, std::size_t index) {
    const auto& references = entity.keptFields().references;
    return index < references.size() ? references[index].id : AcDbObjectId::kNull;
}

/// The entities that belong to one: its references number `first` and the next name the first and
/// the last of them.
std::vector<AcDbKeptEntity*> partsOf(const AcDbKeptEntity& entity, std::size_t first) {
    std::vector<AcDbKeptEntity*> parts;
    const AcDbObjectId last = referenceAt(entity, first + 1);
    AcDbObjectId id = referenceAt(entity, first);
    const std::size_t most = entity.database() == nullptr ? 0 : entity.database()->entries().size();
    for (std::size_t steps = 0; steps < most; ++steps) {
        AcDbObject* const object = AcDbDatabase::objectOf(id);
        if (object == nullptr || object->isA() != AcDbKeptEntity::desc()) {
            break;
        }
        auto* const part = static_cast<AcDbKeptEntity*>(object);
        if (!id.isErased()) {
            parts.push_back(part);
        }
        if (id == last) {
            break;
        }
        id = DwgFields<AcDbKeptEntity>::links(*part).next;
    }
    return parts;
}

void drawPolyline(const AcGiWorldDraw& context, const std::vector<AcGePoint3d>& points) {
    if (!points.empty()) {
        context.geometry().polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
    }
}

bool drawArc(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    KeptBits bits(entity);
    const AcGePoint3d center = bits.point();
    const double radius = bits.bitDouble();
    bits.thickness();
    const AcGeVector3d normal = bits.extrusion();
    const double start = bits.bitDouble();
    double sweep = std::remainder(bits.bitDouble() - start, kTurn);
    if (bits.failed() || !std::isfinite(sweep)) {
        return false;
    }
    sweep = sweep > 0.0 ? sweep : sweep + kTurn;
    db::InPlane(context, normal, [&](AcGiWorldDraw& inPlane) {
        inPlane.geometry().circularArc(center, radius, start, sweep);
    });
    return true;
}

bool drawEllipse(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    constexpr double kMostChords = 2000.0;
    KeptBits bits(entity);
    const AcGePoint3d center = bits.point();
    const AcGeVector3d major = bits.vector();
    const AcGeVector3d normal = bits.vector();
    const AcGeVector3d minor = normal.normal().crossProduct(major) * bits.bitDouble();
    const double start = bits.bitDouble();
    double sweep = bits.bitDouble() - start;
    const double radius = major.length();
    if (bits.failed() || !std::isfinite(start) || !std::isfinite(sweep) || !(radius > 0.0)) {
        return false;
    }
    sweep = std::abs(sweep) < kTurn ? (sweep > 0.0 ? sweep : sweep + kTurn) : kTurn;
    const double error = std::min(context.deviation(kAcGiMaxDevForCurve, center), radius);
    const double step = 2.0 * std::acos(1.0 - error / radius);
    const int chords = static_cast<int>(std::clamp(std::ceil(sweep / step), 8.0, kMostChords));
    std::vector<AcGePoint3d> points;
    for (int i = 0; i <= chords; ++i) {
        const double angle = start + sweep * i / chords;
        points.push_back(center + major * std::cos(angle) + minor * std::sin(angle));
    }
    drawPolyline(context, points);
    return true;
}

/// A dot: a line without length.
bool drawPoint(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    KeptBits bits(entity);
    const AcGePoint3d place = bits.point();
    if (!bits.failed()) {
        drawPolyline(context, {place, place});
    }
    return !bits.failed();
}

/// The corners come in the order of the letter Z.
bool drawSolid(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    KeptBits bits(entity);
    bits.thickness();
    const double elevation = bits.bitDouble();
    AcGePoint3d corners[4];
    for (const int corner : {0, 1, 3, 2}) {
        corners[corner] = bits.rawPoint(elevation);
    }
    const AcGeVector3d normal = bits.extrusion();
    if (!bits.failed()) {
        db::InPlane(context, normal,
                    [&](AcGiWorldDraw& inPlane) { inPlane.geometry().polygon(4, corners); });
    }
    return !bits.failed();
}

bool drawFace(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    KeptBits bits(entity);
    bits.bit();  // no edge is invisible
    const bool level = bits.bit();
    AcGePoint3d corner = bits.rawPoint(0.0);
    corner.z = level ? 0.0 : bits.rawDouble();
    std::vector<AcGePoint3d> corners{corner};
    for (int i = 1; i < 4; ++i) {
        corner.x = bits.doubleWithDefault(corner.x);
        corner.y = bits.doubleWithDefault(corner.y);
        corner.z = bits.doubleWithDefault(corner.z);
        corners.push_back(corner);
    }
    corners.push_back(corners.front());
    if (!bits.failed()) {
        drawPolyline(context, corners);
    }
    return !bits.failed();
}

bool drawLeader(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    constexpr std::size_t kLeastPointBits = 6;
    KeptBits bits(entity);
    bits.bit();
    bits.bitShort();  // kind of annotation
    bits.bitShort();  // straight or a spline
    const std::int32_t count = bits.bitLong();
    if (count < 0 || static_cast<std::size_t>(count) > bits.remaining() / kLeastPointBits) {
        return false;
    }
    std::vector<AcGePoint3d> points;
    for (std::int32_t i = 0; i < count; ++i) {
        points.push_back(bits.point());
    }
    drawPolyline(context, points);
    return true;
}

/// A vertex of a polyline of the older kind; `flags` has 16 for a point of a spline's frame.
AcDbPolyline::Vertex vertexOf(const AcDbKeptEntity& part, unsigned& flags) {
    KeptBits bits(part);
    AcDbPolyline::Vertex vertex;
    flags = bits.rawChar();
    const AcGePoint3d place = bits.point();
    vertex.point = {place.x, place.y};
    vertex.startWidth = bits.bitDouble();
    vertex.endWidth = vertex.startWidth < 0.0 ? -vertex.startWidth : bits.bitDouble();
    vertex.startWidth = std::abs(vertex.startWidth);
    vertex.bulge = bits.bitDouble();
    return vertex;
}

bool drawPolyline2d(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    enum Flag : unsigned { kClosed = 1, kFrame = 16 };
    KeptBits bits(entity);
    const auto flags = static_cast<std::uint16_t>(bits.bitShort());
    bits.bitShort();   // kind of curve
    bits.bitDouble();  // usual widths, which every vertex repeats
    bits.bitDouble();
    bits.thickness();
    const double elevation = bits.bitDouble();
    const AcGeVector3d normal = bits.extrusion();
    if (bits.failed()) {
        return false;
    }
    AcDbPolyline polyline;
    for (const AcDbKeptEntity* part : partsOf(entity, 0)) {
        unsigned vertexFlags = 0;
        const AcDbPolyline::Vertex vertex = vertexOf(*part, vertexFlags);
        if ((vertexFlags & kFrame) == 0) {
            polyline.addVertexAt(polyline.numVerts(), vertex.point, vertex.bulge, vertex.startWidth,
                                 vertex.endWidth);
        }
    }
    polyline.setClosed((flags & kClosed) != 0);
    TransformingWorldDraw inPlane(context,
                                  AcGeMatrix3d::planeToWorld(normal) *
                                      AcGeMatrix3d::translation(AcGeVector3d(0.0, 0.0, elevation)));
    polyline.worldDraw(&inPlane);
    return true;
}

bool drawPolyline3d(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    enum Flag : unsigned { kClosed = 1, kFrame = 16 };
    KeptBits bits(entity);
    bits.rawChar();  // kind of curve
    const bool closed = (bits.rawChar() & kClosed) != 0;
    std::vector<AcGePoint3d> points;
    for (const AcDbKeptEntity* part : partsOf(entity, 0)) {
        KeptBits vertex(*part);
        const bool ofFrame = (vertex.rawChar() & kFrame) != 0;
        const AcGePoint3d place = vertex.point();
        if (!ofFrame && !vertex.failed()) {
            points.push_back(place);
        }
    }
    if (closed && !points.empty()) {
        points.push_back(points.front());
    }
    drawPolyline(context, points);
    return !bits.failed();
}

AcGiTextStyle fontsOf(AcDbObjectId id) {
    AcGiTextStyle style;
    const AcDbObject* const record = AcDbDatabase::objectOf(id);
    if (record != nullptr && record->isKindOf(AcDbTextStyleTableRecord::desc())) {
        const auto* const fonts = static_cast<const AcDbTextStyleTableRecord*>(record);
        style.setFileName(fonts->fileName());
        style.setBigFontFileName(fonts->bigFontFileName());
        style.setXScale(fonts->xScale());
        style.setObliquingAngle(fonts->obliquingAngle());
    }
    return style;
}

bool drawMultilineText(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    constexpr double kLineFeed = 5.0 / 3.0;  // of a line of spacing factor 1, in text heights
    KeptBits bits(entity);
    const AcGePoint3d place = bits.point();
    const AcGeVector3d normal = bits.vector();
    const AcGeVector3d along = bits.vector().normal();
    const double width = bits.bitDouble();
    const double height = bits.bitDouble();
    const int attachment = std::clamp<int>(bits.bitShort(), 1, 9) - 1;  // left to right, then down
    bits.bitShort();                                                    // drawing direction
    bits.bitDouble();                                                   // extents
    bits.bitDouble();
    std::string content;
    bits.text(content);
    bits.bitShort();  // whether lines may be further apart
    const double feed = kLineFeed * height * bits.bitDouble();
    if (bits.failed() || !(height > 0.0)) {
        return false;
    }
    AcGiTextStyle style = fontsOf(referenceAt(entity, 0));
    style.setTextSize(height);
    const double character = height * style.xScale();
    const std::vector<std::string> lines = dwg::PlainLines(content, width / character);
    const AcGeVector3d up = normal.crossProduct(along).normal();
    const double whole = height + feed * static_cast<double>(lines.size() - 1);
    double down = height - whole * (attachment / 3) / 2.0;  // to the first line's baseline
    for (const std::string& line : lines) {
        const double left = character * dwg::LineWidth(line) * (attachment % 3) / 2.0;
        context.geometry().text(place - along * left - up * down, normal, along, line.c_str(), -1,
                                false, style);
        down += feed;
    }
    return true;
}

/// Attributes show their values, definitions of attributes their tags; in a reference to their
/// block only those definitions show that are constant, with their values.
bool drawAttribute(const AcDbKeptEntity& entity, AcGiWorldDraw& context, bool isDefinition) {
    enum Flag : unsigned { kInvisible = 1, kConstant = 2 };
    enum Mode : Adesk::Int16 { kNoneShown = 0, kAllShown = 2 };
    StandIn<AcDbText> text(entity, *FindCodec(kTextType));
    if (!text) {
        return false;
    }
    std::string tag;
    text.bits.text(tag);
    text.bits.bitShort();  // field length
    const unsigned flags = text.bits.rawChar();
    if (text.bits.failed()) {
        return false;
    }
    const bool inReference = dynamic_cast<const BlockWorldDraw*>(&context) != nullptr;
    if (isDefinition && inReference && (flags & kConstant) == 0) {
        return true;
    }
    if (isDefinition && !inReference) {
        text->setTextString(tag.c_str());
    }
    const Adesk::Int16 mode = entity.database()->header().ATTMODE;
    const bool isHidden = (flags & kInvisible) != 0 && !isDefinition;
    if (mode == kAllShown || (mode != kNoneShown && !isHidden)) {
        text->worldDraw(&context);
    }
    return true;
}

/// A reference with attributes, or in rows and columns.
bool drawBlockReference(const AcDbKeptEntity& entity, AcGiWorldDraw& context, bool inRows) {
    constexpr int kMostReferences = 10000;
    StandIn<AcDbBlockReference> reference(entity, *FindCodec(kBlockReferenceType));
    if (!reference) {
        return false;
    }
    const int columns = inRows ? reference.bits.bitShort() : 1;
    const int rows = inRows ? reference.bits.bitShort() : 1;
    const double across = inRows ? reference.bits.bitDouble() : 0.0;
    const double upward = inRows ? reference.bits.bitDouble() : 0.0;
    if (reference.bits.failed() || columns < 1 || rows < 1 || columns * rows > kMostReferences) {
        return false;
    }
    const AcGePoint3d first = reference->position();
    const AcGeMatrix3d turned = AcGeMatrix3d::rotation(reference->rotation(), AcGeVector3d::kZAxis);
    for (int i = 0; i < columns * rows; ++i) {
        AcGeVector3d offset(across * (i % columns), upward * (i / columns), 0.0);
        reference->setPosition(first + offset.transformBy(turned));
        reference->worldDraw(&context);
    }
    for (AcDbKeptEntity* attribute : partsOf(entity, 1)) {
        const DwgReadAccess access(*attribute);
        attribute->worldDraw(&context);
    }
    return true;
}

/// A dimension is drawn by a block of its own, in the coordinates of the drawing.
bool drawDimension(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    for (const AcDbKeptReference& reference : entity.keptFields().references) {
        const AcDbObject* const object = AcDbDatabase::objectOf(reference.id);
        if (object != nullptr && object->isKindOf(AcDbBlockTableRecord::desc())) {
            AcDbBlockReference block({}, reference.id);
            block.copyProperties(entity);
            block.worldDraw(&context);
            return true;
        }
    }
    return false;
}

}  // namespace

bool DrawKeptShape(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    const std::uint16_t type = entity.keptClass().type;
    switch (type) {
        case 2:
        case 3:
            return drawAttribute(entity, context, type == 3);
        case 7:
        case 8:
            return drawBlockReference(entity, context, type == 8);
        case 15:
            return drawPolyline2d(entity, context);
        case 16:
            return drawPolyline3d(entity, context);
        case 17:
            return drawArc(entity, context);
        case 20:
        case 21:
        case 22:
        case 23:
        case 24:
        case 25:
        case 26:
            return drawDimension(entity, context);
        case 27:
            return drawPoint(entity, context);
        case 28:
            return drawFace(entity, context);
        case 31:
        case 32:
            return drawSolid(entity, context);
        case 35:
            return drawEllipse(entity, context);
        case 44:
            return drawMultilineText(entity, context);
        case 45:
            return drawLeader(entity, context);
        default:
            break;
    }
    // A class that is understood, but not in this coding.
    const DwgCodec* const codec = type == 0 ? nullptr : FindCodec(type);
    if (codec == nullptr || !codec->isEntity) {
        return false;
    }
    const StandIn<AcDbEntity> standIn(entity, *codec);
    return standIn && standIn->worldDraw(&context);
}
