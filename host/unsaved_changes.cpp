#include "host/unsaved_changes.h"

#include "host/complaint.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace host {

namespace {
/// The drawing's file as the user's file system names it, GBK.
std::string ShownName(const AcApDocument& document) {
    return win32::GbkFromUtf8(win32::FileSystemPath(document.fileName()));
}

/// Asks before a file is overwritten that is no longer the one the drawing was read from.
bool MayOverwrite(const AcApDocument& document) {
    const AcAp::FileState state = document.fileState();
    if (state == AcAp::kFileUnchanged) {
        return true;
    }
    const std::string name = ShownName(document);
    const std::string question =
        name + (state == AcAp::kFileGone ? " was deleted" : " was changed by another program") +
        " since it was opened. Save it all the same?";
    return MessageBox(adsw_acadMainWnd(), question.c_str(), nullptr,
                      MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) == IDYES ||
           Complain(name + " is not saved.");
}
}  // namespace

bool Save(AcApDocument& document, const char* path) {
    if (path == nullptr && !MayOverwrite(document)) {
        return false;
    }
    const Acad::ErrorStatus status = acDocManager->saveDocument(&document, path);
    if (status == Acad::eInvalidInput) {
        return Complain(ShownName(document) + " was never saved: SAVEAS gives it a name.");
    }
    return status == Acad::eOk ||
           Complain(win32::GbkFromUtf8(document.database()->lastFileError()));
}

bool MayGo(AcApDocument& document) {
    if (!document.database()->isModified()) {
        return true;
    }
    const std::string question = "Save the changes to " + ShownName(document) + "?";
    switch (MessageBox(adsw_acadMainWnd(), question.c_str(), nullptr,
                       MB_YESNOCANCEL | MB_ICONEXCLAMATION)) {
        case IDYES:
            return Save(document);
        case IDNO:
            return true;
        default:
            return Complain(ShownName(document) + " stays open.");
    }
}

}  // namespace host
