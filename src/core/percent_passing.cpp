#include "src/core/percent_passing.h"

#include <cmath>

#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"

namespace {

constexpr double kMassTolerance = 0.00001;

bool ComputeSamplePassing(const GrainSizeRecord& record, std::vector<double>& passing) {
    const std::vector<double>& masses = record.amounts;
    double retained = 0.0;
    for (double mass : masses) {
        retained += mass;
    }
    const bool weighed = record.totalMass > 0.0 && std::isfinite(record.totalMass);
    if (!weighed || retained - record.totalMass > kMassTolerance) {
        AfxMessageBox("筛余质量的和大于试样的总质量，请检查数据表中的数据！"_gbk);
        return false;
    }
    // From the finest item up, so that what is finer is a sum and not a difference of large masses.
    double finer = record.totalMass - retained;
    passing.assign(masses.size(), 0.0);
    for (std::size_t i = masses.size(); i-- > 0;) {
        passing[i] = finer / record.totalMass;
        finer += masses[i];
    }
    return true;
}

void ComputeLayerPassing(const GrainSizeRecord& record, std::vector<double>& passing) {
    passing.clear();
    double coarser = 0.0;
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        if (record.sizes[i] != 0.0) {
            coarser += record.amounts[i];
        }
        passing.push_back(1.0 - coarser);
    }
}

}  // namespace

bool ComputePassing(const GrainSizeRecord& record, std::vector<double>& passing) {
    if (record.kind == RecordKind::sample) {
        return ComputeSamplePassing(record, passing);
    }
    ComputeLayerPassing(record, passing);
    return true;
}

AcGePoint3dArray CurvePoints(const GrainSizeRecord& record, const std::vector<double>& passing,
                             const CurveGrid& grid) {
    AcGePoint3dArray points;
    points.setPhysicalLength(static_cast<int>(record.sizes.size()));
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        if (record.sizes[i] != 0.0) {
            points.append({grid.XOfSize(record.sizes[i]), grid.YOfPassing(passing[i]), 0.0});
        }
    }
    return points;
}
