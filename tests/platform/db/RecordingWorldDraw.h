#pragma once

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "platform/gi/AcGiWorldDraw.h"

/// Notes what is drawn, a line of text a shape: points as x,y (with z where it is not 0), numbers
/// to six digits, in front where they changed the selection marker as "(1)" and the colour as
/// "[3]".
class RecordingWorldDraw : public AcGiWorldDraw {
public:
    AcGiWorldGeometry& geometry() const override { return recorder_; }
    AcGiSubEntityTraits& subEntityTraits() const override { return recorder_; }
    const std::vector<std::string>& lines() const { return recorder_.lines; }
    Adesk::Boolean isDragging() const override { return dragging; }
    bool dragging = false;

private:
    class Recorder : public AcGiWorldGeometry, public AcGiSubEntityTraits {
    public:
        void setColor(Adesk::UInt16 colorIndex) override { color = colorIndex; }
        void setSelectionMarker(Adesk::Int32 newMarker) override { marker = newMarker; }
        Adesk::Boolean polyline(Adesk::UInt32 n, const AcGePoint3d* p) override {
            return note("polyline", points(n, p));
        }
        Adesk::Boolean polygon(Adesk::UInt32 n, const AcGePoint3d* p) override {
            return n > 8 ? note("polygon", std::to_string(n) + " points")
                         : note("polygon", points(n, p));
        }
        Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                              const AcGeVector3d& normal) override {
            return note("circle", points(1, &center) + " r " + number(radius) +
                                      (normal.z > 0.999999 ? "" : " tilted"));
        }
        Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, double start,
                                   double sweep) override {
            return note("arc", points(1, &center) + " r " + number(radius) + " from " +
                                   degrees(start) + " by " + degrees(sweep));
        }
        Adesk::Boolean wideLine(const AcGePoint3d& start, const AcGePoint3d& end, double startWidth,
                                double endWidth) override {
            const AcGePoint3d ends[] = {start, end};
            return note("wide",
                        points(2, ends) + " w " + number(startWidth) + " " + number(endWidth));
        }
        Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                            const AcGeVector3d& direction, const char* message, Adesk::Int32 length,
                            Adesk::Boolean raw, const AcGiTextStyle& style) override {
            return note(
                raw || length != -1 ? "unusual text" : "text",
                std::string(message) + " at " + points(1, &position) + " towards " +
                    degrees(std::atan2(direction.y, direction.x)) +
                    (normal.z > 0 ? "" : " mirrored") + " h " + number(style.textSize()) + " w " +
                    number(style.xScale()) +
                    (style.obliquingAngle() == 0.0 ? ""
                                                   : " slant " + degrees(style.obliquingAngle())) +
                    " " + style.fileName() + "," + style.bigFontFileName() +
                    (style.trackingPercent() == 100.0
                         ? ""
                         : " tracking " + number(style.trackingPercent())));
        }

        std::vector<std::string> lines;
        int color = -1;
        int marker = 0;

    private:
        static std::string number(double value) {
            std::ostringstream out;
            out << (std::abs(value) < 1e-9 ? 0.0 : value);
            return out.str();
        }
        static std::string degrees(double radians) { return number(radians * 57.29577951308232); }
        static std::string points(Adesk::UInt32 n, const AcGePoint3d* p) {
            std::string result;
            for (Adesk::UInt32 i = 0; i < n; ++i) {
                result += (i > 0 ? " " : "") + number(p[i].x) + "," + number(p[i].y);
                result += std::abs(p[i].z) > 1e-9 ? "," + number(p[i].z) : "";
            }
            return result;
        }
        bool note(const std::string& shape, const std::string& data) {
            std::string changes;
            if (marker != lastMarker_) {
                changes = "(" + std::to_string(marker) + ") ";
                lastMarker_ = marker;
            }
            if (color != lastColor_) {
                changes += "[" + std::to_string(color) + "] ";
                lastColor_ = color;
            }
            lines.push_back(changes + shape + " " + data);
            return true;
        }
        int lastColor_ = -1;
        int lastMarker_ = 0;
    };

    mutable Recorder recorder_;
};
