#pragma once

#include "src/db/CProjectTable.h"

/// Parameter codes (CSLX) of the design values. A class's code is the first plus its place in
/// CKeFenTable::kClassSizes.
inline constexpr SHORT kFirstClassCode = 1100;
inline constexpr SHORT kFinestClassCode = 1118;

/// The design values of the layers, one row a layer and parameter.
class CSheJiTable : public CProjectTable {
public:
    CSheJiTable();

    struct Record {
        LONG GCSY;
        BYTE YCBH;     ///< sub-layer number
        BYTE ZCBH;     ///< main layer number
        SHORT CSLX;    ///< parameter code
        char CSV[51];  ///< value as text
        DBSTATUS CSVStatus;
    };
    Record record{};
};
