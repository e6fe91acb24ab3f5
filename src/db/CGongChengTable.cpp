#include "src/db/CGongChengTable.h"

CGongChengTable::CGongChengTable()
    : CProjectTable("SELECT GCSY,GCBH,GCMC,GCBZ,GCSJ FROM x_GongCheng WHERE GCSY > -1 and %s;",
                    Columns(), &record) {}

const CProjectTable::Bindings& CGongChengTable::Columns() {
    static const Bindings bindings =
        MakeBindings({{DBTYPE_I4, offsetof(Record, GCSY), sizeof(Record::GCSY)},
                      {DBTYPE_STR, offsetof(Record, GCBH), sizeof(Record::GCBH)},
                      {DBTYPE_STR, offsetof(Record, GCMC), sizeof(Record::GCMC)},
                      {DBTYPE_I2, offsetof(Record, GCBZ), sizeof(Record::GCBZ)},
                      {DBTYPE_I4, offsetof(Record, GCSJ), sizeof(Record::GCSJ)}});
    return bindings;
}
