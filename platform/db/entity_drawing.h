#pragma once

#include <cmath>
#include <memory>

#include "platform/db/AcDbExtents.h"
#include "platform/gi/ExtentsWorldDraw.h"
#include "platform/gi/TransformingWorldDraw.h"
#include "platform/rx/Acad.h"

/// What the layer's own entities share when they draw and transform themselves.
namespace db {

/// Draws in the coordinates of a plane: `draw` is called with a context that maps them to the
/// world's, which is `context` itself for the level plane.
template <class Draw>
void InPlane(AcGiWorldDraw& context, const AcGeVector3d& normal, const Draw& draw) {
    if (normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0) {
        draw(context);
    } else {
        TransformingWorldDraw inPlane(context, AcGeMatrix3d::planeToWorld(normal));
        draw(static_cast<AcGiWorldDraw&>(inPlane));
    }
}

/// Replaces `extents` by what was measured. eDegenerateGeometry, and no change, for nothing.
inline Acad::ErrorStatus BoxOf(const ExtentsWorldDraw& measured, AcDbExtents& extents) {
    if (measured.isEmpty()) {
        return Acad::eDegenerateGeometry;
    }
    extents = AcDbExtents();
    extents.addPoint(measured.minPoint());
    extents.addPoint(measured.maxPoint());
    return Acad::eOk;
}

/// The arc of a polyline segment with a bulge other than 0.
struct BulgeArc {
    BulgeArc(const AcGePoint2d& start, const AcGePoint2d& end, double bulge)
        : sweep(4.0 * std::atan(bulge)) {
        const double dx = end.x - start.x;
        const double dy = end.y - start.y;
        const double offset = (1.0 - bulge * bulge) / (4.0 * bulge);
        center = {0.5 * (start.x + end.x) - dy * offset, 0.5 * (start.y + end.y) + dx * offset};
        radius = std::hypot(start.x - center.x, start.y - center.y);
        startAngle = std::atan2(start.y - center.y, start.x - center.x);
    }

    AcGePoint2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;  ///< negative for a clockwise arc
};

/// Tells an arc to a context, which takes counter-clockwise ones.
inline void DrawArc(const AcGiWorldDraw& context, const BulgeArc& arc, double z) {
    const double start = arc.sweep < 0.0 ? arc.startAngle + arc.sweep : arc.startAngle;
    context.geometry().circularArc({arc.center.x, arc.center.y, z}, arc.radius, start,
                                   std::abs(arc.sweep));
}

}  // namespace db
