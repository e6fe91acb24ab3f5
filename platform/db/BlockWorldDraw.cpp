#include "platform/db/BlockWorldDraw.h"

#include <string_view>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbLayerTable.h"

namespace {

const AcDbLayerTableRecord* layerOf(const AcDbEntity& entity) {
    const AcDbObject* const object = AcDbDatabase::objectOf(entity.layerId());
    return object != nullptr && object->isKindOf(AcDbLayerTableRecord::desc())
               ? static_cast<const AcDbLayerTableRecord*>(object)
               : nullptr;
}

/// Opens an entity to draw it. One that somebody has open for write is drawn as it stands.
class DrawAccess {
public:
    explicit DrawAccess(AcDbObjectId id) {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(object, id, AcDb::kForRead);
        opened_ = status == Acad::eOk;
        if (status == Acad::eWasOpenForWrite) {
            object = AcDbDatabase::objectOf(id);
        }
        object_ = object;
    }
    ~DrawAccess() {
        if (opened_) {
            object_->close();
        }
    }
    DrawAccess(const DrawAccess&) = delete;
    DrawAccess& operator=(const DrawAccess&) = delete;

    /// Null when there is nothing to draw.
    AcDbEntity* entity() const {
        return object_ != nullptr && object_->isKindOf(AcDbEntity::desc())
                   ? static_cast<AcDbEntity*>(object_)
                   : nullptr;
    }

private:
    AcDbObject* object_ = nullptr;
    bool opened_ = false;
};

}  // namespace

void BlockWorldDraw::Traits::setColor(Adesk::UInt16 colorIndex) {
    if (colorIndex == AcCmColor::kByBlock) {
        target_.setColor(referenceColor_);
    } else if (colorIndex == AcCmColor::kByLayer || colorIndex == AcCmColor::kNone) {
        target_.setColor(layerColor_);
    } else {
        target_.setColor(colorIndex);
    }
}

bool BlockWorldDraw::isDrawing(const AcGiWorldDraw& target, AcDbObjectId block) {
    constexpr int kDeepest = 50;
    int depth = 0;
    const AcGiWorldDraw* context = &target;
    while (const auto* const through = dynamic_cast<const TransformingWorldDraw*>(context)) {
        const auto* const inBlock = dynamic_cast<const BlockWorldDraw*>(through);
        if (++depth > kDeepest || (inBlock != nullptr && inBlock->block_ == block)) {
            return true;
        }
        context = &through->target();
    }
    return false;
}

void BlockWorldDraw::draw(AcDbObjectId id) {
    const DrawAccess access(id);
    AcDbEntity* const entity = access.entity();
    if (entity == nullptr || entity->visibility() == AcDb::kInvisible) {
        return;
    }
    Adesk::UInt16 layerColor = AcCmColor::kByLayer;
    if (const AcDbLayerTableRecord* const layer = layerOf(*entity);
        layer != nullptr && std::string_view(layer->name()) != "0") {
        if (layer->isOff() || layer->isFrozen()) {
            return;
        }
        layerColor = layer->color().colorIndex();
    }
    traits_.setLayerColor(layerColor);
    traits_.setColor(entity->colorIndex());
    entity->worldDraw(this);
}
