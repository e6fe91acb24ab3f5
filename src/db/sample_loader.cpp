#include "src/db/sample_loader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "platform/ed/command_line.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"
#include "src/db/CKeFenItemTable.h"
#include "src/db/CQuYangTable.h"
#include "src/db/float_widening.h"
#include "src/db/table_filters.h"
#include "src/db/table_open_error.h"

namespace {

/// Orders both lists by size, the largest first.
void SortBySize(std::vector<double>& sizes, std::vector<double>& masses) {
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return sizes[a] > sizes[b]; });
    std::vector<double> sortedSizes;
    std::vector<double> sortedMasses;
    for (const std::size_t from : order) {
        sortedSizes.push_back(sizes[from]);
        sortedMasses.push_back(masses[from]);
    }
    sizes = std::move(sortedSizes);
    masses = std::move(sortedMasses);
}

/// False for a null and for what is no finite number.
bool IsKnown(float value, DBSTATUS status) {
    return status != DBSTATUS_S_ISNULL && std::isfinite(value);
}

/// Whether a chart can be drawn from the item. Size 0 is the pan; none is smaller.
bool IsComplete(const CKeFenItemTable::Record& item) {
    return IsKnown(item.KLLJ, item.KLLJStatus) && IsKnown(item.KLSYZL, item.KLSYZLStatus) &&
           item.KLLJ >= 0.0F;
}

}  // namespace

int LoadSampleDepth(double& depth, double& thickness, bool* failed) {
    CQuYangTable table;
    const HRESULT row =
        table.OpenFirst(SampleFilter(ProjectContext.GCSY, CurrentBorehole, CurrentSample));
    if (failed != nullptr) *failed = FAILED(row);
    if (FAILED(row)) ReportTableOpenError(kSampleTableError);
    if (row != S_OK) return 0;
    if (!IsKnown(table.record.QYSD, table.record.QYSDStatus)) {
        acutPrintf("\n数据库z_c_QuYang取样编号%s数据QYSD不全!"_gbk, CurrentSample.c_str());
        return 0;
    }
    depth = WidenFloat(table.record.QYSD);
    if (!IsKnown(table.record.QYHD, table.record.QYHDStatus)) {
        acutPrintf("\n数据库z_c_QuYang取样编号%s数据QYHD不全!"_gbk, CurrentSample.c_str());
        return 0;
    }
    thickness = WidenFloat(table.record.QYHD);
    return 1;
}

int LoadTestItems(std::vector<double>& sizes, std::vector<double>& masses) {
    CKeFenItemTable table;
    HRESULT result =
        table.OpenFirst(SampleItemsFilter(ProjectContext.GCSY, CurrentBorehole, CurrentSample));
    if (result == DB_S_ENDOFROWSET) {
        AfxMessageBox("请在数据表中输入数据"_gbk);
        return 0;
    }
    for (; result == S_OK; result = table.MoveNext()) {
        const auto& record = table.record;
        if (!IsComplete(record)) {
            AfxMessageBox("颗分试验项目表数据不全，请检查!"_gbk);
            return 0;
        }
        sizes.push_back(WidenFloat(record.KLLJ));
        masses.push_back(WidenFloat(record.KLSYZL));
    }
    if (FAILED(result)) {
        ReportTableOpenError(kTestItemTableError);
        return 0;
    }
    SortBySize(sizes, masses);
    return 1;
}
