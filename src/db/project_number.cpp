#include "src/db/project_number.h"

#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"
#include "src/db/CGongChengTable.h"
#include "src/db/table_filters.h"
#include "src/db/table_open_error.h"

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
