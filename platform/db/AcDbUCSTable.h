#pragma once

#include <vector>

#include "platform/db/AcDbSymbolTable.h"
#include "platform/ge/AcGePoint3d.h"

/// A named coordinate system.
class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
    AcDbUCSTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    /// Origin of one orthographic view relative to the system.
    struct ViewOrigin {
        Adesk::Int16 view = 0;
        AcGePoint3d origin;
    };
    AcGePoint3d origin_;
    AcGeVector3d xAxis_{1.0, 0.0, 0.0};
    AcGeVector3d yAxis_{0.0, 1.0, 0.0};
    double elevation_ = 0.0;
    Adesk::Int16 orthographicView_ = 0;
    AcDbObjectId base_;
    AcDbObjectId named_;
    std::vector<ViewOrigin> viewOrigins_;
};

/// The table of named coordinate systems.
class AcDbUCSTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbUCSTable);
};
