#include "src/db/class_percentage_store.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "src/common/module_state.h"
#include "src/core/number_format.h"
#include "src/core/sieve_series.h"
#include "src/db/CKeFenTable.h"
#include "src/db/table_filters.h"
#include "src/db/table_open_error.h"

namespace {

/// Two sizes, or two percentages, at most this far apart count as the same.
constexpr double kSame = 0.0001;
/// Sieves below this size, mm, hold the fine fraction.
constexpr double kFineBound = 0.0051;

void ClearPercentages(CKeFenTable::Record& record) {
    std::fill(std::begin(record.KL), std::end(record.KL), 0.0F);
    std::fill(std::begin(record.KLStatus), std::end(record.KLStatus), DBSTATUS_S_OK);
    record.KLHL = 0.0F;
    record.KLHLStatus = DBSTATUS_S_OK;
}

/// Sets the percentage of each class whose size is in the series; a size that is not passes its
/// mass by. Returns the largest percentage, not rounded.
double SetClasses(CKeFenTable::Record& record, const std::vector<double>& sizes,
                  const std::vector<double>& masses, double total) {
    double largest = 0.0;
    double cumulated = 0.0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const double before = cumulated;
        cumulated += masses[i];
        const auto sieve = std::find_if(
            kSieveSeries.begin(), kSieveSeries.end(),
            [&](const SieveClass& known) { return std::abs(sizes[i] - known.size) < kSame; });
        if (sieve == kSieveSeries.end()) continue;
        const double percent = (cumulated - before) / total * 100.0;
        record.KL[sieve - kSieveSeries.begin()] = Round3(percent);
        largest = std::max(largest, percent);
    }
    return largest;
}

/// Puts what rounding took from or added to 100 on the largest class, if its stored value is still
/// that of `largest`.
void EvenOut(CKeFenTable::Record& record, double largest) {
    float sum = 0.0F;
    for (const float percent : record.KL) sum += percent;
    const double missing = 100.0 - sum;
    if (std::abs(missing) <= kSame || std::abs(missing) >= 0.1 || missing >= largest) return;
    const auto column =
        std::find_if(std::begin(record.KL), std::end(record.KL),
                     [&](float percent) { return std::abs(percent - largest) < kSame; });
    if (column != std::end(record.KL)) *column = static_cast<float>(*column + missing);
}

void SetFineFraction(CKeFenTable::Record& record, const std::vector<double>& sizes,
                     const std::vector<double>& masses, double total) {
    double fine = 0.0;
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        if (sizes[i] < kFineBound && sizes[i - 1] < kFineBound) fine += masses[i];
    }
    if (fine > 1e-07) record.KLHL = Round3(fine / total * 100.0);
}

}  // namespace

int StoreClassPercentages(const std::vector<double>& sizes, const std::vector<double>& masses,
                          double total) {
    CKeFenTable table;
    const std::string filter = SampleFilter(ProjectContext.GCSY, CurrentBorehole, CurrentSample);
    if (!table.Open(table.BuildQuery(filter))) {
        ReportTableOpenError(kGrainSizeTableError);
        return 0;
    }
    if (table.MoveFirst() != S_OK) return 0;
    ClearPercentages(table.record);
    EvenOut(table.record, SetClasses(table.record, sizes, masses, total));
    SetFineFraction(table.record, sizes, masses, total);
    if (SUCCEEDED(table.SetData())) table.Update();
    return 1;
}
