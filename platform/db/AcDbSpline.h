#pragma once

#include <vector>

#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGeCubicSplineCurve3d.h"

/// A cubic through fit points, or, as other programs may have filed it, a spline by control points.
class AcDbSpline : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSpline);
    AcDbSpline() = default;
    /// Order 4 and tolerance 0: the curve of AcGeCubicSplineCurve3d through every point.
    explicit AcDbSpline(const AcGePoint3dArray& fitPoints, int order = 4,
                        double fitTolerance = 0.0);

    int numFitPoints() const { return static_cast<int>(fitPoints_.size()); }
    AcGePoint3d fitPointAt(int index) const { return fitPoints_[static_cast<std::size_t>(index)]; }
    int degree() const { return degree_; }
    int numControlPoints() const { return static_cast<int>(controlPoints_.size()); }
    AcGePoint3d controlPointAt(int index) const {
        return controlPoints_[static_cast<std::size_t>(index)];
    }

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    /// With a line: both as bounded curves, points in order along the spline. eDegenerateGeometry
    /// for fewer than two distinct fit points, eInvalidInput for coordinates that are not finite,
    /// eNotApplicable for other entities and for splines by control points.
    Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect type,
                                    AcGePoint3dArray& points, int thisMarker = 0,
                                    int otherMarker = 0) const override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    const AcGeCubicSplineCurve3d& curve() const;
    Acad::ErrorStatus checkCurve() const;

    int degree_ = 3;
    double fitTolerance_ = 0.0;
    AcGeVector3d startTangent_;
    AcGeVector3d endTangent_;
    std::vector<AcGePoint3d> fitPoints_;  ///< not empty: this is a spline through fit points
    bool rational_ = false;
    bool closed_ = false;
    bool periodic_ = false;
    double knotTolerance_ = 1e-9;
    double controlTolerance_ = 1e-10;
    std::vector<double> knots_;
    std::vector<AcGePoint3d> controlPoints_;
    std::vector<double> weights_;
    /// Of the fit points; made when first needed, since files bring the points only.
    mutable AcGeCubicSplineCurve3d curve_;
};
