#pragma once

#include "platform/db/AcDbSymbolTable.h"

/// The name of an application that attaches data to objects.
class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    std::uint8_t flags_ = 0;
};

/// The table of application names; "ACAD" is always there.
class AcDbRegAppTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTable);
};
