#pragma once

#include <string>

#include "platform/db/AcDbObject.h"
#include "platform/ge/AcGePoint3d.h"

/// How a space is plotted. Margins and paper in millimetres.
class AcDbPlotSettings : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbPlotSettings);
    AcDbPlotSettings() = default;

    /// Bits of the plot flags.
    enum Flags {
        kScaleLineweights = 0x10,
        kPlotPlotStyles = 0x20,
        kPlotHidden = 0x80,
        kModelType = 0x400,
        kPrintLineweights = 0x200
    };

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    std::string pageSetup_;
    std::string printer_ = "none_device";
    Adesk::Int16 flags_ = kPrintLineweights | kPlotHidden | kPlotPlotStyles | kScaleLineweights;
    double leftMargin_ = 0.0;
    double bottomMargin_ = 0.0;
    double rightMargin_ = 0.0;
    double topMargin_ = 0.0;
    double paperWidth_ = 0.0;
    double paperHeight_ = 0.0;
    std::string media_;
    AcGePoint2d plotOrigin_;
    Adesk::Int16 paperUnits_ = 0;
    Adesk::Int16 rotation_ = 0;
    Adesk::Int16 plotType_ = 5;  ///< 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout
    AcGePoint2d windowMin_;
    AcGePoint2d windowMax_;
    std::string viewName_;
    double scaleNumerator_ = 1.0;
    double scaleDenominator_ = 1.0;
    std::string styleSheet_;
    Adesk::Int16 standardScale_ = 16;  ///< 0 fits the paper, 16 is 1:1
    double standardScaleFactor_ = 1.0;
    AcGePoint2d imageOrigin_;
};
