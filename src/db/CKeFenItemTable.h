#pragma once

#include "src/db/CProjectTable.h"

/// The test items of the samples, one row a sieve.
class CKeFenItemTable : public CProjectTable {
public:
    CKeFenItemTable();

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];
        WCHAR QYBH[13];
        LONG XH;       ///< item number
        float KLLJ;    ///< sieve size, mm
        float KLSYZL;  ///< mass retained on it
        DBSTATUS KLLJStatus;
        DBSTATUS KLSYZLStatus;
    };
    Record record{};

private:
    static const Bindings& Columns();
};
