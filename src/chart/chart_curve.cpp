#include "src/chart/chart_curve.h"

#include <memory>

#include "platform/ed/command_line.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"
#include "src/db/CStoreTransaction.h"
#include "src/db/class_percentage_store.h"
#include "src/entity/CKFCurve.h"

namespace {

constexpr double kValueHeight = 0.8;  // of the chart's text height

/// All that is stored of a sample, in one step; a layer has no percentages of its own to store.
void StoreResults(const GrainSizeRecord& record, CKFCurve& curve) {
    if (record.kind == RecordKind::layer) {
        curve.StoreToDatabase();
        return;
    }
    CStoreTransaction transaction;
    curve.StoreToDatabase();
    if (StoreClassPercentages(record.sizes, record.amounts, record.totalMass) != 1) {
        acutPrintf("%s", "\n所占的百分比入库失败!"_gbk);
    }
    transaction.Commit();
}

}  // namespace

void DrawDots(const CSheetPen& pen, const AcGePoint3dArray& points) {
    for (const AcGePoint3d& point : points) {
        pen.Dot(point.x, point.y);
    }
}

void AddCurve(const CSheetPen& pen, const GrainSizeRecord& record, const CurveGrid& grid,
              const AcGePoint3dArray& points, const AcGePoint3dArray& valuePoints) {
    auto curve = std::make_unique<CKFCurve>();
    curve->SetIdentity(static_cast<Adesk::Int16>(ProjectContext.GCBZ),
                       static_cast<Adesk::Int16>(record.projectIndex), ProjectContext.GCBH,
                       record.borehole, record.sample);
    curve->SetGrid(grid, kValueHeight * ChartTextHeight);
    curve->SetPoints(points, valuePoints);
    curve->SetTextStyleId(QvFontStyleId);
    if (record.kind == RecordKind::layer) {
        curve->SetLayerKey(record.mainLayer, record.subLayer);
    }
    curve->ComputeDiameters();
    curve->setColorIndex(AcCmColor::kNone, true);
    StoreResults(record, *curve);
    AcDbObjectId id;
    pen.Tools().AppendEntity(curve.release(), id, pen.Sheet());
}
