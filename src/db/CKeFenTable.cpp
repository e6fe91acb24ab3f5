#include "src/db/CKeFenTable.h"

CKeFenTable::CKeFenTable()
    : CProjectTable(
          "SELECT GCSY,ZKBH,QYBH,KLSYFF,KL800,KL400,KL200,KL60,KL40,KL20,KL10,KL5,KL2,"
          "KL_5,KL_25,KL_1,KL_075,KL_074,KL_05,KL_01,KL_005,KL_002,KL0,KLD10,KLD15,KLD30,"
          "KLD50,KLD60,KLD85,KLD90,KLD95,KLTYZL,KLHL,KLBJXS,KLQLXS FROM Z_c_KeFen "
          "WHERE GCSY > -1 and %s;",
          Columns(), &record) {}

const CProjectTable::Bindings& CKeFenTable::Columns() {
    static const Bindings bindings = [] {
        std::vector<Column> columns{{DBTYPE_I4, offsetof(Record, GCSY), sizeof(Record::GCSY)},
                                    {DBTYPE_WSTR, offsetof(Record, ZKBH), sizeof(Record::ZKBH)},
                                    {DBTYPE_WSTR, offsetof(Record, QYBH), sizeof(Record::QYBH)},
                                    {DBTYPE_WSTR, offsetof(Record, KLSYFF), sizeof(Record::KLSYFF),
                                     offsetof(Record, KLSYFFStatus)}};
        const auto addFloat = [&](std::size_t value, std::size_t status) {
            columns.push_back({DBTYPE_R4, value, sizeof(float), status});
        };
        for (std::size_t i = 0; i < kClasses; ++i) {
            addFloat(offsetof(Record, KL) + i * sizeof(float),
                     offsetof(Record, KLStatus) + i * sizeof(DBSTATUS));
        }
        for (std::size_t i = 0; i < kDiameters; ++i) {
            addFloat(offsetof(Record, KLD) + i * sizeof(float),
                     offsetof(Record, KLDStatus) + i * sizeof(DBSTATUS));
        }
        addFloat(offsetof(Record, KLTYZL), kNoStatus);
        addFloat(offsetof(Record, KLHL), offsetof(Record, KLHLStatus));
        addFloat(offsetof(Record, KLBJXS), offsetof(Record, KLBJXSStatus));
        addFloat(offsetof(Record, KLQLXS), offsetof(Record, KLQLXSStatus));
        return MakeBindings(columns);
    }();
    return bindings;
}
