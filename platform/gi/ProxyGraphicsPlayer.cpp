#include "platform/gi/ProxyGraphicsPlayer.h"

#include <cmath>
#include <memory>
#include <numbers>

#include "platform/gi/ProxyGraphicsRecord.h"
#include "platform/gi/ProxyGraphicsStream.h"
#include "platform/gi/TransformingWorldDraw.h"
#include "platform/win32/code_page.h"

namespace {

/// Draws records one after the other; traits and transforms last from one to the next.
class Player {
public:
    explicit Player(AcGiWorldDraw& context) : context_(context) {}

    bool hasDrawn() const { return hasDrawn_; }

    void play(ProxyGraphicsKind kind, ProxyGraphicsRecord record) {
        switch (kind) {
            case ProxyGraphicsKind::kCircle:
                return circle(record);
            case ProxyGraphicsKind::kCircleThrough3:
            case ProxyGraphicsKind::kArcThrough3:
                return through3(record, kind == ProxyGraphicsKind::kCircleThrough3);
            case ProxyGraphicsKind::kCircularArc:
                return circularArc(record);
            case ProxyGraphicsKind::kPolyline:
            case ProxyGraphicsKind::kPolylineWithNormal:
                return polyline(record.points());
            case ProxyGraphicsKind::kPolygon:
                return polygon(record.points(), fill_);
            case ProxyGraphicsKind::kMesh:
                return mesh(record);
            case ProxyGraphicsKind::kShell:
                return shell(record);
            case ProxyGraphicsKind::kText:
            case ProxyGraphicsKind::kUnicodeText:
                return text(record, kind == ProxyGraphicsKind::kUnicodeText);
            case ProxyGraphicsKind::kText2:
            case ProxyGraphicsKind::kUnicodeText2:
                return text2(record, kind == ProxyGraphicsKind::kUnicodeText2);
            default:
                return setTrait(kind, record);
        }
    }

private:
    void setTrait(ProxyGraphicsKind kind, ProxyGraphicsRecord& record) {
        switch (kind) {
            case ProxyGraphicsKind::kColor:
                return setColor(record.number());
            case ProxyGraphicsKind::kTrueColor:
                return setTrueColor(record.number());
            case ProxyGraphicsKind::kMarker:
                context_.subEntityTraits().setSelectionMarker(
                    static_cast<Adesk::Int32>(record.number()));
                return;
            case ProxyGraphicsKind::kFill:
                fill_ = record.number() != 0;
                return;
            case ProxyGraphicsKind::kPushMatrix:
            case ProxyGraphicsKind::kPushMatrix2:
                return pushMatrix(record);
            case ProxyGraphicsKind::kPopMatrix:
                if (!transforms_.empty()) {
                    transforms_.pop_back();
                }
                return;
            default:
                return;
        }
    }

    void setColor(std::uint32_t index) {
        constexpr std::uint32_t kByLayer = 256;
        context_.subEntityTraits().setColor(
            static_cast<Adesk::UInt16>(index <= kByLayer ? index : kByLayer));
    }

    // The highest byte says what the others are.
    void setTrueColor(std::uint32_t value) {
        enum Method : std::uint8_t { kByBlock = 0xC1, kIndex = 0xC3 };
        const std::uint32_t method = value >> 24U;
        setColor(method == kIndex ? value & 0xFFU : method == kByBlock ? 0 : 256);
    }

    void pushMatrix(ProxyGraphicsRecord& record) {
        constexpr std::size_t kMost = 64;
        AcGeMatrix3d transform;
        for (auto& row : transform.entry) {
            for (double& value : row) {
                value = record.real();
            }
        }
        if (!record.failed() && transforms_.size() < kMost) {
            transforms_.push_back(std::make_unique<TransformingWorldDraw>(context(), transform));
        }
    }

    AcGiWorldDraw& context() { return transforms_.empty() ? context_ : *transforms_.back(); }
    AcGiWorldGeometry& geometry() {
        hasDrawn_ = true;
        return context().geometry();
    }

