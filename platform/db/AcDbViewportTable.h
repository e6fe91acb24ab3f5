#pragma once

#include "platform/db/AcDbSymbolTable.h"
#include "platform/ge/AcGePoint2d.h"
#include "platform/ge/AcGePoint3d.h"

/// A tiled viewport of model space: the view it shows and its drawing aids. "*Active" is what is
/// seen when the drawing is opened.
class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
    AcDbViewportTableRecord() = default;

    AcGePoint2d centerPoint() const { return center_; }
    double height() const { return height_; }
    double width() const { return width_; }

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    double height_ = 297.0;
    double width_ = 420.0;
    AcGePoint2d center_{210.0, 148.5};
    AcGePoint3d target_;
    AcGeVector3d direction_{0.0, 0.0, 1.0};
    double twist_ = 0.0;
    double lensLength_ = 50.0;
    double frontClip_ = 0.0;
    double backClip_ = 0.0;
    std::uint8_t viewMode_ = 0;  ///< four bits: perspective, front clip, back clip, clip at the eye
    std::uint8_t renderMode_ = 0;
    AcGePoint2d lowerLeft_;
    AcGePoint2d upperRight_{1.0, 1.0};
    bool ucsFollow_ = false;
    Adesk::Int16 circleSides_ = 1000;
    bool fastZoom_ = true;
    std::uint8_t iconMode_ = 3;
    bool gridOn_ = false;
    AcGePoint2d gridSpacing_{10.0, 10.0};
    bool snapOn_ = false;
    bool snapIsometric_ = false;
    Adesk::Int16 snapPair_ = 0;
    double snapAngle_ = 0.0;
    AcGePoint2d snapBase_;
    AcGePoint2d snapSpacing_{10.0, 10.0};
    bool ucsAtOrigin_ = false;
    bool ucsPerViewport_ = true;
    AcGePoint3d ucsOrigin_;
    AcGeVector3d ucsXAxis_{1.0, 0.0, 0.0};
    AcGeVector3d ucsYAxis_{0.0, 1.0, 0.0};
    double ucsElevation_ = 0.0;
    Adesk::Int16 ucsOrthographicView_ = 0;
    AcDbObjectId ucsName_;
    AcDbObjectId ucsBase_;
};

/// The table of tiled viewports; several may be named "*Active".
class AcDbViewportTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTable);
};
