#include "platform/gi/AcGiProxyGraphicsRecorder.h"

#include <optional>

#include "platform/gi/ExtentsWorldDraw.h"
#include "platform/gi/ProxyGraphicsStream.h"
#include "platform/gi/shape_outline.h"

/// Both sides of the recorder. A trait becomes a record only when a shape follows that needs it.
class AcGiProxyGraphicsRecorder::Stream : public AcGiWorldGeometry, public AcGiSubEntityTraits {
public:
    void setColor(Adesk::UInt16 colorIndex) override {
        constexpr Adesk::UInt16 kByLayer = 256;
        color_.wanted = colorIndex <= kByLayer ? colorIndex : kByLayer;
    }
    void setSelectionMarker(Adesk::Int32 marker) override {
        marker_.wanted = static_cast<std::uint32_t>(marker);
    }

    Adesk::Boolean polyline(Adesk::UInt32 nbPoints, const AcGePoint3d* points) override {
        return nbPoints == 0 || vertices(ProxyGraphicsKind::kPolyline, nbPoints, points);
    }
    Adesk::Boolean polygon(Adesk::UInt32 nbPoints, const AcGePoint3d* points) override {
        return nbPoints == 0 || vertices(ProxyGraphicsKind::kPolygon, nbPoints, points);
    }

    Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                          const AcGeVector3d& normal) override {
        begin(ProxyGraphicsKind::kCircle);
        records_.put(center);
        records_.put(radius);
        records_.put(normal);
        return extents_.geometry().circle(center, radius, normal);
    }

    Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, double startAngle,
                               double sweepAngle) override {
        constexpr std::uint32_t kOpenArc = 0;  // not a sector, not closed by its chord
        begin(ProxyGraphicsKind::kCircularArc);
        records_.put(center);
        records_.put(radius);
        records_.put(AcGeVector3d::kZAxis);
        records_.put(AcGeVector3d(std::cos(startAngle), std::sin(startAngle), 0.0));
        records_.put(sweepAngle);
        records_.put(kOpenArc);
        return extents_.geometry().circularArc(center, radius, startAngle, sweepAngle);
    }

    Adesk::Boolean wideLine(const AcGePoint3d& start, const AcGePoint3d& end, double startWidth,
                            double endWidth) override {
        const auto corners = gi::WideLineCorners(start, end, startWidth, endWidth);
        return polygon(corners.size(), corners.data());
    }

    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                        const AcGeVector3d& direction, const char* message, Adesk::Int32 length,
                        Adesk::Boolean raw, const AcGiTextStyle& style) override {
        constexpr std::uint32_t kWholeText = 0xFFFFFFFFU;
        const std::string_view drawn = gi::TextPart(message, length);
        if (drawn.empty()) {
            return true;
        }
        begin(ProxyGraphicsKind::kText2);
        records_.put(position);
        records_.put(normal);
        records_.put(direction);
        records_.put(drawn);
        records_.put(kWholeText);
        records_.put(std::uint32_t{raw});
        for (const double value :
             {style.textSize(), style.xScale(), style.obliquingAngle(), style.trackingPercent()}) {
            records_.put(value);
        }
        // backward, upside down, vertical, underlined, overlined
        for (int flag = 0; flag < 5; ++flag) {
            records_.put(std::uint32_t{0});
        }
        records_.put(std::string_view(style.fileName()));
        records_.put(std::string_view(style.bigFontFileName()));
        return extents_.geometry().text(position, normal, direction, message, length, raw, style);
    }

    std::vector<std::uint8_t> bytes() const {
        if (records_.count() == 0) {
            return {};
        }
        constexpr std::size_t kHeaderBytes = 8;
        ProxyGraphicsStream box;
        box.begin(ProxyGraphicsKind::kExtents);
        box.put(extents_.minPoint());
        box.put(extents_.maxPoint());
        const std::size_t size = kHeaderBytes + box.bytes().size() + records_.bytes().size();

        std::vector<std::uint8_t> all;
        all.reserve(size);
        for (const std::size_t value : {size, std::size_t{records_.count()} + 1}) {
            for (int i = 0; i < 4; ++i) {
                all.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
            }
        }
        all.insert(all.end(), box.bytes().begin(), box.bytes().end());
        all.insert(all.end(), records_.bytes().begin(), records_.bytes().end());
        return all;
    }

private:
    struct Trait {
        std::optional<std::uint32_t> wanted;
        std::optional<std::uint32_t> recorded;
    };

    void bringUpToDate(ProxyGraphicsKind kind, Trait& trait) {
        if (trait.wanted != trait.recorded) {
            records_.record(kind, *trait.wanted);
            trait.recorded = trait.wanted;
        }
    }

    void begin(ProxyGraphicsKind kind) {
        bringUpToDate(ProxyGraphicsKind::kColor, color_);
        bringUpToDate(ProxyGraphicsKind::kMarker, marker_);
        const bool fill = kind == ProxyGraphicsKind::kPolygon;
        if (fill || filling_) {  // some readers forget it after every shape: each polygon says it
            records_.record(ProxyGraphicsKind::kFill, fill ? 1 : 0);
        }
        filling_ = fill;
        records_.begin(kind);
    }

    bool vertices(ProxyGraphicsKind kind, Adesk::UInt32 nbPoints, const AcGePoint3d* points) {
        begin(kind);
        records_.put(nbPoints);
        for (Adesk::UInt32 i = 0; i < nbPoints; ++i) {
            records_.put(points[i]);
        }
        return extents_.geometry().polyline(nbPoints, points);
    }

    ProxyGraphicsStream records_;
    ExtentsWorldDraw extents_;
    Trait color_;
    Trait marker_;
    bool filling_ = false;
};

AcGiProxyGraphicsRecorder::AcGiProxyGraphicsRecorder() : stream_(std::make_unique<Stream>()) {}

AcGiProxyGraphicsRecorder::~AcGiProxyGraphicsRecorder() = default;

AcGiWorldGeometry& AcGiProxyGraphicsRecorder::geometry() const {
    return *stream_;
}

AcGiSubEntityTraits& AcGiProxyGraphicsRecorder::subEntityTraits() const {
    return *stream_;
}

std::vector<std::uint8_t> AcGiProxyGraphicsRecorder::bytes() const {
    return stream_->bytes();
}
