#include "lab/SampleWriter.h"

namespace lab {

namespace {
#define GRDX_OF_SAMPLE " WHERE GCSY = ? AND ZKBH = ? AND QYBH = ?"
}  // namespace

SampleWriter::SampleWriter(oledb::SqlDatabase& database, int projectIndex)
    : projectIndex_(projectIndex),
      insertPlace_(database,
                   "INSERT INTO z_c_QuYang (QYSD, QYHD, GCSY, ZKBH, QYBH) VALUES (?, ?, ?, ?, ?)"),
      updatePlace_(database, "UPDATE z_c_QuYang SET QYSD = ?, QYHD = ?" GRDX_OF_SAMPLE),
      insertResult_(
          database,
          "INSERT INTO Z_c_KeFen (KLSYFF, KLTYZL, GCSY, ZKBH, QYBH) VALUES (?, ?, ?, ?, ?)"),
      updateResult_(database,
                    "UPDATE Z_c_KeFen SET KLSYFF = ?, KLTYZL = ?, KL800 = NULL, KL400 = NULL, "
                    "KL200 = NULL, KL60 = NULL, KL40 = NULL, KL20 = NULL, KL10 = NULL, "
                    "KL5 = NULL, KL2 = NULL, KL_5 = NULL, KL_25 = NULL, KL_1 = NULL, "
                    "KL_075 = NULL, KL_074 = NULL, KL_05 = NULL, KL_01 = NULL, KL_005 = NULL, "
                    "KL_002 = NULL, KL0 = NULL, KLD10 = NULL, KLD15 = NULL, KLD30 = NULL, "
                    "KLD50 = NULL, KLD60 = NULL, KLD85 = NULL, KLD90 = NULL, KLD95 = NULL, "
                    "KLHL = NULL, KLBJXS = NULL, KLQLXS = NULL" GRDX_OF_SAMPLE),
      deleteItems_(database, "DELETE FROM Z_c_KeFenCSXM" GRDX_OF_SAMPLE),
      insertItem_(database,
                  "INSERT INTO Z_c_KeFenCSXM (XH, KLLJ, KLSYZL, GCSY, ZKBH, QYBH) "
                  "VALUES (?, ?, ?, ?, ?, ?)") {}

#undef GRDX_OF_SAMPLE

void SampleWriter::BindKey(oledb::SqlStatement& statement, int first, const Sample& sample) const {
    statement.Bind(first, projectIndex_);
    statement.Bind(first + 1, sample.borehole);
    statement.Bind(first + 2, sample.sample);
}

void SampleWriter::Write(const Sample& sample, bool hasSampleRow, bool hasResultRow) {
    oledb::SqlStatement& place = hasSampleRow ? updatePlace_ : insertPlace_;
    place.Bind(1, sample.depth);
    place.Bind(2, sample.thickness);
    BindKey(place, 3, sample);
    place.Run();
    oledb::SqlStatement& result = hasResultRow ? updateResult_ : insertResult_;
    result.Bind(1, sample.method);
    result.Bind(2, sample.total);
    BindKey(result, 3, sample);
    result.Run();
    BindKey(deleteItems_, 1, sample);
    deleteItems_.Run();
    int number = 0;
    for (const SieveItem& item : sample.items) {
        insertItem_.Bind(1, ++number);
        insertItem_.Bind(2, item.size);
        insertItem_.Bind(3, item.mass);
        BindKey(insertItem_, 4, sample);
        insertItem_.Run();
    }
}

}  // namespace lab
