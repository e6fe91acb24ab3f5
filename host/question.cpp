#include "host/question.h"

#include "platform/ap/AcApDocManager.h"
#include "platform/mfc/window_system.h"

namespace host {

int AskUser(const std::string& question, UINT type) {
    return mfc::CurrentWindowSystem().ShowMessageBox(
        {question, "", type, adsw_acadMainWnd(), true});
}

}  // namespace host
