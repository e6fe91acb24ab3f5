#pragma once

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "platform/gi/AcGiWorldDraw.h"

/// Notes what is drawn, a line of text a shape: points as x,y (with z where it is not 0), numbers
/// to six digits, the colour in front where it changed.
class RecordingWorldDraw : public AcGiWorldDraw {
public:
    AcGiWorldGeometry& geometry() const override { return recorder_; }
    AcGiSubEntityTraits& subEntityTraits() const override { return recorder_; }
    const std::vector<std::string>& lines() const { return recorder_.lines; }

private:
    class Recorder : public AcGiWorldGeometry, public AcGiSubEntityTraits {
    public:
        void setColor(Adesk::UInt16 colorIndex) override { color = colorIndex; }
        void setSelectionMarker(Adesk::Int32) override {}
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
                            const AcGeVector3d& direction, const char* message, Adesk::Int32,
                            Adesk::Boolean, const AcGiTextStyle& style) override {
            return note("text", std::string(message) + " at " + points(1, &position) + " towards " +
                                    degrees(std::atan2(direction.y, direction.x)) +
                                    (normal.z > 0 ? "" : " mirrored") + " h " +
                                    number(style.textSize()) + " w " + number(style.xScale()) +
                                    " " + style.fileName() + "," + style.bigFontFileName());
        }

        std::vector<std::string> lines;
        int color = -1;

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
            std::string colorChange;
            if (color != lastColor_) {
                colorChange = "[" + std::to_string(color) + "] ";
                lastColor_ = color;
            }
            lines.push_back(colorChange + shape + " " + data);
            return true;
        }
        int lastColor_ = -1;
    };

    mutable Recorder recorder_;
};
