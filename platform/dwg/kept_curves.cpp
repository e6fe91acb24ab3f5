// Arcs, ellipses, points, areas and polylines of the older kinds.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/db/AcDbPolyline.h"
#include "platform/db/entity_drawing.h"
#include "platform/dwg/entity_types.h"
#include "platform/dwg/kept_bits.h"
#include "platform/dwg/kept_shape.h"

namespace {

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
    std::vector<AcGePoint3d> points(static_cast<std::size_t>(count));
    std::generate(points.begin(), points.end(), [&] { return bits.point(); });
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

/// The vertices of a polyline of an older kind; none when the context has had enough.
std::vector<AcDbKeptEntity*> verticesOf(const AcDbKeptEntity& polyline,
                                        const AcGiWorldDraw& context) {
    constexpr std::size_t kVerticesOfStep = 16;
    std::vector<AcDbKeptEntity*> vertices = PartsOf(polyline, 0);
    if (!gi::MayTakeSteps(context, vertices.size() / kVerticesOfStep)) {
        vertices.clear();
    }
    return vertices;
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
    for (const AcDbKeptEntity* part : verticesOf(entity, context)) {
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
    for (const AcDbKeptEntity* part : verticesOf(entity, context)) {
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

}  // namespace

bool DrawKeptCurve(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    switch (entity.keptClass().type) {
        case dwg::kPolyline2d:
            return drawPolyline2d(entity, context);
        case dwg::kPolyline3d:
            return drawPolyline3d(entity, context);
        case dwg::kArc:
            return drawArc(entity, context);
        case dwg::kPoint:
            return drawPoint(entity, context);
        case dwg::kFace:
            return drawFace(entity, context);
        case dwg::kSolid:
        case dwg::kTrace:
            return drawSolid(entity, context);
        case dwg::kEllipse:
            return drawEllipse(entity, context);
        case dwg::kLeader:
            return drawLeader(entity, context);
        default:
            return false;
    }
}
