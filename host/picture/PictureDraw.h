#pragma once

#include <map>

#include "host/picture/DisplayList.h"
#include "host/picture/LinePen.h"
#include "host/picture/WideLineRun.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace picture {

class FontLibrary;

/// The drawing context that turns what entities tell of themselves into shapes of a display list.
class PictureDraw : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    /// Draws about `mostShapes` at most. `lineTypeScale` is the drawing's own.
    PictureDraw(DisplayList& list, FontLibrary& fonts, double chordError, double lineTypeScale,
                std::size_t mostShapes)
        : list_(list),
          mostShapes_(mostShapes),
          fonts_(fonts),
          chordError_(chordError),
          lineTypeScale_(lineTypeScale),
          pen_(list, mostShapes) {}

    /// True when the list is full, or filling it has taken long enough.
    Adesk::Boolean regenAbort() const override;
    double deviation(AcGiDeviationType, const AcGePoint3d&) const override { return chordError_; }
    AcGiWorldGeometry& geometry() const override { return const_cast<PictureDraw&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override {
        return const_cast<PictureDraw&>(*this);
    }

    /// Draws an entity, unless it is hidden or its layer frozen, as an item of the list.
    void draw(AcDbEntity& entity);

private:
    /// What entities take from their layer.
    struct LayerLook {
        bool frozen = false;  ///< what is on it is not there at all
        bool off = false;     ///< it is there, but nothing of it on this layer is seen
        bool printed = true;
        int colorIndex = 7;
        Adesk::Int16 lineWeight = AcDb::kLnWtByLwDefault;
        AcDbObjectId linetype;
    };

    void setColor(Adesk::UInt16 colorIndex) override;
    void setLayer(const AcDbObjectId& layer) override;
    void setLineType(const AcDbObjectId& linetype) override;
    void setLineTypeScale(double scale) override;
    void setLineWeight(Adesk::Int16 lineWeight) override;
    void setSelectionMarker(Adesk::Int32) override {}

    Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) override;
    Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) override;
    Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                          const AcGeVector3d& normal) override;
    Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, double startAngle,
                               double sweepAngle) override;
    Adesk::Boolean wideLine(const AcGePoint3d& start, const AcGePoint3d& end, double startWidth,
                            double endWidth) override;
    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                        const AcGeVector3d& direction, const char* message, Adesk::Int32 length,
                        Adesk::Boolean raw, const AcGiTextStyle& style) override;

    const LayerLook& lookOf(AcDbObjectId layer);
    /// Null for a line type that is not broken.
    const LinePattern* patternOf(AcDbObjectId linetype);
    void endWideLine();
    const std::vector<Point>& flat(Adesk::UInt32 count, const AcGePoint3d* points);

    DisplayList& list_;
    std::size_t mostShapes_;
    mutable std::size_t steps_ = 0;
    FontLibrary& fonts_;
    double chordError_;
    double lineTypeScale_;
    std::map<AcDbHandle, LayerLook> layers_;
    std::map<AcDbHandle, LinePattern> patterns_;
    LayerLook byLayer_;
    LinePen pen_;
    WideLineRun wideLine_;
    std::vector<Point> flat_;
};

}  // namespace picture
