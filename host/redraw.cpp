#include "host/redraw.h"

#include "platform/db/AcDbEntity.h"
#include "platform/gi/AcGiWorldDraw.h"

namespace host {

namespace {
/// A drawing context of which nothing is seen.
class UnseenDraw : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    AcGiWorldGeometry& geometry() const override { return const_cast<UnseenDraw&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override { return const_cast<UnseenDraw&>(*this); }

private:
    Adesk::Boolean polyline(Adesk::UInt32 /*nbPoints*/, const AcGePoint3d* /*points*/) override {
        return true;
    }
    Adesk::Boolean polygon(Adesk::UInt32 /*nbPoints*/, const AcGePoint3d* /*points*/) override {
        return true;
    }
    Adesk::Boolean circle(const AcGePoint3d& /*center*/, double /*radius*/,
                          const AcGeVector3d& /*normal*/) override {
        return true;
    }
    Adesk::Boolean circularArc(const AcGePoint3d& /*center*/, double /*radius*/,
                               double /*startAngle*/, double /*sweepAngle*/) override {
        return true;
    }
    Adesk::Boolean wideLine(const AcGePoint3d& /*start*/, const AcGePoint3d& /*end*/,
                            double /*startWidth*/, double /*endWidth*/) override {
        return true;
    }
    Adesk::Boolean text(const AcGePoint3d& /*position*/, const AcGeVector3d& /*normal*/,
                        const AcGeVector3d& /*direction*/, const char* /*message*/,
                        Adesk::Int32 /*length*/, Adesk::Boolean /*raw*/,
                        const AcGiTextStyle& /*style*/) override {
        return true;
    }
    void setColor(Adesk::UInt16 /*colorIndex*/) override {}
    void setSelectionMarker(Adesk::Int32 /*marker*/) override {}
};
}  // namespace

void Redraw(AcDbEntity& entity) {
    UnseenDraw draw;
    entity.worldDraw(&draw);
}

}  // namespace host
