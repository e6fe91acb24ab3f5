#pragma once

#include "host/picture/DisplayList.h"
#include "host/picture/WideLineRun.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace picture {

class FontLibrary;

/// The drawing context that turns what entities tell of themselves into shapes of a display list.
class PictureDraw : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    /// Draws about `mostShapes` at most.
    PictureDraw(DisplayList& list, FontLibrary& fonts, double chordError, std::size_t mostShapes)
        : list_(list), mostShapes_(mostShapes), fonts_(fonts), chordError_(chordError) {}

    /// True when the list is full, or filling it has taken long enough.
    Adesk::Boolean regenAbort() const override;
    double deviation(AcGiDeviationType, const AcGePoint3d&) const override { return chordError_; }
    AcGiWorldGeometry& geometry() const override { return const_cast<PictureDraw&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override {
        return const_cast<PictureDraw&>(*this);
    }

    /// What "by layer" means from now on, and the weight of the lines in millimetres.
    void startEntity(int layerColor, float lineWeight);
    /// To be called after each entity.
    void endEntity() { endWideLine(); }

private:
    void setColor(Adesk::UInt16 colorIndex) override;
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

    void endWideLine();
    const std::vector<Point>& flat(Adesk::UInt32 count, const AcGePoint3d* points);

    DisplayList& list_;
    std::size_t mostShapes_;
    mutable std::size_t steps_ = 0;
    FontLibrary& fonts_;
    double chordError_;
    int layerColor_ = 7;
    int color_ = 7;
    float lineWeight_ = 0.0F;
    WideLineRun wideLine_;
    std::vector<Point> flat_;
};

}  // namespace picture
