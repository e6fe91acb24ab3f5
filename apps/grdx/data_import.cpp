#include "apps/grdx/data_import.h"

namespace console {

namespace {
/// The statements that replace one sample, prepared once for a whole file.
class SampleWriter {
public:
    SampleWriter(oledb::SqlDatabase& database, int projectIndex)
        : projectIndex_(projectIndex),
          removals_{{database, "DELETE FROM z_c_QuYang WHERE GCSY=? AND ZKBH=? AND QYBH=?"},
                    {database, "DELETE FROM Z_c_KeFen WHERE GCSY=? AND ZKBH=? AND QYBH=?"},
                    {database, "DELETE FROM Z_c_KeFenCSXM WHERE GCSY=? AND ZKBH=? AND QYBH=?"}},
          sample_(database,
                  "INSERT INTO z_c_QuYang (GCSY, ZKBH, QYBH, QYSD, QYHD) VALUES (?, ?, ?, ?, ?)"),
          result_(database,
                  "INSERT INTO Z_c_KeFen (GCSY, ZKBH, QYBH, KLSYFF, KLTYZL) "
                  "VALUES (?, ?, ?, ?, ?)"),
          item_(database,
                "INSERT INTO Z_c_KeFenCSXM (GCSY, ZKBH, QYBH, XH, KLLJ, KLSYZL) "
                "VALUES (?, ?, ?, ?, ?, ?)") {}

    void Replace(const SampleData& data) {
        for (oledb::SqlStatement& removal : removals_) {
            BindKey(removal, data);
            removal.Run();
        }
        BindKey(sample_, data);
        sample_.Bind(4, data.depth);
        sample_.Bind(5, data.thickness);
        sample_.Run();
        BindKey(result_, data);
        result_.Bind(4, data.method);
        result_.Bind(5, data.total);
        result_.Run();
        AddItems(data);
    }

private:
    void BindKey(oledb::SqlStatement& statement, const SampleData& data) const {
        statement.Bind(1, projectIndex_);
        statement.Bind(2, data.borehole);
        statement.Bind(3, data.sample);
    }

    void AddItems(const SampleData& data) {
        std::int64_t number = 0;
        for (const SampleData::Item& item : data.items) {
            BindKey(item_, data);
            item_.Bind(4, ++number);
            item_.Bind(5, item.size);
            item_.Bind(6, item.mass);
            item_.Run();
        }
    }

    int projectIndex_;
    oledb::SqlStatement removals_[3];
    oledb::SqlStatement sample_;
    oledb::SqlStatement result_;
    oledb::SqlStatement item_;
};

void BindLayer(oledb::SqlStatement& statement, int projectIndex, const LayerData& layer) {
    statement.Bind(1, projectIndex);
    statement.Bind(2, layer.main);
    statement.Bind(3, layer.sub);
}
}  // namespace

void StoreSamples(oledb::SqlDatabase& database, int projectIndex,
                  const std::vector<SampleData>& samples) {
    oledb::SqlTransaction transaction(database);
    SampleWriter writer(database, projectIndex);
    for (const SampleData& sample : samples) {
        writer.Replace(sample);
    }
    transaction.Commit();
}

void StoreLayers(oledb::SqlDatabase& database, int projectIndex,
                 const std::vector<LayerData>& layers) {
    oledb::SqlTransaction transaction(database);
    // 1100 to 1118 are the class percentages, 1119 to 1128 what was computed from them.
    oledb::SqlStatement removal(database,
                                "DELETE FROM x_SheJi WHERE GCSY=? AND ZCBH=? AND YCBH=? "
                                "AND CSLX BETWEEN 1100 AND 1128");
    oledb::SqlStatement value(database,
                              "INSERT INTO x_SheJi (GCSY, ZCBH, YCBH, CSLX, CSV) "
                              "VALUES (?, ?, ?, ?, ?)");
    for (const LayerData& layer : layers) {
        BindLayer(removal, projectIndex, layer);
        removal.Run();
        for (const LayerData::Percentage& percentage : layer.percentages) {
            BindLayer(value, projectIndex, layer);
            value.Bind(4, percentage.code);
            value.Bind(5, percentage.text);
            value.Run();
        }
    }
    transaction.Commit();
}

}  // namespace console
