#pragma once

#include "src/db/CProjectTable.h"

/// The layers that have design values, each once. For reading only.
class CSheJiLayerTable : public CProjectTable {
public:
    CSheJiLayerTable();

    struct Record {
        LONG GCSY;
        BYTE YCBH;  ///< sub-layer number
        BYTE ZCBH;  ///< main layer number
    };
    Record record{};

private:
    static const Bindings& Columns();
};
