#include <vector>

#include "host/BuiltInCommand.h"
#include "host/Host.h"
#include "host/dialogue.h"
#include "host/document_mode.h"
#include "host/unsaved_changes.h"
#include "platform/ap/AcApDocManager.h"

namespace host {

namespace {
/// In single-document mode the current document makes room for the next.
bool New(Host& /*host*/, const BuiltInCommand::Arguments& /*arguments*/) {
    AcApDocument* const replaced = IsSingleDocumentMode() ? acDocManager->curDocument() : nullptr;
    if (replaced != nullptr && !MayGo(*replaced)) {
        return false;
    }
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
    if (!IsPath(arguments.front())) {
        return false;
    }
    // The reason of a failure is printed by whoever asks for changes or reads the file.
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
