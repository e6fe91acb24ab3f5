#include "src/db/CSheJiLayerTable.h"

CSheJiLayerTable::CSheJiLayerTable()
    : CProjectTable("SELECT DISTINCT GCSY,ZCBH,YCBH FROM x_SheJi WHERE GCSY > -1 and %s;",
                    Columns(), &record) {}

const CProjectTable::Bindings& CSheJiLayerTable::Columns() {
    static const Bindings bindings =
        MakeBindings({{DBTYPE_I4, offsetof(Record, GCSY), sizeof(Record::GCSY)},
                      {DBTYPE_UI1, offsetof(Record, ZCBH), sizeof(Record::ZCBH)},
                      {DBTYPE_UI1, offsetof(Record, YCBH), sizeof(Record::YCBH)}});
    return bindings;
}
