#include "platform/db/BlockWorldDraw.h"

#include <string_view>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
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

BlockWorldDraw::Traits::Traits(AcGiSubEntityTraits& end, const Traits* outer,
                               const AcDbEntity& reference, double lineTypeScale)
    : end_(end),
      reference_{reference.colorIndex(), reference.linetypeId(), reference.lineWeight()},
      referenceLayer_(reference.layerId()),
      lineTypeScale_(lineTypeScale) {
    if (outer != nullptr) {
        reference_ = {outer->resolved(reference_.colorIndex), outer->resolved(reference_.linetype),
                      outer->resolved(reference_.lineWeight)};
        if (ownLayer(referenceLayer_) == nullptr) {
            referenceLayer_ = outer->referenceLayer_;
        }
        layer_ = zeroLayer_ = outer->layer_;
        lineTypeScale_ *= outer->lineTypeScale_;
    }
}

Adesk::UInt16 BlockWorldDraw::Traits::resolved(Adesk::UInt16 colorIndex) const {
    switch (colorIndex) {
        case AcCmColor::kByBlock:
            return reference_.colorIndex;
        case AcCmColor::kByLayer:
        case AcCmColor::kNone:
            return layer_.colorIndex;
        default:
            return colorIndex;
    }
}

AcDbObjectId BlockWorldDraw::Traits::resolved(AcDbObjectId linetype) const {
    const AcDbDatabase* const database = linetype.database();
    if (database == nullptr || linetype == database->byLayerLinetype()) {
        return layer_.linetype;
    }
    return linetype == database->byBlockLinetype() ? reference_.linetype : linetype;
}

Adesk::Int16 BlockWorldDraw::Traits::resolved(Adesk::Int16 lineWeight) const {
    switch (lineWeight) {
        case AcDb::kLnWtByBlock:
            return reference_.lineWeight;
        case AcDb::kLnWtByLayer:
            return layer_.lineWeight;
        default:
            return lineWeight;
    }
}

void BlockWorldDraw::Traits::setColor(Adesk::UInt16 colorIndex) {
    end_.setColor(resolved(colorIndex));
}

void BlockWorldDraw::Traits::setLayer(const AcDbObjectId& layer) {
    if (const AcDbLayerTableRecord* const own = ownLayer(layer)) {
        layer_ = {own->color().colorIndex(), own->linetypeObjectId(), own->lineWeight()};
        end_.setLayer(layer);
    } else {
        layer_ = zeroLayer_;
        end_.setLayer(referenceLayer_);
    }
}

void BlockWorldDraw::Traits::setLineType(const AcDbObjectId& linetype) {
    end_.setLineType(resolved(linetype));
}

void BlockWorldDraw::Traits::setLineTypeScale(double scale) {
    end_.setLineTypeScale(scale * lineTypeScale_);
}

void BlockWorldDraw::Traits::setLineWeight(Adesk::Int16 lineWeight) {
    end_.setLineWeight(resolved(lineWeight));
}

BlockWorldDraw::BlockWorldDraw(AcGiWorldDraw& target, const AcGeMatrix3d& transform,
                               AcDbObjectId block, const AcDbEntity& reference)
    : BlockWorldDraw(target, blockOf(target), transform, block, reference) {}

BlockWorldDraw::BlockWorldDraw(AcGiWorldDraw& target, const BlockWorldDraw* outer,
                               const AcGeMatrix3d& transform, AcDbObjectId block,
                               const AcDbEntity& reference)
    : TransformingWorldDraw(target, transform),
      outer_(outer),
      block_(block),
      traits_(end().subEntityTraits(), outer != nullptr ? &outer->traits_ : nullptr, reference,
              AcGeVector3d(1.0, 0.0, 0.0).transformBy(transform).length()) {}

const BlockWorldDraw* BlockWorldDraw::blockOf(const AcGiWorldDraw& context) {
    const auto* through = dynamic_cast<const TransformingWorldDraw*>(&context);
    while (through != nullptr) {
        if (const auto* const block = dynamic_cast<const BlockWorldDraw*>(through)) {
            return block;
        }
        through = dynamic_cast<const TransformingWorldDraw*>(&through->target());
    }
    return nullptr;
}

bool BlockWorldDraw::isDrawing(const AcGiWorldDraw& target, AcDbObjectId block) {
    constexpr int kDeepest = 50;
    int depth = 0;
    for (const BlockWorldDraw* in = blockOf(target); in != nullptr; in = in->outer_) {
        if (++depth > kDeepest || in->block_ == block) {
            return true;
        }
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
    if (layer != nullptr && layer->isFrozen()) {
        return;
    }
    entity->setTraits(traits_);
    entity->worldDraw(this);
}
