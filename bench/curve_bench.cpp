// The curve's own work: what every redraw and every grip edit repeats.

#include <benchmark/benchmark.h>

#include <cmath>

#include "platform/ge/AcGePoint3d.h"
#include "platform/gi/AcGiWorldDraw.h"
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
    const CurveGrid grid = CurveGrid::For(AcGePoint3d(0.0, 0.0, 0.0), 160.0, 65.0, 60.0);
    curve.SetGrid(grid.gridOrigin, grid.wideAxis, grid.decadeLength, grid.gridWidth,
                  grid.gridHeight, 2.4);
    curve.SetPoints(points, labels);
}

void EightDiameters(benchmark::State& state) {
    CKFCurve curve;
    Fill(curve);
    for ([[maybe_unused]] const auto iteration : state) {
        curve.ComputeDiameters();
        benchmark::DoNotOptimize(curve);
    }
}
BENCHMARK(EightDiameters);

/// Takes what is drawn and shows none of it.
class UnseenDraw : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    AcGiWorldGeometry& geometry() const override { return const_cast<UnseenDraw&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override { return const_cast<UnseenDraw&>(*this); }
    int Texts() const { return texts_; }

private:
    Adesk::Boolean polyline(Adesk::UInt32, const AcGePoint3d* points) override {
        benchmark::DoNotOptimize(points);
        return true;
    }
    Adesk::Boolean polygon(Adesk::UInt32, const AcGePoint3d*) override { return true; }
    Adesk::Boolean circle(const AcGePoint3d&, double, const AcGeVector3d&) override { return true; }
    Adesk::Boolean circularArc(const AcGePoint3d&, double, double, double) override { return true; }
    Adesk::Boolean wideLine(const AcGePoint3d&, const AcGePoint3d&, double, double) override {
        return true;
    }
    Adesk::Boolean text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&,
                        const char* message, Adesk::Int32, Adesk::Boolean,
                        const AcGiTextStyle&) override {
        benchmark::DoNotOptimize(message);
        ++texts_;
        return true;
    }
    void setColor(Adesk::UInt16) override {}
    void setSelectionMarker(Adesk::Int32) override {}

    int texts_ = 0;
};

/// From the end of a drag to the new labels: the point moves, the eight diameters are read off the
/// new shape, curve and label texts are made anew.
void GripMoveToNewLabels(benchmark::State& state) {
    CKFCurve curve;
    Fill(curve);
    UnseenDraw draw;
    double step = 0.5;
    for ([[maybe_unused]] const auto iteration : state) {
        curve.moveGripPointsAt({10}, {0.0, step, 0.0});
        curve.worldDraw(&draw);
        step = -step;
    }
    if (draw.Texts() != 7 * state.iterations()) {
        state.SkipWithError("not every drawing had its seven labels");
    }
}
BENCHMARK(GripMoveToNewLabels);

}  // namespace

BENCHMARK_MAIN();
