#include "src/core/shown_percentages.h"

#include <cmath>

#include "src/core/number_format.h"

namespace {

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
