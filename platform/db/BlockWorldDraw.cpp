#include "platform/db/BlockWorldDraw.h"

#include <string_view>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbLayerTable.h"

namespace {

/// The layer whose look the entities on it have; null for layer "0", whose entities look as the
/// reference does.
const AcDbLayerTableRecord* ownLayer(AcDbObjectId id) {
    const AcDbObject* const object = AcDbDatabase::objectOf(id);
    if (object == nullptr || !object->isKindOf(AcDbLayerTableRecord::desc())) {
        return nullptr;
    }
    const auto* const layer = static_cast<const AcDbLayerTableRecord*>(object);
    return std::string_view(layer->name()) == "0" ? nullptr : layer;
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

BlockWorldDraw::BlockWorldDraw(AcGiWorldDraw& target, const AcGeMatrix3d& transform,
                               AcDbObjectId block, const AcDbEntity& reference)
    : TransformingWorldDraw(target, transform),
      block_(block),
      traits_(target, reference, AcGeVector3d(1.0, 0.0, 0.0).transformBy(transform).length()) {}

BlockWorldDraw::Traits::Traits(const AcGiWorldDraw& target, const AcDbEntity& reference,
                               double lineTypeScale)
    : target_(target.subEntityTraits()),
      reference_{reference.colorIndex(), reference.linetypeId(), reference.lineWeight()},
      referenceLayer_(reference.layerId()),
      lineTypeScale_(lineTypeScale) {}

void BlockWorldDraw::Traits::setColor(Adesk::UInt16 colorIndex) {
    if (colorIndex == AcCmColor::kByBlock) {
        target_.setColor(reference_.colorIndex);
    } else if (colorIndex == AcCmColor::kByLayer || colorIndex == AcCmColor::kNone) {
        target_.setColor(layer_.colorIndex);
    } else {
        target_.setColor(colorIndex);
    }
}

void BlockWorldDraw::Traits::setLayer(const AcDbObjectId& layer) {
    if (const AcDbLayerTableRecord* const own = ownLayer(layer)) {
        layer_ = {own->color().colorIndex(), own->linetypeObjectId(), own->lineWeight()};
        target_.setLayer(layer);
    } else {
        layer_ = {};
        target_.setLayer(referenceLayer_);
    }
}

void BlockWorldDraw::Traits::setLineType(const AcDbObjectId& linetype) {
    const AcDbDatabase* const database = linetype.database();
    if (database == nullptr || linetype == database->byLayerLinetype()) {
        target_.setLineType(layer_.linetype);
    } else if (linetype == database->byBlockLinetype()) {
        target_.setLineType(reference_.linetype);
    } else {
        target_.setLineType(linetype);
    }
}

void BlockWorldDraw::Traits::setLineTypeScale(double scale) {
    target_.setLineTypeScale(scale * lineTypeScale_);
}

void BlockWorldDraw::Traits::setLineWeight(Adesk::Int16 lineWeight) {
    target_.setLineWeight(lineWeight == AcDb::kLnWtByBlock   ? reference_.lineWeight
                          : lineWeight == AcDb::kLnWtByLayer ? layer_.lineWeight
                                                             : lineWeight);
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
    const AcDbLayerTableRecord* const layer = ownLayer(entity->layerId());
    if (layer != nullptr && (layer->isOff() || layer->isFrozen())) {
        return;
    }
    entity->setTraits(traits_);
    entity->worldDraw(this);
}
