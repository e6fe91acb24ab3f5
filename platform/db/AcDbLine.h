#pragma once

#include "platform/db/AcDbEntity.h"

/// A straight line between two points.
class AcDbLine : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : start_(start), end_(end) {}

    AcGePoint3d startPoint() const { return start_; }
    AcGePoint3d endPoint() const { return end_; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    double thickness() const { return thickness_; }
    AcGeVector3d normal() const { return normal_; }

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    /// With a spline the points are those of the spline, in its order.
    Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect type,
                                    AcGePoint3dArray& points, int thisMarker = 0,
                                    int otherMarker = 0) const override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    AcGePoint3d start_;
    AcGePoint3d end_;
    double thickness_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
};
