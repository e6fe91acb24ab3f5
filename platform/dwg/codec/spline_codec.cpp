#include "platform/db/AcDbSpline.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"

template <>
struct DwgFields<AcDbSpline> {
    enum Scenario : Adesk::Int32 { kControlPoints = 1, kFitPoints = 2 };

    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& s) {
        Adesk::Int32 scenario = s.fitPoints_.empty() ? kControlPoints : kFitPoints;
        v(scenario, s.degree_);
        v.accept(scenario == kControlPoints || scenario == kFitPoints);
        if (scenario == kFitPoints) {
            fitFields(v, s);
        } else {
            controlFields(v, s);
        }
    }

private:
    static constexpr unsigned kLeastPointBits = 6;

    template <class Visitor, class Object>
    static void fitFields(Visitor& v, Object& s) {
        v(s.fitTolerance_, s.startTangent_, s.endTangent_);
        v.count(s.fitPoints_, kLeastPointBits);
        for (auto& point : s.fitPoints_) {
            v(point);
        }
        v.accept(!s.fitPoints_.empty());
    }

    template <class Visitor, class Object>
    static void controlFields(Visitor& v, Object& s) {
        v(s.rational_, s.closed_, s.periodic_, s.knotTolerance_, s.controlTolerance_);
        v.count(s.knots_, 2);
        v.count(s.controlPoints_, kLeastPointBits);
        bool weighted = !s.weights_.empty();
        v(weighted);
        if constexpr (Visitor::kReads) {
            s.weights_.resize(weighted ? s.controlPoints_.size() : 0);
        }
        for (auto& knot : s.knots_) {
            v(knot);
        }
        for (std::size_t i = 0; i < s.controlPoints_.size(); ++i) {
            v(s.controlPoints_[i]);
            if (weighted) {
                v(s.weights_[i]);
            }
        }
        v.accept(!weighted || !s.controlPoints_.empty());
    }
};

void AddSplineCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbSpline>(36));
}
