#pragma once

#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbKeptObject.h"

/// An entity of a class that nothing here knows. What all entities have in common is read and may
/// be changed; its own fields are kept as they are.
///
/// Its body is in platform/dwg: what can be told of its shape stands in the bits of its file.
class AcDbKeptEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbKeptEntity);
    AcDbKeptEntity() = default;
    AcDbKeptEntity(AcDbKeptClass keptClass, AcDbKeptFields fields)
        : class_(std::move(keptClass)), fields_(std::move(fields)) {}

    const AcDbKeptClass& keptClass() const { return class_; }
    const AcDbKeptFields& keptFields() const { return fields_; }
    /// The proxy graphics that the file has for the entity; empty for none.
    const std::vector<std::uint8_t>& graphics() const { return graphics_; }

    /// Draws what the file tells of it: the common types of the format by their fields, others by
    /// their proxy graphics. What cannot be told is not drawn.
    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    /// eNotApplicable: the places are among the fields that are kept as they are.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    AcDbKeptClass class_;
    AcDbKeptFields fields_;
    std::vector<std::uint8_t> graphics_;
    /// Neighbours of an entity that stands in no block itself (an attribute, a vertex).
    AcDbObjectId previous_;
    AcDbObjectId next_;
};