    void polyline(const std::vector<AcGePoint3d>& points) {
        if (!points.empty()) {
            geometry().polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
        }
    }

    void polygon(std::vector<AcGePoint3d> points, bool filled) {
        if (points.empty()) {
            return;
        }
        if (filled) {
            geometry().polygon(static_cast<Adesk::UInt32>(points.size()), points.data());
        } else {
            points.push_back(points.front());
            polyline(points);
        }
    }

    void circle(ProxyGraphicsRecord& record) {
        const AcGePoint3d center = record.point();
        const double radius = record.real();
        const AcGeVector3d normal = record.vector();
        if (!record.failed()) {
            geometry().circle(center, radius, normal);
        }
    }

    void circularArc(ProxyGraphicsRecord& record) {
        const AcGePoint3d center = record.point();
        const double radius = record.real();
        const AcGeVector3d normal = record.vector();
        const AcGeVector3d start = record.vector();
        const double sweep = record.real();
        if (!record.failed()) {
            arc(center, radius, normal, start, sweep);
        }
    }

    void arc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
             AcGeVector3d start, double sweep) {
        const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(normal);
        const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(normal);
        AcGePoint3d inPlane = center;
        inPlane.transformBy(toPlane);
        start.transformBy(toPlane);
        hasDrawn_ = true;
        TransformingWorldDraw plane(context(), toWorld);
        plane.geometry().circularArc(inPlane, radius, std::atan2(start.y, start.x), sweep);
    }

    // The circle through three points, or the arc from the first through the second to the third.
    void through3(ProxyGraphicsRecord& record, bool whole) {
        const AcGePoint3d a = record.point();
        const AcGePoint3d b = record.point();
        const AcGePoint3d c = record.point();
        const AcGeVector3d ab = b - a;
        const AcGeVector3d ac = c - a;
        const AcGeVector3d normal = ab.crossProduct(ac);
        const double area = normal.dotProduct(normal);
        if (record.failed() || !(area > 0.0)) {
            return;
        }
        const AcGeVector3d toCenter = (normal.crossProduct(ab) * ac.dotProduct(ac) +
                                       ac.crossProduct(normal) * ab.dotProduct(ab)) *
                                      (0.5 / area);
        const AcGePoint3d center = a + toCenter;
        const double radius = toCenter.length();
        if (whole) {
            geometry().circle(center, radius, normal.normal());
            return;
        }
        const AcGeVector3d x = -toCenter.normal();
        const AcGeVector3d y = normal.normal().crossProduct(x);
        const AcGeVector3d end = c - center;
        const double angle = std::atan2(end.dotProduct(y), end.dotProduct(x));
        arc(center, radius, normal.normal(), x,
            angle > 0.0 ? angle : angle + 2.0 * std::numbers::pi);
    }

    void mesh(ProxyGraphicsRecord& record) {
        const std::size_t rows = record.number();
        const std::size_t columns = record.number();
        const std::vector<AcGePoint3d> points = record.points(rows * columns);
        if (record.failed() || points.empty()) {
            return;
        }
        for (std::size_t row = 0; row < rows; ++row) {
            const auto first = points.begin() + static_cast<std::ptrdiff_t>(row * columns);
            polyline({first, first + static_cast<std::ptrdiff_t>(columns)});
        }
        for (std::size_t column = 0; column < columns; ++column) {
            std::vector<AcGePoint3d> line;
            for (std::size_t row = 0; row < rows; ++row) {
                line.push_back(points[row * columns + column]);
            }
            polyline(line);
        }
    }

    // A list of faces: the number of corners, below 0 for a hole, and their indexes.
    void shell(ProxyGraphicsRecord& record) {
        const std::vector<AcGePoint3d> points = record.points();
        std::size_t left = record.number();
        while (left > 0 && !record.failed()) {
            const auto corners = static_cast<std::size_t>(
                std::abs(static_cast<std::int64_t>(static_cast<std::int32_t>(record.number()))));
            std::vector<AcGePoint3d> face;
            for (std::size_t i = 0; i < corners && !record.failed(); ++i) {
                const std::uint32_t index = record.number();
                if (index >= points.size()) {
                    return;
                }
                face.push_back(points[index]);
            }
            if (record.failed() || corners + 1 > left) {
                return;
            }
            left -= corners + 1;
            polygon(std::move(face), false);
        }
    }

