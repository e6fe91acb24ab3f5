#include "src/core/soil_classification.h"

#include "src/core/gbk_text.h"

namespace {

/// Masses that add up on paper add up here: their sum in binary may be off in its last digits.
constexpr double kTolerance = 1e-9;

bool IsAbove(double share, double bound) {
    return share - bound > kTolerance;
}

double ShareCoarserThan(double size, const GrainSizeRecord& record) {
    double sum = 0.0;
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        if (record.sizes[i] > size) {
            sum += record.amounts[i];
        }
    }
    return record.kind == RecordKind::sample ? sum / record.totalMass : sum;
}

std::string ClassifyFineSand(const GrainSizeRecord& record, int standardCode) {
    if (standardCode == 1) {
        return IsAbove(ShareCoarserThan(0.09, record), 0.75) ? "细砂"_gbk : "粉砂"_gbk;
    }
    const double share = ShareCoarserThan(0.0749, record);
    if (IsAbove(share, 0.85)) {
        return "细砂"_gbk;
    }
    return IsAbove(share, 0.5) ? "粉砂"_gbk : "";
}

}  // namespace

std::string ClassifySoil(const GrainSizeRecord& record, int standardCode) {
    // The bounds lie just under the sieve sizes, so that a sieve of the size itself counts.
    const auto mostlyCoarserThan = [&record](double size) {
        return IsAbove(ShareCoarserThan(size, record), 0.5);
    };
    if (mostlyCoarserThan(199.99)) {
        return "漂石,块石"_gbk;
    }
    if (mostlyCoarserThan(19.99)) {
        return "卵石,碎石"_gbk;
    }
    const double gravelShare = ShareCoarserThan(1.99, record);
    if (IsAbove(gravelShare, 0.5)) {
        return "圆砾,角砾"_gbk;
    }
    // Up to 0.50001, which is more than is left here.
    if (IsAbove(gravelShare, 0.24999)) {
        return "砾砂"_gbk;
    }
    if (mostlyCoarserThan(0.49)) {
        return "粗砂"_gbk;
    }
    if (mostlyCoarserThan(0.249)) {
        return "中砂"_gbk;
    }
    return ClassifyFineSand(record, standardCode);
}
