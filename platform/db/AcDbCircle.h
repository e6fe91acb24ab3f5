#pragma once

#include "platform/db/AcDbEntity.h"

/// A circle.
class AcDbCircle : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

    AcGePoint3d center() const;
    double radius() const { return radius_; }
    AcGeVector3d normal() const { return normal_; }

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    /// eNotApplicable for maps that do not scale the entity's plane evenly.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    AcGePoint3d center_;  ///< in the coordinates of the circle's plane
    double radius_ = 0.0;
    double thickness_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
};
