#pragma once

#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGePoint3d.h"

class AcDbBlockTableRecord;

/// An occurrence of a block definition. Appending one whose definition is null is refused with
/// eNullObjectId.
class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    AcDbObjectId blockTableRecord() const { return block_; }
    /// eNullObjectId, or eNotApplicable for what is no block definition.
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    AcGePoint3d position() const { return position_; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    double rotation() const { return rotation_; }
    Acad::ErrorStatus setRotation(double rotation);
    AcGeScale3d scaleFactors() const { return scale_; }
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// Map from the definition's coordinates (relative to its origin) to those of the reference.
    AcGeMatrix3d blockTransform() const;

    /// Draws the definition's entities through the block transform: those on layers that are off or
    /// frozen not, colours by block as the reference's own, colours by layer as the layer's, except
    /// on layer "0", which means the reference's. A definition that contains itself ends there.
    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    /// eNotApplicable for maps that do not scale the entity's plane evenly.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    /// Copies of the definition's entities where they are drawn, colours and layers as in the
    /// definition. eNotApplicable when an entity does not take the block transform, or has no copy.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    const AcDbBlockTableRecord* definition() const;

    AcDbObjectId block_;
    AcGePoint3d position_;
    AcGeScale3d scale_;
    double rotation_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
};
