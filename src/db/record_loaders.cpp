#include "src/db/record_loaders.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "platform/ed/command_line.h"
#include "platform/mfc/message_box.h"
#include "src/core/GrainSizeRecord.h"
#include "src/core/gbk_text.h"
#include "src/core/number_format.h"
#include "src/db/project_database.h"
#include "src/db/project_tables.h"
#include "src/db/table_filters.h"

namespace {

/// False for a null and for what is no finite number.
bool IsKnown(float value, DBSTATUS status) {
    return status != DBSTATUS_S_ISNULL && std::isfinite(value);
}

/// Whether a chart can be drawn from the item. Size 0 is the pan; none is smaller.
bool IsComplete(const CKeFenItemTable::Record& item) {
    return IsKnown(item.KLLJ, item.KLLJStatus) && IsKnown(item.KLSYZL, item.KLSYZLStatus) &&
           item.KLLJ >= 0.0F;
}

bool LoadResultRow(GrainSizeRecord& record) {
    CKeFenTable table;
    const std::string filter = SampleFilter(record.projectIndex, record.borehole, record.sample);
    if (!table.Open(table.BuildQuery(filter))) {
        ReportTableOpenError(kGrainSizeTableError);
        return false;
    }
    const HRESULT row = table.MoveFirst();
    // A value that is missing can only be the total mass.
    if (FAILED(row) && row != DB_E_ERRORSOCCURRED) {
        ReportTableOpenError(kGrainSizeTableError);
    }
    if (row != S_OK) return false;
    record.totalMass = WidenFloat(table.record.KLTYZL);
    record.testMethod = NarrowText(table.record.KLSYFF);
    return true;
}

/// The number that the text starts with; 0 when it starts with none.
double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0.0;
}

/// Fills in what the layer's rows have; false when there is no row, or one that cannot be read.
bool ReadClasses(const GrainSizeRecord& record, ClassFractions& classes) {
    CSheJiTable table;
    HRESULT result =
        table.OpenFirst(LayerFilter(record.projectIndex, record.mainLayer, record.subLayer));
    if (result != S_OK) return false;
    for (; result == S_OK; result = table.MoveNext()) {
        const auto row = std::find_if(
            kSieveSeries.begin(), kSieveSeries.end(),
            [&](const SieveClass& sieve) { return sieve.layerCode == table.record.CSLX; });
        if (row == kSieveSeries.end() || table.record.CSVStatus == DBSTATUS_S_ISNULL) continue;
        classes[static_cast<std::size_t>(row - kSieveSeries.begin())] =
            LeadingNumber(table.record.CSV) / 100.0;
    }
    return SUCCEEDED(result);
}

}  // namespace

int LoadSample(GrainSizeRecord& record) {
    return LoadResultRow(record) ? LoadTestItems(record) : 0;
}

int LoadTestItems(GrainSizeRecord& record) {
    CKeFenItemTable table;
    HRESULT result =
        table.OpenFirst(SampleItemsFilter(record.projectIndex, record.borehole, record.sample));
    if (result == DB_S_ENDOFROWSET) {
        AfxMessageBox("请在数据表中输入数据"_gbk);
        return 0;
    }
    for (; result == S_OK; result = table.MoveNext()) {
        if (!IsComplete(table.record)) {
            AfxMessageBox("颗分试验项目表数据不全，请检查!"_gbk);
            return 0;
        }
        record.sizes.push_back(WidenFloat(table.record.KLLJ));
        record.amounts.push_back(WidenFloat(table.record.KLSYZL));
    }
    if (FAILED(result)) {
        ReportTableOpenError(kTestItemTableError);
        return 0;
    }
    SortBySize(record);
    return 1;
}

int LoadSampleDepth(const GrainSizeRecord& record, double& depth, double& thickness, bool* failed) {
    CQuYangTable table;
    const HRESULT row =
        table.OpenFirst(SampleFilter(record.projectIndex, record.borehole, record.sample));
    if (failed != nullptr) *failed = FAILED(row);
    if (FAILED(row)) ReportTableOpenError(kSampleTableError);
    if (row != S_OK) return 0;
    if (!IsKnown(table.record.QYSD, table.record.QYSDStatus)) {
        acutPrintf("\n数据库z_c_QuYang取样编号%s数据QYSD不全!"_gbk, record.sample.c_str());
        return 0;
    }
    depth = WidenFloat(table.record.QYSD);
    if (!IsKnown(table.record.QYHD, table.record.QYHDStatus)) {
        acutPrintf("\n数据库z_c_QuYang取样编号%s数据QYHD不全!"_gbk, record.sample.c_str());
        return 0;
    }
    thickness = WidenFloat(table.record.QYHD);
    return 1;
}

int LoadLayerFractions(GrainSizeRecord& record, bool recompute) {
    ClassFractions classes;
    if (!ReadClasses(record, classes)) return 0;
    SetLayerFractions(record, classes, recompute);
    return 1;
}

int CheckProjectNumber(int projectIndex, const std::string& projectNumber) {
    CGongChengTable table;
    const HRESULT row = table.OpenFirst(ProjectFilter(projectIndex));
    if (FAILED(row)) {
        ReportTableOpenError(kProjectTableError);
        return 0;
    }
    if (row != S_OK) {
        AfxMessageBox("打开工点信息数据表中不存在该工程!"_gbk);
        return 0;
    }
    if (projectNumber != table.record.GCBH) {
        AfxMessageBox("该工程工程编号已被修改,数据无法入库!"_gbk);
        return 0;
    }
    return 1;
}
