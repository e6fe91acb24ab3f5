#pragma once

#include "platform/db/AcDbPlotSettings.h"
#include "platform/ge/AcGePoint3d.h"

/// A layout: a space (a block) with its plot settings and its tab.
class AcDbLayout : public AcDbPlotSettings {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayout);
    AcDbLayout() = default;

    const char* layoutName() const { return name_.c_str(); }
    AcDbObjectId blockTableRecord() const { return block_; }

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    std::string name_;
    Adesk::Int16 tabOrder_ = 0;
    Adesk::Int16 layoutFlags_ = 1;
    AcGePoint3d insertionBase_;
    AcGePoint2d limitsMin_;
    AcGePoint2d limitsMax_{420.0, 297.0};
    AcGePoint3d ucsOrigin_;
    AcGeVector3d ucsXAxis_{1.0, 0.0, 0.0};
    AcGeVector3d ucsYAxis_{0.0, 1.0, 0.0};
    double ucsElevation_ = 0.0;
    Adesk::Int16 ucsOrthographicView_ = 0;
    AcGePoint3d extentsMin_{1e20, 1e20, 1e20};
    AcGePoint3d extentsMax_{-1e20, -1e20, -1e20};
    AcDbObjectId block_;
    AcDbObjectId activeViewport_;
    AcDbObjectId ucsBase_;
    AcDbObjectId ucsName_;
};