    struct TextPlace {
        AcGePoint3d position;
        AcGeVector3d normal;
        AcGeVector3d direction;
    };
    static TextPlace placeOf(ProxyGraphicsRecord& record) {
        TextPlace place;
        place.position = record.point();
        place.normal = record.vector();
        place.direction = record.vector();
        return place;
    }
    static std::string textOf(ProxyGraphicsRecord& record, bool wide) {
        return wide ? win32::GbkFromUtf16(record.wideText()) : record.text();
    }

    void text(ProxyGraphicsRecord& record, bool wide) {
        const TextPlace place = placeOf(record);
        AcGiTextStyle style;
        style.setTextSize(record.real());
        style.setXScale(record.real());
        style.setObliquingAngle(record.real());
        drawText(record, place, textOf(record, wide), -1, false, style);
    }

    void text2(ProxyGraphicsRecord& record, bool wide) {
        const TextPlace place = placeOf(record);
        const std::string message = textOf(record, wide);
        const auto length = static_cast<Adesk::Int32>(record.number());
        const bool raw = record.number() != 0;
        AcGiTextStyle style;
        style.setTextSize(record.real());
        style.setXScale(record.real());
        style.setObliquingAngle(record.real());
        style.setTrackingPercent(percentOf(record.real()));
        const bool backward = record.number() != 0;
        const bool upsideDown = record.number() != 0;
        constexpr int kOtherFlags = 3;       // vertical, underlined, overlined
        constexpr int kTypefaceNumbers = 4;  // bold, italic, character set, pitch
        for (int i = 0; i < kOtherFlags + (wide ? kTypefaceNumbers : 0); ++i) {
            record.number();
        }
        if (wide) {
            record.wideText();  // name of the typeface
        }
        style.setFileName(textOf(record, wide).c_str());
        style.setBigFontFileName(textOf(record, wide).c_str());
        TextPlace turned = place;
        turned.direction = backward ? -place.direction : place.direction;
        turned.normal = backward != upsideDown ? -place.normal : place.normal;
        drawText(record, turned, message, wide ? -1 : length, raw, style);
    }

    // Other programs file the distance of characters as a factor.
    static double percentOf(double tracking) {
        constexpr double kLargestFactor = 4.0;
        return tracking <= kLargestFactor ? 100.0 * tracking : tracking;
    }

    void drawText(const ProxyGraphicsRecord& record, const TextPlace& place,
                  const std::string& message, Adesk::Int32 length, bool raw,
                  const AcGiTextStyle& style) {
        if (!record.failed() && !message.empty()) {
            geometry().text(place.position, place.normal, place.direction, message.c_str(), length,
                            raw, style);
        }
    }

    AcGiWorldDraw& context_;
    std::vector<std::unique_ptr<TransformingWorldDraw>> transforms_;
    bool fill_ = false;
    bool hasDrawn_ = false;
};

}  // namespace

bool PlayProxyGraphics(std::span<const std::uint8_t> stream, AcGiWorldDraw& context) {
    constexpr std::size_t kHeaderBytes = 8;
    Player player(context);
    stream = stream.subspan(std::min(kHeaderBytes, stream.size()));
    while (stream.size() >= kHeaderBytes) {
        ProxyGraphicsRecord head(stream.first(kHeaderBytes));
        const std::size_t size = head.number();
        const auto kind = static_cast<ProxyGraphicsKind>(head.number());
        if (size < kHeaderBytes || size > stream.size()) {
            break;
        }
        player.play(kind, ProxyGraphicsRecord(stream.subspan(kHeaderBytes, size - kHeaderBytes)));
        stream = stream.subspan(size);
    }
    return player.hasDrawn();
}
