#include "platform/db/AcDbHatch.h"

#include <algorithm>
#include <numbers>

#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/PlanarTransform.h"
#include "platform/db/entity_drawing.h"
#include "platform/db/hatch_outline.h"
#include "platform/win32/gbk_case.h"

namespace {

AcRxObject* makeHatch() {
    return new AcDbHatch;
}

/// Moves an edge into the image plane.
struct EdgeTransformer {
    const PlanarTransform& planar;
    double elevation;

    AcGePoint2d map(const AcGePoint2d& p) const { return planar.map(p, elevation); }
    /// Angles of an arc in the image plane; a clockwise arc counts them clockwise.
    void mapArc(double& start, double& end, bool& counterClockwise, double turn) const {
        counterClockwise = counterClockwise != planar.isMirrored();
        const double shift = counterClockwise ? turn : -turn;
        start += shift;
        end += shift;
    }

    void operator()(AcDbHatch::LineEdge& edge) const {
        edge.start = map(edge.start);
        edge.end = map(edge.end);
    }
    void operator()(AcDbHatch::CircularArcEdge& edge) const {
        edge.center = map(edge.center);
        edge.radius *= planar.scale();
        mapArc(edge.startAngle, edge.endAngle, edge.counterClockwise, planar.mapAngle(0.0));
    }
    void operator()(AcDbHatch::EllipticArcEdge& edge) const {
        const AcGePoint2d center = map(edge.center);
        const AcGePoint2d end =
            map({edge.center.x + edge.majorAxisEnd.x, edge.center.y + edge.majorAxisEnd.y});
        edge.center = center;
        edge.majorAxisEnd = {end.x - center.x, end.y - center.y};
        mapArc(edge.startAngle, edge.endAngle, edge.counterClockwise,
               0.0);  // counted from the axis
    }
    void operator()(AcDbHatch::SplineEdge& edge) const {
        for (AcGePoint2d& p : edge.controlPoints) {
            p = map(p);
        }
    }
};

/// The vector's image: the map without its offset.
AcGePoint2d mapOffset(const PlanarTransform& planar, const AcGePoint2d& v) {
    const AcGePoint2d from = planar.map({}, 0.0);
    const AcGePoint2d to = planar.map(v, 0.0);
    return {to.x - from.x, to.y - from.y};
}

}  // namespace

