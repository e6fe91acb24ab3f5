#include "platform/db/AcDbEntity.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/db/entity_drawing.h"
#include "platform/db/line_weight.h"

ACRX_DEFINE_MEMBERS(AcDbEntity, AcDbObject, nullptr);

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, Adesk::Boolean /*doSubents*/) {
    assertWriteEnabled();
    color_ = color;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index, Adesk::Boolean /*doSubents*/) {
    assertWriteEnabled();
    return color_.setColorIndex(index);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layer, Adesk::Boolean /*doSubents*/) {
    return setReference(layerId_, layer);
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId linetype, Adesk::Boolean /*doSubents*/) {
    return setReference(linetypeId_, linetype);
}

Acad::ErrorStatus AcDbEntity::setReference(AcDbObjectId& reference, AcDbObjectId id) {
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    if (database() != nullptr && id.database() != database()) {
        return Acad::eWrongDatabase;
    }
    assertWriteEnabled();
    reference = id;
    return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
    assertWriteEnabled();
    if (layerId_.isNull()) {
        layerId_ = database->clayer();
    }
    if (linetypeId_.isNull()) {
        linetypeId_ = database->byLayerLinetype();
    }
}

AcDbEntity::AcDbEntity(const AcDbEntity& other) : AcDbObject(other) {
    takeProperties(other);
}

void AcDbEntity::copyCommonData(const AcDbObject& other) {
    AcDbObject::copyCommonData(other);
    takeProperties(static_cast<const AcDbEntity&>(other));
}

void AcDbEntity::copyProperties(const AcDbEntity& source) {
    assertWriteEnabled();
    takeProperties(source);
}

void AcDbEntity::takeProperties(const AcDbEntity& source) {
    color_ = source.color_;
    layerId_ = source.layerId_;
    linetypeId_ = source.linetypeId_;
    linetypeScale_ = source.linetypeScale_;
    visibility_ = source.visibility_;
    lineWeight_ = source.lineWeight_;
}

AcDb::LineWeight AcDbEntity::lineWeight() const {
    return db::LineWeightOf(lineWeight_);
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, Adesk::Boolean /*doSubents*/) {
    const std::optional<std::uint8_t> code = db::CodeOf(weight);
    if (!code) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    lineWeight_ = *code;
    return Acad::eOk;
}

void AcDbEntity::setTraits(AcGiSubEntityTraits& traits) const {
    traits.setLayer(layerId_);
    traits.setColor(colorIndex());
    traits.setLineType(linetypeId_);
    traits.setLineTypeScale(linetypeScale_);
    traits.setLineWeight(lineWeight());
}

void AcDbEntity::startDrawing(const AcGiWorldDraw& context) const {
    if (!objectId().isNull()) {
        context.subEntityTraits().setColor(colorIndex());
    }
}

Adesk::Boolean AcDbEntity::worldDraw(AcGiWorldDraw* /*context*/) {
    return true;
}

void AcDbEntity::saveAs(AcGiWorldDraw* context, AcDb::SaveType /*type*/) {
    worldDraw(context);
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    ExtentsWorldDraw box;
    const_cast<AcDbEntity*>(this)->worldDraw(&box);  // drawing changes nothing that counts
    return db::BoxOf(box, extents);
}

Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray& /*gripPoints*/,
                                            AcDbIntArray& /*osnapModes*/,
                                            AcDbIntArray& /*geomIds*/) const {
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray& /*indices*/,
                                               const AcGeVector3d& /*offset*/) {
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& /*transform*/) {
    assertWriteEnabled();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray& /*entitySet*/) const {
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* /*entity*/, AcDb::Intersect /*type*/,
                                            AcGePoint3dArray& /*points*/, int /*thisMarker*/,
                                            int /*otherMarker*/) const {
    return Acad::eNotApplicable;
}
