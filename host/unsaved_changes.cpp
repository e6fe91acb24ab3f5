#include "host/unsaved_changes.h"

#include "host/dialogue.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
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
    const Phrase question =
        state == AcAp::kFileGone
            ? Phrase("%1 was deleted since it was opened. Save it all the same?")
            : Phrase(
                  "%1 was changed by another program since it was opened. Save it all the same?");
    return AskUser(question.Text({name}), MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) == IDYES ||
           Complain("%1 is not saved.", {name});
}
}  // namespace

bool Save(AcApDocument& document, const char* path) {
    if (path == nullptr && !MayOverwrite(document)) {
        return false;
    }
    const Acad::ErrorStatus status = acDocManager->saveDocument(&document, path);
    if (status == Acad::eInvalidInput) {
        return Complain("%1 was never saved: SAVEAS gives it a name.", {ShownName(document)});
    }
    return status == Acad::eOk ||
           ComplainAsTold(win32::GbkFromUtf8(document.database()->lastFileError()));
}

bool MayGo(AcApDocument& document) {
    if (!document.database()->isModified()) {
        return true;
    }
    const Phrase question("Save the changes to %1?");
    switch (AskUser(question.Text({ShownName(document)}), MB_YESNOCANCEL | MB_ICONEXCLAMATION)) {
        case IDYES:
            return Save(document);
        case IDNO:
            return true;
        default:
            return Complain("%1 stays open.", {ShownName(document)});
    }
}

}  // namespace host