ACRX_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, makeHatch);

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal) {
    if (!(normal.length() > 0.0)) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    normal_ = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setElevation(double elevation) {
    assertWriteEnabled();
    elevation_ = elevation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setAssociative(Adesk::Boolean associative) {
    assertWriteEnabled();
    associative_ = associative;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, const char* name) {
    if (name == nullptr || *name == '\0') {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    patternType_ = type;
    patternName_ = name;
    solid_ = win32::EqualNoCase(patternName_, "SOLID");
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::appendLoop(int loopType, const AcDbObjectIdArray& boundaryIds) {
    if (boundaryIds.isEmpty()) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    Loop loop;
    loop.type = loopType;
    loop.boundaryIds = boundaryIds;
    loops_.push_back(std::move(loop));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::evaluateHatch(Adesk::Boolean /*underestimate*/) {
    assertWriteEnabled();
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(normal_);
    for (Loop& loop : loops_) {
        std::vector<Edge> edges;
        for (const AcDbObjectId id : loop.boundaryIds) {
            AcDbCircle* circle = nullptr;
            if (acdbOpenObject(circle, id, AcDb::kForRead) != Acad::eOk) {
                return Acad::eNotApplicable;
            }
            const AcGePoint3d center = circle->center().transformBy(toPlane);
            edges.push_back(CircularArcEdge{
                {center.x, center.y}, circle->radius(), 0.0, 2.0 * std::numbers::pi, true});
            circle->close();
        }
        if (!edges.empty()) {
            loop.edges = std::move(edges);
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getAssocObjIds(AcDbObjectIdArray& ids) const {
    assertReadEnabled();
    if (associative_) {
        for (const Loop& loop : loops_) {
            ids.append(loop.boundaryIds);
        }
    }
    return Acad::eOk;
}

Adesk::Boolean AcDbHatch::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    startDrawing(*context);
    const std::vector<db::Outline> outlines = this->outlines();
    db::InPlane(*context, normal_, [&](AcGiWorldDraw& inPlane) {
        if (solid_) {
            drawSolid(inPlane, outlines);
        } else {
            drawPattern(inPlane, outlines);
        }
    });
    return true;
}

std::vector<db::Outline> AcDbHatch::outlines() const {
    std::vector<db::Outline> outlines;
    for (const Loop& loop : loops_) {
        outlines.push_back(db::OutlineOf(loop));
    }
    return outlines;
}

void AcDbHatch::drawSolid(const AcGiWorldDraw& context,
                          const std::vector<std::vector<AcGePoint2d>>& outlines) const {
    std::vector<AcGePoint3d> points;
    for (const AcGePoint2d& p : db::JoinOutlines(outlines)) {
        points.emplace_back(p.x, p.y, elevation_);
    }
    if (!points.empty()) {
        context.geometry().polygon(static_cast<Adesk::UInt32>(points.size()), points.data());
    }
}

void AcDbHatch::drawPattern(const AcGiWorldDraw& context,
                            const std::vector<std::vector<AcGePoint2d>>& outlines) const {
    if (database() != nullptr) {  // the pattern says where its lines are broken
        context.subEntityTraits().setLineType(database()->continuousLinetype());
    }
    for (const PatternLine& family : patternLines_) {
        for (const db::Stroke& stroke : db::StrokesWithin(family, outlines, context)) {
            if (context.regenAbort()) {
                return;
            }
            const AcGePoint3d ends[] = {{stroke.start.x, stroke.start.y, elevation_},
                                        {stroke.end.x, stroke.end.y, elevation_}};
            context.geometry().polyline(2, ends);
        }
    }
}

// A pattern lies within its outlines, and takes much longer than they to tell.
Acad::ErrorStatus AcDbHatch::getGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    ExtentsWorldDraw box;
    db::InPlane(box, normal_, [&](AcGiWorldDraw& inPlane) { drawSolid(inPlane, outlines()); });
    return db::BoxOf(box, extents);
}

bool AcDbHatch::isOfCirclesWithin(const AcDbExtents& box) const {
    const AcGePoint3d& low = box.minPoint();
    const AcGePoint3d& high = box.maxPoint();
    const auto isWithin = [&](const Edge& edge) {
        const auto* const arc = std::get_if<CircularArcEdge>(&edge);
        return arc != nullptr && arc->center.x - arc->radius >= low.x &&
               arc->center.x + arc->radius <= high.x && arc->center.y - arc->radius >= low.y &&
               arc->center.y + arc->radius <= high.y;
    };
    return normal_.isEqualTo(AcGeVector3d::kZAxis, 0.0) && elevation_ >= low.z &&
           elevation_ <= high.z && std::all_of(loops_.begin(), loops_.end(), [&](const Loop& loop) {
               return loop.vertices.empty() &&
                      std::all_of(loop.edges.begin(), loop.edges.end(), isWithin);
           });
}

Acad::ErrorStatus AcDbHatch::transformBy(const AcGeMatrix3d& transform) {
    const auto planar = PlanarTransform::of(transform, normal_);
    if (!planar) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();
    for (Loop& loop : loops_) {
        for (Edge& edge : loop.edges) {
            std::visit(EdgeTransformer{*planar, elevation_}, edge);
        }
        for (PolylineVertex& vertex : loop.vertices) {
            vertex.point = planar->map(vertex.point, elevation_);
            vertex.bulge = planar->isMirrored() ? -vertex.bulge : vertex.bulge;
        }
    }
    for (PatternLine& line : patternLines_) {
        line.angle = planar->mapAngle(line.angle);
        line.base = planar->map(line.base, elevation_);
        line.offset = mapOffset(*planar, line.offset);
        for (double& dash : line.dashes) {
            dash *= planar->scale();
        }
    }
    for (AcGePoint2d& seed : seedPoints_) {
        seed = planar->map(seed, elevation_);
    }
    patternAngle_ = planar->mapAngle(patternAngle_);
    patternScale_ *= planar->scale();
    elevation_ = planar->map(AcGePoint3d(0.0, 0.0, elevation_)).z;
    normal_ = planar->normal();
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbHatch::clone() const {
    return std::make_unique<AcDbHatch>(*this);
}
