#pragma once

#include "platform/db/AcDbEntity.h"
#include "platform/gi/TransformingWorldDraw.h"

/// The drawing context of a block's entities where the block is referred to.
class BlockWorldDraw : public TransformingWorldDraw {
public:
    BlockWorldDraw(AcGiWorldDraw& target, const AcGeMatrix3d& transform, AcDbObjectId block,
                   Adesk::UInt16 referenceColor)
        : TransformingWorldDraw(target, transform),
          block_(block),
          traits_(target, referenceColor) {}

    AcGiSubEntityTraits& subEntityTraits() const override { return traits_; }

    /// True when `target` already draws what is in the block, or blocks within blocks deeper than
    /// any sensible drawing has them.
    static bool isDrawing(const AcGiWorldDraw& target, AcDbObjectId block);
    /// Draws an entity of the block, unless it is erased or hidden.
    void draw(AcDbObjectId entity);

private:
    /// Colours as they mean at the reference what they mean in the block.
    class Traits : public AcGiSubEntityTraits {
    public:
        Traits(const AcGiWorldDraw& target, Adesk::UInt16 referenceColor)
            : target_(target.subEntityTraits()), referenceColor_(referenceColor) {}
        void setColor(Adesk::UInt16 colorIndex) override;
        void setSelectionMarker(Adesk::Int32 marker) override {
            target_.setSelectionMarker(marker);
        }
        /// What "by layer" is for the entity that is drawn.
        void setLayerColor(Adesk::UInt16 colorIndex) { layerColor_ = colorIndex; }

    private:
        AcGiSubEntityTraits& target_;
        Adesk::UInt16 referenceColor_;
        Adesk::UInt16 layerColor_ = AcCmColor::kByLayer;
    };

    AcDbObjectId block_;
    mutable Traits traits_;
};
