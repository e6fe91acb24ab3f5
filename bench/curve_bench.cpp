// The curve's own work: what every redraw and every grip edit repeats.

#include <benchmark/benchmark.h>

#include <cmath>

#include "platform/ge/AcGePoint3dArray.h"
#include "src/entity/CKFCurve.h"

namespace {

/// A 20-point grading curve on the A3 chart's grid.
void Fill(CKFCurve& curve) {
    AcGePoint3dArray points;
    for (int i = 0; i < 20; ++i) {
        const double share = i / 19.0;
        points.append(
            AcGePoint3d(10.0 + 130.0 * share, -32.5 - 32.4 * std::tanh(4.0 * (share - 0.5)), 0.0));
    }
    AcGePoint3dArray labels;
    for (int i = 0; i < 7; ++i) {
        labels.append(AcGePoint3d(140.0, -5.0 - 6.5 * i, 0.0));
    }
    curve.SetIdentity(2, 1, "2026-018", "ZK1", "1");
    curve.SetGrid(CurveGrid::For(AcGePoint3d(0.0, 0.0, 0.0), 160.0, 65.0, 60.0), 2.4);
    curve.SetPoints(points, labels);
}

void EightDiameters(benchmark::State& state) {
    CKFCurve curve;
    Fill(curve);
    for (auto _ : state) {
        curve.ComputeDiameters();
        benchmark::DoNotOptimize(curve);
    }
}
BENCHMARK(EightDiameters);

}  // namespace

BENCHMARK_MAIN();
