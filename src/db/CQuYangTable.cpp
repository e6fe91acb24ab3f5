#include "src/db/CQuYangTable.h"

CQuYangTable::CQuYangTable()
    : CProjectTable("SELECT GCSY,ZKBH,QYBH,QYSD,QYHD FROM z_c_QuYang WHERE GCSY > -1 and %s;",
                    Columns(), &record) {}

const CProjectTable::Bindings& CQuYangTable::Columns() {
    static const Bindings bindings = MakeBindings(
        {{DBTYPE_I4, offsetof(Record, GCSY), sizeof(Record::GCSY)},
         {DBTYPE_WSTR, offsetof(Record, ZKBH), sizeof(Record::ZKBH)},
         {DBTYPE_WSTR, offsetof(Record, QYBH), sizeof(Record::QYBH)},
         {DBTYPE_R4, offsetof(Record, QYSD), sizeof(float), offsetof(Record, QYSDStatus)},
         {DBTYPE_R4, offsetof(Record, QYHD), sizeof(float), offsetof(Record, QYHDStatus)}});
    return bindings;
}
