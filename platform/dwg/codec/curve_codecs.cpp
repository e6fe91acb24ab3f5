// Lines, circles and polylines.
#include <algorithm>

#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"

template <>
struct DwgFields<AcDbLine> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& l) {
        bool flat = l.start_.z == 0.0 && l.end_.z == 0.0;
        v(flat);
        v.rawDouble(l.start_.x);
        v.doubleWithDefault(l.end_.x, l.start_.x);
        v.rawDouble(l.start_.y);
        v.doubleWithDefault(l.end_.y, l.start_.y);
        if (!flat) {
            v.rawDouble(l.start_.z);
            v.doubleWithDefault(l.end_.z, l.start_.z);
        }
        v.thickness(l.thickness_);
        v.normal(l.normal_);
    }
};

template <>
struct DwgFields<AcDbCircle> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& c) {
        v(c.center_, c.radius_);
        v.thickness(c.thickness_);
        v.normal(c.normal_);
    }
};

template <>
struct DwgFields<AcDbPolyline> {
    enum Flag : Adesk::Int16 {
        kNormal = 1,
        kThickness = 2,
        kConstantWidth = 4,
        kElevation = 8,
        kBulges = 16,
        kWidths = 32,
        kLinetypeGeneration = 256,
        kClosed = 512,
        kAll = 831
    };

    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& p) {
        Adesk::Int16 flags = flagsOf(p);
        v(flags);
        v.accept((flags & ~kAll) == 0);
        if constexpr (Visitor::kReads) {
            p.closed_ = (flags & kClosed) != 0;
            p.linetypeGeneration_ = (flags & kLinetypeGeneration) != 0;
        }
        if ((flags & kConstantWidth) != 0) {
            v(p.constantWidth_);
        }
        if ((flags & kElevation) != 0) {
            v(p.elevation_);
        }
        if ((flags & kThickness) != 0) {
            v(p.thickness_);
        }
        if ((flags & kNormal) != 0) {
            v(p.normal_);
        }
        constexpr unsigned kLeastPointBits = 4;
        v.count(p.vertices_, kLeastPointBits);
        const auto number = static_cast<Adesk::Int32>(p.vertices_.size());
        partNumber(v, flags & kBulges, number);
        partNumber(v, flags & kWidths, number);
        vertexFields(v, p, flags);
    }

private:
    // Bulges and widths are there for all vertices or for none.
    template <class Visitor>
    static void partNumber(Visitor& v, int present, Adesk::Int32 vertices) {
        if (present != 0) {
            Adesk::Int32 number = vertices;
            v(number);
            v.accept(number == vertices);
        }
    }

    template <class Visitor, class Object>
    static void vertexFields(Visitor& v, Object& p, Adesk::Int16 flags) {
        const AcDbPolyline::Vertex* previous = nullptr;
        for (auto& vertex : p.vertices_) {
            if (previous == nullptr) {
                v(vertex.point);
            } else {
                v.doubleWithDefault(vertex.point.x, previous->point.x);
                v.doubleWithDefault(vertex.point.y, previous->point.y);
            }
            previous = &vertex;
        }
        if ((flags & kBulges) != 0) {
            for (auto& vertex : p.vertices_) {
                v(vertex.bulge);
            }
        }
        if ((flags & kWidths) != 0) {
            for (auto& vertex : p.vertices_) {
                v(vertex.startWidth, vertex.endWidth);
            }
        }
    }

    static Adesk::Int16 flagsOf(const AcDbPolyline& p) {
        using Vertex = AcDbPolyline::Vertex;
        const auto any = [&](auto&& has) {
            return std::any_of(p.vertices_.begin(), p.vertices_.end(), has);
        };
        int flags = (p.closed_ ? kClosed : 0) | (p.linetypeGeneration_ ? kLinetypeGeneration : 0);
        flags |= p.constantWidth_ != 0.0 ? kConstantWidth : 0;
        flags |= p.elevation_ != 0.0 ? kElevation : 0;
        flags |= p.thickness_ != 0.0 ? kThickness : 0;
        flags |= p.normal_.isEqualTo(AcGeVector3d::kZAxis, 0.0) ? 0 : kNormal;
        flags |= any([](const Vertex& x) { return x.bulge != 0.0; }) ? kBulges : 0;
        flags |= any([](const Vertex& x) { return x.startWidth != 0.0 || x.endWidth != 0.0; })
                     ? kWidths
                     : 0;
        return static_cast<Adesk::Int16>(flags);
    }
};

void AddCurveCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbLine>(19));
    codecs.push_back(CodecOf<AcDbCircle>(18));
    codecs.push_back(CodecOf<AcDbPolyline>(77));
}
