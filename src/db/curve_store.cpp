#include "src/db/curve_store.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <optional>

#include "src/common/module_state.h"
#include "src/core/characteristic_diameters.h"
#include "src/core/number_format.h"
#include "src/db/CKeFenTable.h"
#include "src/db/CSheJiTable.h"
#include "src/db/CStoreTransaction.h"
#include "src/db/table_filters.h"
#include "src/db/table_open_error.h"

namespace {

// For each of the curve's diameters, in the order of DiameterIndex: its place in the result row,
// and its code among the layer's parameters.
constexpr std::size_t kRowPlaces[kDiameterCount] = {7, 5, 4, 3, 2, 1, 0, 6};
constexpr SHORT kDiameterCodes[kDiameterCount] = {1126, 1124, 1123, 1122, 1121, 1120, 1119, 1125};
constexpr SHORT kUniformityCode = 1128;
constexpr SHORT kCurvatureCode = 1127;

std::optional<double> Diameter(const CurveValues& curve, std::size_t i) {
    return DeterminedDiameter(curve.diameters, static_cast<DiameterIndex>(i));
}

void SetFloat(float& field, DBSTATUS& status, const std::optional<double>& value) {
    status = value ? DBSTATUS_S_OK : DBSTATUS_S_ISNULL;
    if (value) field = static_cast<float>(*value);
}

std::optional<double> Rounded(const std::optional<double>& value) {
    if (!value) return std::nullopt;
    return Round3(*value);
}

int StoreSampleValues(const CurveValues& curve) {
    CStoreTransaction transaction;
    CKeFenTable table;
    const std::string filter = SampleFilter(curve.projectIndex, curve.borehole, curve.sample);
    if (!table.Open(table.BuildQuery(filter))) {
        transaction.Abort();
        ReportTableOpenError(kGrainSizeTableError);
        return 0;
    }
    if (table.MoveFirst() != S_OK) return 0;
    auto& record = table.record;
    for (std::size_t i = 0; i < kDiameterCount; ++i) {
        SetFloat(record.KLD[kRowPlaces[i]], record.KLDStatus[kRowPlaces[i]], Diameter(curve, i));
    }
    SetFloat(record.KLBJXS, record.KLBJXSStatus, Rounded(Uniformity(curve.diameters)));
    SetFloat(record.KLQLXS, record.KLQLXSStatus, Rounded(Curvature(curve.diameters)));
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
std::vector<Slot> MakeSlots(const CurveValues& curve) {
    std::vector<Slot> slots;
    const auto add = [&](SHORT code, const std::optional<double>& value) {
        slots.push_back({code, value ? FormatFixed(*value, 3) : std::string()});
    };
    for (std::size_t i = 0; i < kDiameterCount; ++i) add(kDiameterCodes[i], Diameter(curve, i));
    add(kUniformityCode, Uniformity(curve.diameters));
    add(kCurvatureCode, Curvature(curve.diameters));
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

void InsertMissing(CSheJiTable& table, const CurveValues& curve, const std::vector<Slot>& slots) {
    for (const Slot& slot : slots) {
        if (slot.written || slot.text.empty()) continue;
        table.record.GCSY = curve.projectIndex;
        table.record.ZCBH = static_cast<BYTE>(curve.mainLayer);
        table.record.YCBH = static_cast<BYTE>(curve.subLayer);
        table.record.CSLX = slot.code;
        SetText(table.record, slot.text);
        if (SUCCEEDED(table.Insert())) table.Update();
    }
}

int StoreLayerValues(const CurveValues& curve) {
    std::vector<Slot> slots = MakeSlots(curve);
    CStoreTransaction transaction;
    CSheJiTable table;
    HRESULT result =
        table.OpenFirst(LayerFilter(curve.projectIndex, curve.mainLayer, curve.subLayer));
    if (result != S_OK) return 0;
    for (; result == S_OK; result = table.MoveNext()) StoreIntoRow(table, slots);
    // A row that cannot be read may be one of those that seem to be missing.
    if (FAILED(result)) return 0;
    InsertMissing(table, curve, slots);
    return transaction.Commit() ? 1 : 0;
}

}  // namespace

int StoreCurveValues(const CurveValues& curve, int chartMode) {
    switch (chartMode) {
        case kSampleCharts:
            return StoreSampleValues(curve);
        case kLayerCharts:
            return StoreLayerValues(curve);
        default:
            return 1;
    }
}
