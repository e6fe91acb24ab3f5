#include "host/dialogue.h"

#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/window_system.h"

namespace host {

bool Complain(Phrase phrase, std::initializer_list<std::string> values) {
    return ComplainAsTold(phrase.Text(values));
}

bool ComplainAsTold(const std::string& reason) {
    acutPrintf("\n%s", reason.c_str());
    return false;
}

int AskUser(const std::string& question, UINT type) {
    return mfc::CurrentWindowSystem().ShowMessageBox(
        {question, "", type, adsw_acadMainWnd(), true});
}

}  // namespace host
