#include "lab/stored_samples.h"

#include <map>
#include <utility>

#include "lab/numbers.h"
#include "platform/win32/code_page.h"

namespace lab {

namespace {
using Samples = std::map<std::pair<std::string, std::string>, StoredSample>;

/// Walks over the rows of one table; each statement gives borehole and sample first.
class TableWalk {
public:
    TableWalk(oledb::SqlDatabase& database, const char* table, const std::string& columns,
              const std::string& order, int projectIndex, const std::string* borehole)
        : table_(table),
          rows_(database, "SELECT ZKBH, QYBH, " + columns + " FROM " + table + " WHERE GCSY = ?" +
                              (borehole != nullptr ? " AND ZKBH = ?" : "") +
                              " ORDER BY ZKBH, QYBH" + order) {
        rows_.Bind(1, projectIndex);
        if (borehole != nullptr) {
            rows_.Bind(2, *borehole);
        }
    }

    bool Next() { return rows_.Step(); }
    /// The sample of the row. Rows of a sample follow each other.
    StoredSample& In(Samples& samples) {
        std::pair key(rows_.Text(0), rows_.Text(1));
        if (current_ == nullptr || current_->data.borehole != key.first ||
            current_->data.sample != key.second) {
            current_ = &samples[key];
            current_->data.borehole = std::move(key.first);
            current_->data.sample = std::move(key.second);
        }
        return *current_;
    }
    std::string Text(int column) const { return rows_.Text(column); }
    std::optional<double> Number(int column, const char* name) {
        const std::string text = rows_.Text(column);
        const std::string_view bare = win32::TrimBlanks(text);
        const std::optional<double> number = ParseNumber(bare);
        const std::optional<double> stored = number ? StoredNumber(*number) : std::nullopt;
        if (!stored && !bare.empty()) {
            current_->unreadable.push_back({table_, name, text});
        }
        return stored;
    }
    /// What is no integer of 32 bits, as the column has to hold one, is noted.
    void CheckInteger(int column, const char* name) {
        const std::string text = rows_.Text(column);
        if (!ParseInteger(win32::TrimBlanks(text))) {
            current_->unreadable.push_back({table_, name, text});
        }
    }

private:
    const char* table_;
    oledb::SqlStatement rows_;
    StoredSample* current_ = nullptr;
};
}  // namespace

std::vector<StoredSample> ReadStoredSamples(oledb::SqlDatabase& database, int projectIndex,
                                            const std::string* borehole) {
    Samples samples;
    TableWalk places(database, "z_c_QuYang", "QYSD, QYHD", "", projectIndex, borehole);
    while (places.Next()) {
        StoredSample& sample = places.In(samples);
        sample.hasSampleRow = true;
        sample.data.depth = places.Number(2, "QYSD");
        sample.data.thickness = places.Number(3, "QYHD");
    }
    TableWalk results(database, "Z_c_KeFen", "KLSYFF, KLTYZL", "", projectIndex, borehole);
    while (results.Next()) {
        StoredSample& sample = results.In(samples);
        sample.hasResultRow = true;
        sample.data.method = results.Text(2);
        sample.data.total = results.Number(3, "KLTYZL");
    }
    TableWalk items(database, "Z_c_KeFenCSXM", "KLLJ, KLSYZL, XH", ", XH", projectIndex, borehole);
    while (items.Next()) {
        StoredSample& sample = items.In(samples);
        const std::optional<double> size = items.Number(2, "KLLJ");
        sample.data.items.push_back({size, items.Number(3, "KLSYZL")});
        items.CheckInteger(4, "XH");
    }
    std::vector<StoredSample> list;
    list.reserve(samples.size());
    for (auto& [key, sample] : samples) {
        list.push_back(std::move(sample));
    }
    return list;
}

}  // namespace lab
