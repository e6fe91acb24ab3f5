#pragma once

#include "platform/db/AcDbSymbolTable.h"

class AcDbBlockTableRecord;

inline constexpr const char* ACDB_MODEL_SPACE = "*Model_Space";
inline constexpr const char* ACDB_PAPER_SPACE = "*Paper_Space";

/// The table of block definitions, model space and paper space among them.
class AcDbBlockTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTable);
    using AcDbSymbolTable::getAt;
    /// Looks the record up and opens it.
    Acad::ErrorStatus getAt(const char* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
};
