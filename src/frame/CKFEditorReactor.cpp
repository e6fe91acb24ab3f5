#include "src/frame/CKFEditorReactor.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/mfc/message_box.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/edit/store_command.h"

namespace {

constexpr std::array<std::string_view, 15> kLeavingCommands = {
    "OPEN",     "NEW",  "QUIT",   "ZJGEN", "ZJEDIT", "GJGEN",  "GJEDIT", "GJSJGEN",
    "GJSJEDIT", "SZJQ", "SZOPEN", "CGRDX", "EGRDX",  "CLGRDX", "ELGRDX"};

bool LeavesTheChart(std::string_view command) {
    return std::find(kLeavingCommands.begin(), kLeavingCommands.end(), command) !=
           kLeavingCommands.end();
}

}  // namespace

void CKFEditorReactor::commandWillStart(const char* cmdStr) {
    if (!LeavesTheChart(cmdStr) || CurveDataChanged == 0) {
        return;
    }
    if (AfxMessageBox("颗分图中有关数据已改变,是否入库?"_gbk, MB_YESNO) == IDYES) {
        StoreFromReactor = 1;
        SGRDX();
        StoreFromReactor = 0;
    } else {
        CurveDataChanged = 0;
    }
}
