#include "src/db/layer_loader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <string_view>

#include "src/common/module_state.h"
#include "src/core/sieve_series.h"
#include "src/db/CSheJiTable.h"
#include "src/db/table_filters.h"

namespace {

constexpr double kNotRead = -1.0;
using ClassFractions = std::array<double, kSieveSeries.size()>;

/// The number that the text starts with; 0 when it starts with none.
double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0.0;
}

/// Fills in what the layer's rows have; false when there is no row, or one that cannot be read.
bool ReadClasses(ClassFractions& classes) {
    CSheJiTable table;
    HRESULT result =
        table.OpenFirst(LayerFilter(ProjectContext.GCSY, CurrentMainLayer, CurrentSubLayer));
    if (result != S_OK) return false;
    for (; result == S_OK; result = table.MoveNext()) {
        const auto row = std::find_if(
            kSieveSeries.begin(), kSieveSeries.end(),
            [&](const SieveClass& sieve) { return sieve.layerCode == table.record.CSLX; });
        if (row == kSieveSeries.end() || table.record.CSVStatus == DBSTATUS_S_ISNULL) continue;
        classes[static_cast<std::size_t>(row - kSieveSeries.begin())] =
            LeadingNumber(table.record.CSV) / 100.0;
    }
    return SUCCEEDED(result);
}

void ScaleToOne(std::vector<double>& fractions) {
    const double sum = std::accumulate(fractions.begin(), fractions.end(), 0.0);
    if (sum == 0.0) return;
    for (double& fraction : fractions) fraction /= sum;
}

}  // namespace

int LoadLayerFractions(std::vector<double>& sizes, std::vector<double>& fractions) {
    ClassFractions classes;
    classes.fill(kNotRead);
    if (!ReadClasses(classes)) return 0;
    for (std::size_t i = 0; i < classes.size(); ++i) {
        if (!(classes[i] > -0.5)) continue;
        sizes.push_back(kSieveSeries[i].size);
        fractions.push_back(classes[i]);
    }
    if (RecomputePercentages) ScaleToOne(fractions);
    if (classes.back() > -0.5) {
        sizes.pop_back();
        fractions.pop_back();
    }
    return 1;
}
