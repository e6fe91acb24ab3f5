#pragma once

#include "platform/db/AcDbSymbolTable.h"
#include "platform/ge/AcGePoint2d.h"
#include "platform/ge/AcGePoint3d.h"

/// A named view.
class AcDbViewTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
    AcDbViewTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    double height_ = 1.0;
    double width_ = 1.0;
    AcGePoint2d center_;
    AcGePoint3d target_;
    AcGeVector3d direction_{0.0, 0.0, 1.0};
    double twist_ = 0.0;
    double lensLength_ = 50.0;
    double frontClip_ = 0.0;
    double backClip_ = 0.0;
    std::uint8_t viewMode_ = 0;  ///< four bits, as of a viewport
    std::uint8_t renderMode_ = 0;
    bool ofPaperSpace_ = false;
    bool hasUcs_ = false;  ///< only then the fields below are filed
    AcGePoint3d ucsOrigin_;
    AcGeVector3d ucsXAxis_{1.0, 0.0, 0.0};
    AcGeVector3d ucsYAxis_{0.0, 1.0, 0.0};
    double ucsElevation_ = 0.0;
    Adesk::Int16 ucsOrthographicView_ = 0;
    AcDbObjectId ucsBase_;
    AcDbObjectId ucsName_;
};

/// The table of named views.
class AcDbViewTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTable);
};
