#pragma once

#include "platform/db/AcDbSymbolTable.h"

/// Lists a viewport of paper space and whether it is on.
class AcDbVXTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbVXTableRecord);
    AcDbVXTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    bool on_ = false;
    AcDbObjectId viewport_;
    AcDbObjectId previous_;
};

/// The table of viewport entity headers.
class AcDbVXTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbVXTable);
};
