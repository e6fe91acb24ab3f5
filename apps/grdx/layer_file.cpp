#include "apps/grdx/layer_file.h"

#include <algorithm>
#include <cmath>

#include "apps/grdx/csv_columns.h"
#include "src/facts/sieve_series.h"

namespace console {

namespace {
const std::vector<std::string> kHeader = {"main", "sub", "size", "percent"};
enum Column : std::size_t { kMain, kSub, kSize, kPercent };

constexpr int kHighestNumber = 255;
constexpr std::size_t kValueLimit = 50;  // bytes of the value's column

/// 0 for a size that is no standard one.
int CodeOfSize(double size) {
    constexpr double kTolerance = 0.0001;
    const auto found = std::find_if(
        kSieveSeries.begin(), kSieveSeries.end(),
        [&](const SieveClass& standard) { return std::abs(standard.size - size) < kTolerance; });
    return found == kSieveSeries.end() ? 0 : found->layerCode;
}

LayerData::Percentage ReadPercentage(RecordReader& reader) {
    const int code = CodeOfSize(reader.Number(kSize));
    if (code == 0) {
        reader.Fail("size \"" + reader.Field(kSize) + "\": none of the standard sizes");
    }
    reader.Number(kPercent);
    if (reader.Field(kPercent).size() > kValueLimit) {
        reader.Fail("percent: more than " + std::to_string(kValueLimit) + " characters");
    }
    return {code, reader.Field(kPercent)};
}

LayerData& LayerOf(std::vector<LayerData>& layers, int main, int sub) {
    const auto found = std::find_if(layers.begin(), layers.end(), [&](const LayerData& layer) {
        return layer.main == main && layer.sub == sub;
    });
    if (found != layers.end()) {
        return *found;
    }
    return layers.emplace_back(LayerData{main, sub, {}});
}
}  // namespace

std::vector<LayerData> ReadLayerFile(std::string_view text, std::vector<LineError>& errors) {
    std::vector<LayerData> layers;
    for (const CsvRecord& record : ReadCsvTable(text, kHeader, errors)) {
        RecordReader reader(record, kHeader);
        const int main = reader.Integer(kMain, 0, kHighestNumber);
        const int sub = reader.Integer(kSub, 0, kHighestNumber);
        LayerData::Percentage percentage = ReadPercentage(reader);
        std::vector<LayerData::Percentage>& known = LayerOf(layers, main, sub).percentages;
        if (std::any_of(known.begin(), known.end(),
                        [&](const auto& other) { return other.code == percentage.code; })) {
            reader.Fail("size \"" + reader.Field(kSize) + "\": given twice for the layer");
        }
        if (reader.Failed()) {
            errors.push_back(reader.Error());
        } else {
            known.push_back(std::move(percentage));
        }
    }
    std::sort(errors.begin(), errors.end(),
              [](const LineError& a, const LineError& b) { return a.line < b.line; });
    return layers;
}

}  // namespace console
