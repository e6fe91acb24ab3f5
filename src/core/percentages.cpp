#include "src/core/percentages.h"

#include <algorithm>
#include <cmath>

#include "src/core/number_format.h"

namespace {

/// Two sizes, or two percentages, at most this far apart count as the same.
constexpr double kSame = 0.0001;
/// Sieves below this size, mm, hold the fine fraction.
constexpr double kFineBound = 0.0051;

/// Sets the percentage of each class whose size is in the series; a size that is not passes its
/// mass by. Returns the largest percentage, not rounded.
double SetClasses(GrainSizeRecord& record) {
    double largest = 0.0;
    double cumulated = 0.0;
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        const double before = cumulated;
        cumulated += record.amounts[i];
        const auto sieve =
            std::find_if(kSieveSeries.begin(), kSieveSeries.end(), [&](const SieveClass& known) {
                return std::abs(record.sizes[i] - known.size) < kSame;
            });
        if (sieve == kSieveSeries.end()) {
            continue;
        }
        const double percent = (cumulated - before) / record.totalMass * 100.0;
        record.classPercent[static_cast<std::size_t>(sieve - kSieveSeries.begin())] =
            Round3(percent);
        largest = std::max(largest, percent);
    }
    return largest;
}

/// Puts what rounding took from or added to 100 on the largest class, if its rounded value is still
/// that of `largest`.
void EvenOut(GrainSizeRecord& record, double largest) {
    float sum = 0.0F;
    for (const std::optional<float>& percent : record.classPercent) {
        sum += *percent;
    }
    const double missing = 100.0 - sum;
    if (std::abs(missing) <= kSame || std::abs(missing) >= 0.1 || missing >= largest) {
        return;
    }
    const auto column = std::find_if(
        record.classPercent.begin(), record.classPercent.end(),
        [&](const std::optional<float>& percent) { return std::abs(*percent - largest) < kSame; });
    if (column != record.classPercent.end()) {
        *column = static_cast<float>(**column + missing);
    }
}

void SetFineFraction(GrainSizeRecord& record) {
    double fine = 0.0;
    for (std::size_t i = 1; i < record.sizes.size(); ++i) {
        if (record.sizes[i] < kFineBound && record.sizes[i - 1] < kFineBound) {
            fine += record.amounts[i];
        }
    }
    record.finePercent = fine > 1e-07 ? Round3(fine / record.totalMass * 100.0) : 0.0F;
}

constexpr int kShownDecimals = 1;
constexpr double kSummedAbove = 1e-5;
constexpr double kNudgedAbove = 0.01;
constexpr double kNudge = 0.005;
constexpr double kSumTolerance = 0.001;

double SumOfShown(std::span<const double> masses, double totalMass) {
    double sum = 0.0;
    for (double mass : masses) {
        if (mass > kSummedAbove) {
            sum += RoundAsPrinted(mass / totalMass * 100.0, kShownDecimals);
        }
    }
    return sum;
}

/// The mass at that position among those large enough to be nudged; null when there are fewer.
double* NudgeableMass(std::span<double> masses, std::size_t position) {
    for (double& mass : masses) {
        if (mass > kNudgedAbove && position-- == 0) {
            return &mass;
        }
    }
    return nullptr;
}

}  // namespace

void ComputeClassPercentages(GrainSizeRecord& record) {
    record.classPercent.fill(0.0F);
    EvenOut(record, SetClasses(record));
    SetFineFraction(record);
}

std::string ShownPercentage(double amount, double total) {
    return FormatFixed(amount / total * 100.0, kShownDecimals);
}

void NudgeToHundred(std::span<double> masses, double totalMass) {
    for (std::size_t nudges = 0; nudges < masses.size(); ++nudges) {
        const double sum = SumOfShown(masses, totalMass);
        double* mass = NudgeableMass(masses, nudges);
        if (std::abs(sum - 100.0) < kSumTolerance || mass == nullptr) {
            return;
        }
        *mass += sum > 100.0 ? -kNudge : kNudge;
    }
}
