#include "src/db/CSheJiTable.h"

CSheJiTable::CSheJiTable()
    : CProjectTable("SELECT GCSY,ZCBH,YCBH,CSLX,CSV FROM x_SheJi WHERE GCSY > -1 and %s;",
                    Columns(), &record) {}

const CProjectTable::Bindings& CSheJiTable::Columns() {
    static const Bindings bindings = MakeBindings(
        {{DBTYPE_I4, offsetof(Record, GCSY), sizeof(Record::GCSY)},
         {DBTYPE_UI1, offsetof(Record, ZCBH), sizeof(Record::ZCBH)},
         {DBTYPE_UI1, offsetof(Record, YCBH), sizeof(Record::YCBH)},
         {DBTYPE_I2, offsetof(Record, CSLX), sizeof(Record::CSLX)},
         {DBTYPE_STR, offsetof(Record, CSV), sizeof(Record::CSV), offsetof(Record, CSVStatus)}});
    return bindings;
}
