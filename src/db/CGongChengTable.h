#pragma once

#include "src/db/CProjectTable.h"

/// The projects.
class CGongChengTable : public CProjectTable {
public:
    CGongChengTable();

    struct Record {
        LONG GCSY;       ///< project index
        char GCBH[21];   ///< project number
        char GCMC[151];  ///< project name
        SHORT GCBZ;      ///< standard code
        LONG GCSJ;       ///< data-check flag
    };
    Record record{};

private:
    static const Bindings& Columns();
};
