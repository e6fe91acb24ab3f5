#pragma once

#include "src/db/CProjectTable.h"

/// The design values of the layers, one row a layer and parameter.
class CSheJiTable : public CProjectTable {
public:
    CSheJiTable();

    struct Record {
        LONG GCSY;
        BYTE YCBH;     ///< sub-layer number
        BYTE ZCBH;     ///< main layer number
        SHORT CSLX;    ///< parameter code: a class's as in kSieveSeries, a result's
        char CSV[51];  ///< value as text
        DBSTATUS CSVStatus;
    };
    Record record{};

private:
    static const Bindings& Columns();
};
