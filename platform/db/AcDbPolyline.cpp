#include "platform/db/AcDbPolyline.h"

#include <algorithm>

#include "platform/db/AcDbLine.h"
#include "platform/db/PlanarTransform.h"
#include "platform/db/entity_drawing.h"
#include "platform/gi/shape_outline.h"

namespace {

AcRxObject* makePolyline() {
    return new AcDbPolyline;
}

/// Draws the segments of a polyline in its plane, thin straight ones in one run.
class SegmentDrawing {
public:
    SegmentDrawing(const AcGiWorldDraw& context, double elevation)
        : context_(context), elevation_(elevation) {}
    ~SegmentDrawing() { endRun(); }
    SegmentDrawing(const SegmentDrawing&) = delete;
    SegmentDrawing& operator=(const SegmentDrawing&) = delete;

    void draw(const AcDbPolyline::Vertex& from, const AcGePoint2d& to) {
        const bool wide = from.startWidth > 0.0 || from.endWidth > 0.0;
        if (from.bulge == 0.0 && !wide) {
            if (run_.empty()) {
                run_.push_back(raised(from.point));
            }
            run_.push_back(raised(to));
            return;
        }
        endRun();
        if (from.bulge == 0.0) {
            context_.geometry().wideLine(raised(from.point), raised(to), from.startWidth,
                                         from.endWidth);
        } else if (const db::BulgeArc arc(from.point, to, from.bulge); wide) {
            drawWideArc(arc, from.startWidth, from.endWidth);
        } else {
            db::DrawArc(context_, arc, elevation_);
        }
    }

private:
    AcGePoint3d raised(const AcGePoint2d& p) const { return {p.x, p.y, elevation_}; }

    void drawWideArc(const db::BulgeArc& arc, double startWidth, double endWidth) {
        const std::vector<AcGePoint3d> points =
            gi::ArcPoints(raised(arc.center), arc.radius, arc.startAngle, arc.sweep);
        const auto chords = static_cast<double>(points.size() - 1);
        const auto widthAt = [&](std::size_t i) {
            return startWidth + (endWidth - startWidth) * static_cast<double>(i) / chords;
        };
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            context_.geometry().wideLine(points[i], points[i + 1], widthAt(i), widthAt(i + 1));
        }
    }

    void endRun() {
        if (!run_.empty()) {
            context_.geometry().polyline(static_cast<Adesk::UInt32>(run_.size()), run_.data());
            run_.clear();
        }
    }

    const AcGiWorldDraw& context_;
    double elevation_;
    std::vector<AcGePoint3d> run_;
};

}  // namespace

ACRX_DEFINE_MEMBERS(AcDbPolyline, AcDbEntity, makePolyline);

bool operator==(const AcDbPolyline::Vertex& a, const AcDbPolyline::Vertex& b) {
    return a.point.x == b.point.x && a.point.y == b.point.y && a.bulge == b.bulge &&
           a.startWidth == b.startWidth && a.endWidth == b.endWidth;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth) {
    if (index > numVerts()) {
        return Acad::eInvalidIndex;
    }
    assertWriteEnabled();
    vertices_.insert(vertices_.begin() + index,
                     {point, bulge, std::max(startWidth, 0.0), std::max(endWidth, 0.0)});
    return Acad::eOk;
}

void AcDbPolyline::setClosed(Adesk::Boolean closed) {
    assertWriteEnabled();
    closed_ = closed;
}

std::size_t AcDbPolyline::segmentCount() const {
    return closed_ || vertices_.empty() ? vertices_.size() : vertices_.size() - 1;
}

Adesk::Boolean AcDbPolyline::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    startDrawing(*context);
    const std::size_t count = vertices_.size();
    db::InPlane(*context, normal_, [&](AcGiWorldDraw& inPlane) {
        SegmentDrawing drawing(inPlane, elevation_);
        for (std::size_t i = 0; i < segmentCount(); ++i) {
            Vertex from = vertices_[i];
            if (constantWidth_ > 0.0) {
                from.startWidth = from.endWidth = constantWidth_;
            }
            drawing.draw(from, vertices_[(i + 1) % count].point);
        }
    });
    return true;
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& transform) {
    const auto planar = PlanarTransform::of(transform, normal_);
    if (!planar) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();
    const double scale = planar->scale();
    for (Vertex& vertex : vertices_) {
        vertex = {planar->map(vertex.point, elevation_),
                  planar->isMirrored() ? -vertex.bulge : vertex.bulge, vertex.startWidth * scale,
                  vertex.endWidth * scale};
    }
    constantWidth_ *= scale;
    thickness_ *= scale;
    elevation_ = planar->map(AcGePoint3d(0.0, 0.0, elevation_)).z;
    normal_ = planar->normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::explode(AcDbVoidPtrArray& entitySet) const {
    assertReadEnabled();
    const auto bulges = [](const Vertex& vertex) { return vertex.bulge != 0.0; };
    const auto lastStart = vertices_.begin() + static_cast<std::ptrdiff_t>(segmentCount());
    if (segmentCount() == 0 || std::any_of(vertices_.begin(), lastStart, bulges)) {
        return Acad::eNotApplicable;
    }
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(normal_);
    const auto place = [&](std::size_t i) {
        const AcGePoint2d& p = vertices_[i % vertices_.size()].point;
        return AcGePoint3d(p.x, p.y, elevation_).transformBy(toWorld);
    };
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        auto line = std::make_unique<AcDbLine>(place(i), place(i + 1));
        line->copyProperties(*this);
        entitySet.append(static_cast<AcDbEntity*>(line.release()));
    }
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbPolyline::clone() const {
    return std::make_unique<AcDbPolyline>(*this);
}
