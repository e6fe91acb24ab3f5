#pragma once

#include "platform/db/AcDbEntity.h"
#include "platform/gi/TransformingWorldDraw.h"

/// The drawing context of a block's entities where the block is referred to.
class BlockWorldDraw : public TransformingWorldDraw {
public:
    /// Draws what is in `block` as `reference` shows it; null for parts that stand in none.
    BlockWorldDraw(AcGiWorldDraw& target, const AcGeMatrix3d& transform, AcDbObjectId block,
                   const AcDbEntity& reference);

    AcGiSubEntityTraits& subEntityTraits() const override { return traits_; }

    /// True when `target` already draws what is in the block, or blocks within blocks deeper than
    /// any sensible drawing has them.
    static bool isDrawing(const AcGiWorldDraw& target, AcDbObjectId block);
    /// Draws an entity of the block, unless it is erased or hidden.
    void draw(AcDbObjectId entity);

private:
    /// What "by block" or "by layer" stands for.
    struct Source {
        Adesk::UInt16 colorIndex = AcCmColor::kByLayer;
        AcDbObjectId linetype;
        Adesk::Int16 lineWeight = AcDb::kLnWtByLayer;
    };

    /// Traits as they mean at the reference what they mean in the block.
    class Traits : public AcGiSubEntityTraits {
    public:
        Traits(const AcGiWorldDraw& target, const AcDbEntity& reference, double lineTypeScale);
        void setColor(Adesk::UInt16 colorIndex) override;
        void setSelectionMarker(Adesk::Int32 marker) override {
            target_.setSelectionMarker(marker);
        }
        /// Also settles what "by layer" is from now on.
        void setLayer(const AcDbObjectId& layer) override;
        void setLineType(const AcDbObjectId& linetype) override;
        void setLineTypeScale(double scale) override;
        void setLineWeight(Adesk::Int16 lineWeight) override;

    private:
        AcGiSubEntityTraits& target_;
        Source reference_;
        AcDbObjectId referenceLayer_;
        double lineTypeScale_;
        Source layer_;
    };

    AcDbObjectId block_;
    mutable Traits traits_;
};
