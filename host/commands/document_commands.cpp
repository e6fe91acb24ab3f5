#include <vector>

#include "host/BuiltInCommand.h"
#include "host/Host.h"
#include "host/complaint.h"
#include "host/document_mode.h"
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

bool Save(AcApDocument& document, const char* path = nullptr) {
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

/// Lets the user keep unsaved changes of a document that is to go. False: it must stay.
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

/// In single-document mode the current document makes room for the next.
bool CurrentMayBeReplaced() {
    AcApDocument* current = acDocManager->curDocument();
    return !IsSingleDocumentMode() || current == nullptr || MayGo(*current);
}

bool New(Host& /*host*/, const BuiltInCommand::Arguments& /*arguments*/) {
    if (!CurrentMayBeReplaced()) {
        return false;
    }
    AcApDocument* const replaced = IsSingleDocumentMode() ? acDocManager->curDocument() : nullptr;
    acDocManager->appContextNewDocument();
    if (replaced != nullptr) {
        acDocManager->closeDocument(replaced);
    }
    return true;
}

bool IsPath(const std::string& word) {
    return !word.empty() || Complain("The name of a drawing is missing.");
}

bool Open(Host& host, const BuiltInCommand::Arguments& arguments) {
    if (!IsPath(arguments.front()) || !CurrentMayBeReplaced()) {
        return false;
    }
    // The reason of a failure is printed by whoever reads the file.
    const std::string path = host.ResolvePath(arguments.front());
    return (IsSingleDocumentMode()
                ? acedSyncFileOpen(path.c_str())
                : acDocManager->appContextOpenDocument(path.c_str())) == Acad::eOk;
}

bool QuickSave(Host& /*host*/, const BuiltInCommand::Arguments& /*arguments*/) {
    return Save(*acDocManager->curDocument());
}

bool SaveAs(Host& host, const BuiltInCommand::Arguments& arguments) {
    return IsPath(arguments.front()) &&
           Save(*acDocManager->curDocument(), host.ResolvePath(arguments.front()).c_str());
}

bool Close(Host& /*host*/, const BuiltInCommand::Arguments& /*arguments*/) {
    AcApDocument* const document = acDocManager->curDocument();
    if (document == nullptr) {
        return Complain("No drawing is open.");
    }
    return MayGo(*document) && acDocManager->closeDocument(document) == Acad::eOk;
}

/// Asks for every changed document before any of them goes.
bool AllMayGo() {
    const std::unique_ptr<AcApDocumentIterator> documents(acDocManager->newAcApDocumentIterator());
    for (; !documents->done(); documents->step()) {
        if (!MayGo(*documents->document())) {
            return false;
        }
    }
    return true;
}

bool CloseAll(Host& /*host*/, const BuiltInCommand::Arguments& /*arguments*/) {
    if (!AllMayGo()) {
        return false;
    }
    while (AcApDocument* const document = acDocManager->curDocument()) {
        acDocManager->closeDocument(document);
    }
    return true;
}

bool Quit(Host& host, const BuiltInCommand::Arguments& /*arguments*/) {
    if (!AllMayGo()) {
        return false;
    }
    host.Quit();
    return true;
}
}  // namespace

const std::vector<BuiltInCommand>& DocumentCommands() {
    static const std::vector<BuiltInCommand> commands = {
        {"NEW", true, {}, New},          {"OPEN", true, {"Drawing to open: "}, Open},
        {"QSAVE", false, {}, QuickSave}, {"SAVEAS", false, {"Save drawing as: "}, SaveAs},
        {"CLOSE", true, {}, Close},      {"CLOSEALL", true, {}, CloseAll},
        {"QUIT", true, {}, Quit},
    };
    return commands;
}

}  // namespace host
