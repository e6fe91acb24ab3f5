#pragma once

#include <string>

/// Text style of one drawing call; not a style of a drawing.
class AcGiTextStyle {
public:
    void setFileName(const char* fontFile) { fileName_ = fontFile; }
    void setBigFontFileName(const char* fontFile) { bigFontFileName_ = fontFile; }
    void setTextSize(double size) { textSize_ = size; }
    void setXScale(double factor) { xScale_ = factor; }
    void setObliquingAngle(double radians) { obliquingAngle_ = radians; }
    /// Distance between characters in percent of the font's own, as far as the device honours it.
    void setTrackingPercent(double percent) { trackingPercent_ = percent; }

    const char* fileName() const { return fileName_.c_str(); }
    const char* bigFontFileName() const { return bigFontFileName_.c_str(); }
    double textSize() const { return textSize_; }
    double xScale() const { return xScale_; }
    double obliquingAngle() const { return obliquingAngle_; }
    double trackingPercent() const { return trackingPercent_; }

private:
    std::string fileName_ = "txt";
    std::string bigFontFileName_;
    double textSize_ = 1.0;
    double xScale_ = 1.0;
    double obliquingAngle_ = 0.0;
    double trackingPercent_ = 100.0;
};
