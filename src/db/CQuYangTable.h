#pragma once

#include "src/db/CProjectTable.h"

/// The samples.
class CQuYangTable : public CProjectTable {
public:
    CQuYangTable();

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];  ///< borehole number
        WCHAR QYBH[13];  ///< sample number
        float QYSD;      ///< depth of the sample's top, m
        float QYHD;      ///< thickness, m
        DBSTATUS QYSDStatus;
        DBSTATUS QYHDStatus;
    };
    Record record{};

private:
    static const Bindings& Columns();
};
