#include "lab/layer_store.h"

#include <algorithm>
#include <map>

#include "lab/suite_profiles.h"
#include "platform/win32/number_text.h"
#include "src/facts/mark_keys.h"

namespace lab {

namespace {
using Fractions = std::map<int, std::string>;

Fractions FractionsOf(const Layer& layer) {
    Fractions fractions;
    for (const Layer::Percentage& percentage : layer.percentages) {
        fractions[percentage.code] = percentage.text;
    }
    return fractions;
}

/// Equal as numbers: 25.5 and 25.50 are.
bool AreEqual(const Fractions& left, const Fractions& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& a, const auto& b) {
                          return a.first == b.first &&
                                 (a.second == b.second ||
                                  (win32::ParseNumber(a.second) &&
                                   win32::ParseNumber(a.second) == win32::ParseNumber(b.second)));
                      });
}

/// The statements that read and replace one layer's grading. Codes 1100 to 1118 are the class
/// percentages, 1119 to 1128 what was computed from them.
class LayerTable {
public:
    LayerTable(oledb::SqlDatabase& database, int projectIndex)
        : projectIndex_(projectIndex),
          select_(database,
                  "SELECT CSLX, CSV FROM x_SheJi WHERE GCSY = ? AND ZCBH = ? AND YCBH = ? "
                  "AND CSLX BETWEEN 1100 AND 1118"),
          delete_(database,
                  "DELETE FROM x_SheJi WHERE GCSY = ? AND ZCBH = ? AND YCBH = ? "
                  "AND CSLX BETWEEN 1100 AND 1128"),
          insert_(database,
                  "INSERT INTO x_SheJi (GCSY, ZCBH, YCBH, CSLX, CSV) VALUES (?, ?, ?, ?, ?)") {}

    Fractions Read(const Layer& layer) {
        Fractions fractions;
        BindKey(select_, layer);
        while (select_.Step()) {
            fractions[select_.Integer(0)] = select_.Text(1);
        }
        return fractions;
    }
    void Write(const Layer& layer) {
        BindKey(delete_, layer);
        delete_.Run();
        for (const Layer::Percentage& percentage : layer.percentages) {
            BindKey(insert_, layer);
            insert_.Bind(4, percentage.code);
            insert_.Bind(5, percentage.text);
            insert_.Run();
        }
    }

private:
    void BindKey(oledb::SqlStatement& statement, const Layer& layer) const {
        statement.Bind(1, projectIndex_);
        statement.Bind(2, layer.main);
        statement.Bind(3, layer.sub);
    }

    int projectIndex_;
    oledb::SqlStatement select_;
    oledb::SqlStatement delete_;
    oledb::SqlStatement insert_;
};
}  // namespace

StoreSummary StoreLayers(const std::vector<Layer>& layers, const StoreOptions& options) {
    StoreRun run(options);
    LayerTable table(run.Database(), run.OfProject().index);
    StoreSummary summary;
    std::size_t done = 0;
    for (const Layer& layer : layers) {
        const Fractions stored = table.Read(layer);
        run.Report(++done, layers.size());
        if (AreEqual(stored, FractionsOf(layer))) {
            ++summary.unchanged;
            continue;
        }
        if (stored.empty()) {
            ++summary.added;
        } else {
            summary.changed.push_back(layer.Label());
        }
        if (run.Writes()) {
            table.Write(layer);
        }
    }
    if (run.Writes()) {
        MarkRemoval marks(ProjectProfilePath());
        for (const std::string& label : summary.changed) {
            marks.Remove(LayerMarksKey(run.ProjectNumber()), label);
        }
        run.Commit(marks);
    }
    return summary;
}

}  // namespace lab
