#include "src/chart/chart_data.h"

#include "platform/win32/code_page.h"
#include "src/common/module_state.h"
#include "src/core/percent_passing.h"
#include "src/db/CKeFenTable.h"
#include "src/db/float_widening.h"
#include "src/db/layer_loader.h"
#include "src/db/sample_loader.h"
#include "src/db/table_filters.h"
#include "src/db/table_open_error.h"

namespace {

bool LoadResultRow(GrainSizeRecord& record) {
    CKeFenTable table;
    const std::string filter = SampleFilter(record.projectIndex, record.borehole, record.sample);
    if (!table.Open(table.BuildQuery(filter))) {
        ReportTableOpenError(kGrainSizeTableError);
        return false;
    }
    const HRESULT row = table.MoveFirst();
    // A value that is missing can only be the total mass: the sample counts as one without a row.
    if (FAILED(row) && row != DB_E_ERRORSOCCURRED) {
        ReportTableOpenError(kGrainSizeTableError);
    }
    if (row != S_OK) {
        return false;
    }
    record.totalMass = WidenFloat(table.record.KLTYZL);
    record.testMethod = win32::GbkFromUtf16(table.record.KLSYFF);
    return true;
}

bool LoadRecord(GrainSizeRecord& record) {
    if (record.kind == RecordKind::layer) {
        return LoadLayerFractions(record.sizes, record.amounts) == 1;
    }
    return LoadResultRow(record) && LoadTestItems(record.sizes, record.amounts) == 1;
}

}  // namespace

bool LoadChartData(RecordKind kind, ChartData& data) {
    data = {};
    data.record.kind = kind;
    data.record.projectIndex = ProjectContext.GCSY;
    data.record.borehole = CurrentBorehole;
    data.record.sample = CurrentSample;
    data.record.mainLayer = CurrentMainLayer;
    data.record.subLayer = CurrentSubLayer;
    return LoadRecord(data.record) && ComputePassing(data.record, data.passing);
}
