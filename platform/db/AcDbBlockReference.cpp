#include "platform/db/AcDbBlockReference.h"

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/BlockWorldDraw.h"
#include "platform/db/PlanarTransform.h"

namespace {

AcRxObject* makeBlockReference() {
    return new AcDbBlockReference;
}

AcGeMatrix3d scalingOf(const AcGeScale3d& scale) {
    AcGeMatrix3d m;
    m.entry[0][0] = scale.sx;
    m.entry[1][1] = scale.sy;
    m.entry[2][2] = scale.sz;
    return m;
}

AcGeVector3d fromOrigin(const AcGePoint3d& point) {
    return point - AcGePoint3d();
}

const AcDbBlockTableRecord* blockOf(AcDbObjectId id) {
    const AcDbObject* const object = AcDbDatabase::objectOf(id);
    return object != nullptr && object->isKindOf(AcDbBlockTableRecord::desc())
               ? static_cast<const AcDbBlockTableRecord*>(object)
               : nullptr;
}

}  // namespace

ACRX_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, makeBlockReference);

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : block_(blockTableRecord), position_(position) {}

const AcDbBlockTableRecord* AcDbBlockReference::definition() const {
    return blockOf(block_);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block) {
    if (block.isNull()) {
        return Acad::eNullObjectId;
    }
    if (blockOf(block) == nullptr) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();
    block_ = block;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& position) {
    assertWriteEnabled();
    position_ = position;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double rotation) {
    assertWriteEnabled();
    rotation_ = rotation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
    assertWriteEnabled();
    scale_ = scale;
    return Acad::eOk;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    const AcDbBlockTableRecord* const block = definition();
    const AcGeVector3d origin = block != nullptr ? fromOrigin(block->origin()) : AcGeVector3d();
    return AcGeMatrix3d::planeToWorld(normal_) * AcGeMatrix3d::translation(fromOrigin(position_)) *
           AcGeMatrix3d::rotation(rotation_, AcGeVector3d::kZAxis) * scalingOf(scale_) *
           AcGeMatrix3d::translation(-origin);
}

Adesk::Boolean AcDbBlockReference::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    const AcDbBlockTableRecord* const block = definition();
    if (block == nullptr || BlockWorldDraw::isDrawing(*context, block_)) {
        return true;
    }
    BlockWorldDraw inBlock(*context, blockTransform(), block_, *this);
    for (const AcDbObjectId entity : block->entityIds()) {
        if (context->regenAbort()) {
            break;
        }
        inBlock.draw(entity);
    }
    return true;
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& transform) {
    const auto planar = PlanarTransform::of(transform, normal_);
    if (!planar) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();
    const double scale = planar->scale();
    position_ = planar->map(position_);
    rotation_ = planar->mapAngle(rotation_);
    scale_ = {scale_.sx * scale, scale_.sy * (planar->isMirrored() ? -scale : scale),
              scale_.sz * scale};
    normal_ = planar->normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::explode(AcDbVoidPtrArray& entitySet) const {
    assertReadEnabled();
    const AcDbBlockTableRecord* const block = definition();
    if (block == nullptr) {
        return Acad::eNotApplicable;
    }
    const AcGeMatrix3d transform = blockTransform();
    std::vector<std::unique_ptr<AcDbEntity>> copies;
    for (const AcDbObjectId id : block->entityIds()) {
        AcDbEntity* entity = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(entity, id, AcDb::kForRead);
        if (status == Acad::eWasErased) {
            continue;
        }
        if (status != Acad::eOk) {
            return status;
        }
        std::unique_ptr<AcDbObject> copy = entity->clone();
        entity->close();
        if (copy == nullptr) {
            return Acad::eNotApplicable;
        }
        copies.emplace_back(static_cast<AcDbEntity*>(copy.release()));
        if (copies.back()->transformBy(transform) != Acad::eOk) {
            return Acad::eNotApplicable;
        }
    }
    for (std::unique_ptr<AcDbEntity>& copy : copies) {
        entitySet.append(copy.release());
    }
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbBlockReference::clone() const {
    return std::make_unique<AcDbBlockReference>(*this);
}
