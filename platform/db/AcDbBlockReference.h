#pragma once

#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGeScale3d.h"

/// An occurrence of a block definition. Appending one whose definition is null is refused with
/// eNullObjectId.
class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    AcDbObjectId blockTableRecord() const { return block_; }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    AcGePoint3d position() const { return position_; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    double rotation() const { return rotation_; }
    Acad::ErrorStatus setRotation(double rotation);
    AcGeScale3d scaleFactors() const { return scale_; }
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// Map from the definition's coordinates (relative to its origin) to those of the reference.
    AcGeMatrix3d blockTransform() const;

    /// Draws the definition's entities through the block transform.
    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    AcDbObjectId block_;
    AcGePoint3d position_;
    AcGeScale3d scale_;
    double rotation_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
};
