#include "src/db/table_open_error.h"

#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"

void ReportTableOpenError(int code) {
    switch (code) {
        case kSampleTableError:
            AfxMessageBox("不能打开常规试验表,请检查数据!"_gbk);
            break;
        case kGrainSizeTableError:
            AfxMessageBox("不能打开颗分试验表!请检查!"_gbk);
            break;
        case kTestItemTableError:
            AfxMessageBox("不能打开颗分试验项目表,请检查数据!"_gbk);
            break;
        case kProjectTableError:
            AfxMessageBox("不能打开工点信息数据表,请检查数据!"_gbk);
            break;
        default:
            break;
    }
}
