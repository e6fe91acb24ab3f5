#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "lab/tables/RowReader.h"
#include "lab/tables/TableHeader.h"
#include "lab/tables/table_files.h"
#include "src/facts/sieve_series.h"

namespace lab {

namespace {
const TableForm kForm = {{Column::kMain}, {Column::kSub, Column::kSize, Column::kPercent}, false};

constexpr int kHighestNumber = 255;
constexpr std::size_t kValueLimit = 50;  // bytes of the value's column

/// 0 for a size that is no standard one.
int CodeOfSize(double size) {
    constexpr double kTolerance = 0.0001;
    const auto* found = std::find_if(
        kSieveSeries.begin(), kSieveSeries.end(),
        [&](const SieveClass& sieve) { return std::abs(sieve.size - size) < kTolerance; });
    return found == kSieveSeries.end() ? 0 : found->layerCode;
}

/// The number's text in a cell, without unit and blanks.
std::string NumberIn(const std::string& field) {
    return field.substr(0, field.find_last_of("0123456789.") + 1);
}

class LayerTable {
public:
    explicit LayerTable(Findings& findings) : findings_(findings) {}

    void Read(TableSource& source, const ColumnNames& names) {
        TableHeader header;
        TableRow row;
        bool more = false;
        if (!header.Read(source, kForm, names, row, more, findings_)) {
            return;
        }
        for (const Column column : {Column::kSize, Column::kPercent}) {
            if (!header.Has(column)) {
                findings_.Refuse(source.Place(header.Row(), 0),
                                 std::string("no column ") + ColumnName(column));
                more = false;
            }
        }
        if (!more && !findings_.Refused()) {
            findings_.Refuse(source.Place(header.Row(), 0), "no data after the header line");
        }
        for (; more; more = source.Next(row)) {
            RowReader reader(source, header, row, findings_);
            if (!reader.Failed()) {
                ReadRow(reader, header);
            }
        }
    }

    std::vector<Layer> Take() { return std::move(layers_); }

private:
    void ReadRow(RowReader& reader, const TableHeader& header) {
        const int main = reader.Integer(Column::kMain, 0, kHighestNumber);
        const int sub =
            header.Has(Column::kSub) ? reader.Integer(Column::kSub, 0, kHighestNumber) : 0;
        const int code = CodeOfSize(reader.Needed(Column::kSize));
        if (code == 0) {
            reader.Fail(Column::kSize,
                        " " + Quoted(reader.Field(Column::kSize)) + ": none of the standard sizes");
        }
        reader.Needed(Column::kPercent);
        const std::string text = NumberIn(reader.Field(Column::kPercent));
        if (text.size() > kValueLimit) {
            reader.Fail(Column::kPercent,
                        ": more than " + std::to_string(kValueLimit) + " characters");
        }
        std::vector<Layer::Percentage>& known = LayerOf(main, sub).percentages;
        if (std::any_of(known.begin(), known.end(),
                        [&](const auto& other) { return other.code == code; })) {
            reader.Fail(Column::kSize,
                        " " + Quoted(reader.Field(Column::kSize)) + ": given twice for the layer");
        }
        if (!reader.Failed()) {
            known.push_back({code, text});
        }
    }

    Layer& LayerOf(int main, int sub) {
        const auto [place, added] =
            indexes_.try_emplace(main * (kHighestNumber + 1) + sub, layers_.size());
        if (added) {
            layers_.push_back({main, sub, {}});
        }
        return layers_[place->second];
    }

    Findings& findings_;
    std::vector<Layer> layers_;
    std::unordered_map<int, std::size_t> indexes_;
};
}  // namespace

std::vector<Layer> ReadLayers(const std::vector<TableFile>& files, const TableOptions& options,
                              Findings& findings) {
    LayerTable table(findings);
    for (const TableFile& file : files) {
        table.Read(*OpenTable(file, options, findings), options.names);
    }
    return table.Take();
}

}  // namespace lab
