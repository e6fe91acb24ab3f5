#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "platform/gi/AcGiWorldDraw.h"
#include "platform/win32/code_page.h"

/// A drawing context that notes every call as a line, such as "color 3" or "text 10,20 =0.5".
class RecordingDraw : public AcGiWorldDraw {
public:
    mutable std::vector<std::string> calls;
    std::vector<AcGiTextStyle> textStyles;
    bool dragging = false;

    RecordingDraw() : traits_(*this), geometry_(*this) {}
    Adesk::Boolean isDragging() const override { return dragging; }
    AcGiWorldGeometry& geometry() const override { return geometry_; }
    AcGiSubEntityTraits& subEntityTraits() const override { return traits_; }

private:
    static std::string Number(double value) {
        char text[40];
        std::snprintf(text, sizeof text, "%.7g", value);
        return text;
    }
    static std::string Point(const AcGePoint3d& p) { return Number(p.x) + "," + Number(p.y); }

    struct Traits : AcGiSubEntityTraits {
        explicit Traits(RecordingDraw& d) : draw(d) {}
        void setColor(Adesk::UInt16 index) override {
            draw.calls.push_back("color " + std::to_string(index));
        }
        void setSelectionMarker(Adesk::Int32 marker) override {
            draw.calls.push_back("marker " + std::to_string(marker));
        }
        RecordingDraw& draw;
    };

    struct Geometry : AcGiWorldGeometry {
        explicit Geometry(RecordingDraw& d) : draw(d) {}
        Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) override {
            draw.calls.push_back("polyline " + Point(points[0]) + " to " +
                                 Point(points[count - 1]));
            return true;
        }
        Adesk::Boolean polygon(Adesk::UInt32, const AcGePoint3d*) override { return Other(); }
        Adesk::Boolean circle(const AcGePoint3d&, double, const AcGeVector3d&) override {
            return Other();
        }
        Adesk::Boolean circularArc(const AcGePoint3d&, double, double, double) override {
            return Other();
        }
        Adesk::Boolean wideLine(const AcGePoint3d&, const AcGePoint3d&, double, double) override {
            return Other();
        }
        Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                            const AcGeVector3d& direction, const char* message, Adesk::Int32 length,
                            Adesk::Boolean raw, const AcGiTextStyle& style) override {
            const bool plain = normal.isEqualTo(AcGeVector3d::kZAxis) &&
                               direction.isEqualTo(AcGeVector3d::kXAxis) && length == -1 && !raw;
            draw.calls.push_back(std::string(plain ? "text " : "unusual text ") + Point(position) +
                                 " " + win32::Utf8FromGbk(message));
            draw.textStyles.push_back(style);
            return true;
        }
        Adesk::Boolean Other() {
            draw.calls.push_back("another shape");
            return true;
        }
        RecordingDraw& draw;
    };

    mutable Traits traits_;
    mutable Geometry geometry_;
};
