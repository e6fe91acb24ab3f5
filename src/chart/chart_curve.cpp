#include "src/chart/chart_curve.h"

#include <cstdlib>
#include <memory>

#include "platform/ed/command_line.h"
#include "platform/mfc/message_box.h"
#include "src/common/module_state.h"
#include "src/core/curve_shape.h"
#include "src/core/gbk_text.h"
#include "src/core/percentages.h"
#include "src/db/CStoreTransaction.h"
#include "src/db/record_loaders.h"
#include "src/db/result_stores.h"
#include "src/entity/CKFCurve.h"

namespace {

constexpr double kValueHeight = 0.8;  // of the chart's text height

/// All that is stored of a sample, in one step; a layer has no percentages of its own to store.
void StoreResults(GrainSizeRecord& record, CKFCurve& curve) {
    if (record.kind == RecordKind::layer) {
        curve.StoreToDatabase();
        return;
    }
    CStoreTransaction transaction;
    curve.StoreToDatabase();
    ComputeClassPercentages(record);
    if (StoreClassPercentages(record) != 1) {
        acutPrintf("%s", "\n所占的百分比入库失败!"_gbk);
    }
    transaction.Commit();
}

bool LoadRecord(GrainSizeRecord& record) {
    return record.kind == RecordKind::layer ? LoadLayerFractions(record, RecomputePercentages) == 1
                                            : LoadSample(record) == 1;
}

}  // namespace

bool LoadChartData(RecordKind kind, ChartData& data) {
    data = {};
    data.record.kind = kind;
    data.record.projectIndex = ProjectContext.GCSY;
    data.record.borehole = CurrentBorehole;
    data.record.sample = CurrentSample;
    data.record.mainLayer = std::atoi(CurrentMainLayer.c_str());
    data.record.subLayer = std::atoi(CurrentSubLayer.c_str());
    if (!LoadRecord(data.record)) {
        return false;
    }
    if (!ComputePassing(data.record, data.passing)) {
        AfxMessageBox("筛余质量的和大于试样的总质量，请检查数据表中的数据！"_gbk);
        return false;
    }
    return true;
}

void DrawDots(const CSheetPen& pen, const AcGePoint3dArray& points) {
    for (const AcGePoint3d& point : points) {
        pen.Dot(point.x, point.y);
    }
}

void AddCurve(const CSheetPen& pen, GrainSizeRecord& record, const CurveGrid& grid,
              const AcGePoint3dArray& measured, const AcGePoint3dArray& valuePoints) {
    auto curve = std::make_unique<CKFCurve>();
    curve->SetIdentity(static_cast<Adesk::Int16>(ProjectContext.GCBZ),
                       static_cast<Adesk::Int16>(record.projectIndex), ProjectContext.GCBH,
                       record.borehole, record.sample);
    curve->SetGrid(grid.gridOrigin, grid.wideAxis, grid.decadeLength, grid.gridWidth,
                   grid.gridHeight, kValueHeight * ChartTextHeight);
    const CurveForm form = GuardedCurves ? CurveForm::guarded : CurveForm::plain;
    curve->SetPoints(FitPoints(measured, grid, form), valuePoints);
    curve->SetTextStyleId(QvFontStyleId);
    if (record.kind == RecordKind::layer) {
        curve->SetLayerKey(CurrentMainLayer, CurrentSubLayer);
    }
    curve->ComputeDiameters();
    curve->setColorIndex(AcCmColor::kNone, true);
    StoreResults(record, *curve);
    AcDbObjectId id;
    pen.Tools().AppendEntity(curve.release(), id, pen.Sheet());
}
