#include "src/core/GrainSizeRecord.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <tuple>
#include <utility>

namespace {

constexpr double kNoValueUpTo = -0.5;

void ScaleToOne(std::vector<double>& fractions) {
    const double sum = std::accumulate(fractions.begin(), fractions.end(), 0.0);
    if (sum != 0.0) {
        for (double& fraction : fractions) {
            fraction /= sum;
        }
    }
}

}  // namespace

void SortBySize(GrainSizeRecord& record) {
    std::vector<std::pair<double, double>> items;
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        items.emplace_back(record.sizes[i], record.amounts[i]);
    }
    std::stable_sort(items.begin(), items.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    for (std::size_t i = 0; i < items.size(); ++i) {
        std::tie(record.sizes[i], record.amounts[i]) = items[i];
    }
}

void SetLayerFractions(GrainSizeRecord& record, const ClassFractions& classes, bool recompute) {
    record.sizes.clear();
    record.amounts.clear();
    for (std::size_t i = 0; i < classes.size(); ++i) {
        if (classes[i] && *classes[i] > kNoValueUpTo) {
            record.sizes.push_back(kSieveSeries[i].size);
            record.amounts.push_back(*classes[i]);
        }
    }
    if (recompute) {
        ScaleToOne(record.amounts);
    }
    if (!record.sizes.empty() && record.sizes.back() == 0.0) {
        record.sizes.pop_back();
        record.amounts.pop_back();
    }
}
