#include <algorithm>

#include "platform/db/AcDbHatch.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"

template <>
struct DwgFields<AcDbHatch> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& h) {
        constexpr unsigned kLeastLoopBits = 6;
        constexpr unsigned kSeedPointBits = 128;
        v(h.elevation_, h.normal_, h.patternName_, h.solid_, h.associative_);
        v.count(h.loops_, kLeastLoopBits);
        for (auto& loop : h.loops_) {
            loopFields(v, loop);
        }
        v(h.style_);
        v.code(h.patternType_, AcDbHatch::kCustomDefined);
        if (!h.solid_) {
            patternFields(v, h);
        }
        const bool derived = std::any_of(h.loops_.begin(), h.loops_.end(), [](const Loop& loop) {
            return (loop.type & AcDbHatch::kDerived) != 0;
        });
        if (derived) {
            v(h.pixelSize_);
        }
        v.count(h.seedPoints_, kSeedPointBits);
        for (auto& point : h.seedPoints_) {
            v(point);
        }
    }

private:
    using Loop = AcDbHatch::Loop;
    enum EdgeType : std::uint8_t { kLine = 1, kCircularArc = 2, kEllipticArc = 3, kSpline = 4 };

    template <class Visitor, class AnyLoop>
    static void loopFields(Visitor& v, AnyLoop& loop) {
        constexpr unsigned kLeastVertexBits = 128;
        constexpr unsigned kLeastEdgeBits = 14;
        v(loop.type);
        if ((loop.type & AcDbHatch::kPolyline) != 0) {
            v(loop.verticesHaveBulges, loop.verticesClosed);
            v.count(loop.vertices, kLeastVertexBits);
            for (auto& vertex : loop.vertices) {
                v(vertex.point);
                if (loop.verticesHaveBulges) {
                    v(vertex.bulge);
                }
            }
        } else {
            v.count(loop.edges, kLeastEdgeBits);
            for (auto& edge : loop.edges) {
                edgeFields(v, edge);
            }
        }
        v.softPointerList(loop.boundaryIds);
    }

    template <class Visitor, class Edge>
    static void edgeFields(Visitor& v, Edge& edge) {
        auto type = static_cast<std::uint8_t>(edge.index() + 1);
        v(type);
        v.accept(type >= kLine && type <= kSpline);
        if constexpr (Visitor::kReads) {
            makeEdge(edge, type);
        }
        std::visit([&v](auto& e) { fieldsOf(v, e); }, edge);
    }

    static void makeEdge(AcDbHatch::Edge& edge, std::uint8_t type) {
        switch (type) {
            case kCircularArc:
                edge = AcDbHatch::CircularArcEdge{};
                break;
            case kEllipticArc:
                edge = AcDbHatch::EllipticArcEdge{};
                break;
            case kSpline:
                edge = AcDbHatch::SplineEdge{};
                break;
            default:
                edge = AcDbHatch::LineEdge{};
        }
    }

    template <class Visitor, class Edge>
    static void fieldsOf(Visitor& v, Edge& e) {
        using Type = DwgValue<Edge>;
        if constexpr (std::is_same_v<Type, AcDbHatch::LineEdge>) {
            v(e.start, e.end);
        } else if constexpr (std::is_same_v<Type, AcDbHatch::CircularArcEdge>) {
            v(e.center, e.radius, e.startAngle, e.endAngle, e.counterClockwise);
        } else if constexpr (std::is_same_v<Type, AcDbHatch::EllipticArcEdge>) {
            v(e.center, e.majorAxisEnd, e.axisRatio, e.startAngle, e.endAngle, e.counterClockwise);
        } else {
            splineFields(v, e);
        }
    }

    template <class Visitor, class Edge>
    static void splineFields(Visitor& v, Edge& e) {
        constexpr unsigned kLeastPointBits = 128;
        v(e.degree, e.rational, e.periodic);
        v.count(e.knots, 2);
        v.count(e.controlPoints, kLeastPointBits);
        for (auto& knot : e.knots) {
            v(knot);
        }
        if constexpr (Visitor::kReads) {
            e.weights.resize(e.rational ? e.controlPoints.size() : 0);
        }
        for (std::size_t i = 0; i < e.controlPoints.size(); ++i) {
            v(e.controlPoints[i]);
            if (e.rational) {
                v(e.weights[i]);
            }
        }
    }

    template <class Visitor, class Object>
    static void patternFields(Visitor& v, Object& h) {
        v(h.patternAngle_, h.patternScale_, h.patternDouble_);
        constexpr unsigned kLeastLineBits = 12;
        constexpr unsigned kLeastDashBits = 2;
        shortCount(v, h.patternLines_, kLeastLineBits);
        for (auto& line : h.patternLines_) {
            v(line.angle);
            v.bitPoint(line.base, line.offset);
            shortCount(v, line.dashes, kLeastDashBits);
            for (auto& dash : line.dashes) {
                v(dash);
            }
        }
    }

    template <class Visitor, class List>
    static void shortCount(Visitor& v, List& list, unsigned least) {
        auto number = static_cast<Adesk::Int16>(list.size());
        v(number);
        if constexpr (Visitor::kReads) {
            const bool fits =
                number >= 0 && static_cast<std::size_t>(number) * least <= v.data().remaining();
            v.accept(fits);
            list.resize(fits ? static_cast<std::size_t>(number) : 0);
        }
    }
};

void AddHatchCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbHatch>(78));
}
