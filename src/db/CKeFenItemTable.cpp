#include "src/db/CKeFenItemTable.h"

CKeFenItemTable::CKeFenItemTable()
    : CProjectTable(
          "SELECT GCSY,ZKBH,QYBH,XH,KLLJ,KLSYZL FROM Z_c_KeFenCSXM WHERE GCSY > -1 and %s;",
          Columns(), &record) {}

const CProjectTable::Bindings& CKeFenItemTable::Columns() {
    static const Bindings bindings = MakeBindings(
        {{DBTYPE_I4, offsetof(Record, GCSY), sizeof(Record::GCSY)},
         {DBTYPE_WSTR, offsetof(Record, ZKBH), sizeof(Record::ZKBH)},
         {DBTYPE_WSTR, offsetof(Record, QYBH), sizeof(Record::QYBH)},
         {DBTYPE_I4, offsetof(Record, XH), sizeof(Record::XH)},
         {DBTYPE_R4, offsetof(Record, KLLJ), sizeof(float), offsetof(Record, KLLJStatus)},
         {DBTYPE_R4, offsetof(Record, KLSYZL), sizeof(float), offsetof(Record, KLSYZLStatus)}});
    return bindings;
}
