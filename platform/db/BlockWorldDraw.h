#pragma once

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/gi/TransformingWorldDraw.h"

class AcDbEntity;

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
    /// Traits as they mean at the reference what they mean in the block, for the context behind all
    /// blocks.
    class Traits : public AcGiSubEntityTraits {
    public:
        /// `outer` are those of the block that the reference stands in; null for none.
        Traits(AcGiSubEntityTraits& end, const Traits* outer, const AcDbEntity& reference,
               double lineTypeScale);
        void setColor(Adesk::UInt16 colorIndex) override;
        void setSelectionMarker(Adesk::Int32 marker) override { end_.setSelectionMarker(marker); }
        /// Also settles what "by layer" is from now on.
        void setLayer(const AcDbObjectId& layer) override;
        void setLineType(const AcDbObjectId& linetype) override;
        void setLineTypeScale(double scale) override;
        void setLineWeight(Adesk::Int16 lineWeight) override;

    private:
        /// What "by block" or "by layer" stands for.
        struct Source {
            Adesk::UInt16 colorIndex = AcCmColor::kByLayer;
            AcDbObjectId linetype;
            Adesk::Int16 lineWeight = AcDb::kLnWtByLayer;
        };
        Adesk::UInt16 resolved(Adesk::UInt16 colorIndex) const;
        AcDbObjectId resolved(AcDbObjectId linetype) const;
        Adesk::Int16 resolved(Adesk::Int16 lineWeight) const;

        AcGiSubEntityTraits& end_;
        Source reference_;
        AcDbObjectId referenceLayer_;
        Source layer_;
        Source zeroLayer_;  ///< what layer "0" is in this block
        double lineTypeScale_;
    };

    BlockWorldDraw(AcGiWorldDraw& target, const BlockWorldDraw* outer,
                   const AcGeMatrix3d& transform, AcDbObjectId block, const AcDbEntity& reference);
    /// The block that a context draws; null for none.
    static const BlockWorldDraw* blockOf(const AcGiWorldDraw& context);

    const BlockWorldDraw* outer_;
    AcDbObjectId block_;
    mutable Traits traits_;
};
