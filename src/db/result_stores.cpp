#include "src/db/result_stores.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "src/common/module_state.h"
#include "src/core/number_format.h"
#include "src/db/CStoreTransaction.h"
#include "src/db/project_database.h"
#include "src/db/project_tables.h"
#include "src/db/table_filters.h"

namespace {

template <class Value>
void Set(CKeFenTable::Record& row, const CKeFenTable::FloatColumn& column,
         const std::optional<Value>& value) {
    row.*column.status = value ? DBSTATUS_S_OK : DBSTATUS_S_ISNULL;
    if (value) row.*column.value = static_cast<float>(*value);
}

std::optional<double> Diameter(const GrainSizeRecord& record, std::size_t i) {
    return DeterminedDiameter(record.diameters, static_cast<DiameterIndex>(i));
}

std::optional<float> Rounded(const std::optional<double>& value) {
    if (!value) return std::nullopt;
    return Round3(*value);
}

/// Opens the table at the sample's result row; `opened` tells a missing row from a missing table.
bool FindResultRow(CKeFenTable& table, const GrainSizeRecord& record, bool& opened) {
    const std::string filter = SampleFilter(record.projectIndex, record.borehole, record.sample);
    opened = table.Open(table.BuildQuery(filter));
    return opened && table.MoveFirst() == S_OK;
}

int StoreSampleValues(const GrainSizeRecord& record) {
    CStoreTransaction transaction;
    CKeFenTable table;
    bool opened = false;
    if (!FindResultRow(table, record, opened)) {
        if (!opened) {
            transaction.Abort();
            ReportTableOpenError(kGrainSizeTableError);
        }
        return 0;
    }
    for (std::size_t i = 0; i < kDiameterCount; ++i) {
        Set(table.record, CKeFenTable::kDiameterColumns[i], Diameter(record, i));
    }
    Set(table.record, CKeFenTable::kUniformityColumn, Rounded(record.uniformity));
    Set(table.record, CKeFenTable::kCurvatureColumn, Rounded(record.curvature));
    if (SUCCEEDED(table.SetData())) table.Update();
    return transaction.Commit() ? 1 : 0;
}

/// One parameter of a layer on its way into the table.
struct Slot {
    SHORT code;
    std::string text;  ///< empty: the value is not determined
    bool written = false;
};

/// In the order in which missing rows are made.
std::vector<Slot> MakeSlots(const GrainSizeRecord& record) {
    std::vector<Slot> slots;
    const auto add = [&](SHORT code, const std::optional<double>& value) {
        slots.push_back({code, value ? FormatFixed(*value, 3) : std::string()});
    };
    for (std::size_t i = 0; i < kDiameterCount; ++i) {
        add(kDiameterLevels[i].layerCode, Diameter(record, i));
    }
    add(kUniformityCode, record.uniformity);
    add(kCurvatureCode, record.curvature);
    return slots;
}

void SetText(CSheJiTable::Record& record, const std::string& text) {
    const std::size_t length = text.copy(record.CSV, sizeof(record.CSV) - 1);
    record.CSV[length] = '\0';
    record.CSVStatus = DBSTATUS_S_OK;
}

/// Brings the current row in line with its slot. Further rows of the same code stay.
void StoreIntoRow(CSheJiTable& table, std::vector<Slot>& slots) {
    const auto slot = std::find_if(slots.begin(), slots.end(), [&](const Slot& candidate) {
        return candidate.code == table.record.CSLX;
    });
    if (slot == slots.end() || slot->written) return;
    if (slot->text.empty()) {
        if (SUCCEEDED(table.Delete())) table.Update();
        return;
    }
    SetText(table.record, slot->text);
    slot->written = true;
    if (SUCCEEDED(table.SetData())) table.Update();
}

void InsertMissing(CSheJiTable& table, const GrainSizeRecord& layer,
                   const std::vector<Slot>& slots) {
    for (const Slot& slot : slots) {
        if (slot.written || slot.text.empty()) continue;
        table.record.GCSY = layer.projectIndex;
        table.record.ZCBH = static_cast<BYTE>(layer.mainLayer);
        table.record.YCBH = static_cast<BYTE>(layer.subLayer);
        table.record.CSLX = slot.code;
        SetText(table.record, slot.text);
        if (SUCCEEDED(table.Insert())) table.Update();
    }
}

int StoreLayerValues(const GrainSizeRecord& layer) {
    std::vector<Slot> slots = MakeSlots(layer);
    CStoreTransaction transaction;
    CSheJiTable table;
    HRESULT result =
        table.OpenFirst(LayerFilter(layer.projectIndex, layer.mainLayer, layer.subLayer));
    if (result != S_OK) return 0;
    for (; result == S_OK; result = table.MoveNext()) StoreIntoRow(table, slots);
    // A row that cannot be read may be one of those that seem to be missing.
    if (FAILED(result)) return 0;
    InsertMissing(table, layer, slots);
    return transaction.Commit() ? 1 : 0;
}

}  // namespace

int StoreCurveValues(const GrainSizeRecord& record, int chartMode) {
    switch (chartMode) {
        case kSampleCharts:
            return StoreSampleValues(record);
        case kLayerCharts:
            return StoreLayerValues(record);
        default:
            return 1;
    }
}

int StoreClassPercentages(const GrainSizeRecord& record) {
    CKeFenTable table;
    bool opened = false;
    if (!FindResultRow(table, record, opened)) {
        if (!opened) ReportTableOpenError(kGrainSizeTableError);
        return 0;
    }
    for (std::size_t i = 0; i < kSieveSeries.size(); ++i) {
        Set(table.record, CKeFenTable::kClassColumns[i], record.classPercent[i]);
    }
    Set(table.record, CKeFenTable::kFineColumn, record.finePercent);
    if (SUCCEEDED(table.SetData())) table.Update();
    return 1;
}
