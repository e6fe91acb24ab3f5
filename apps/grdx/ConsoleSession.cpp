#include "apps/grdx/ConsoleSession.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "apps/grdx/Failure.h"
#include "lab/data_management.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/message_box.h"
#include "platform/oledb/last_error.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_fault.h"
#include "platform/win32/windows_path.h"

namespace console {

namespace {
constexpr const char* kPlugin = "grdx.arx";

/// Words on the command line by which the plug-in says that a command refuses or has failed; it
/// tells so in no other way, and goes on.
constexpr const char* kFailures[] = {
    "存储失败!",        "入库失败!",     "没有选中颗分试样曲线!", "什么也没有选中.",
    "取试体ID失败",     "打开试体错误",  "文档无法自动关闭,",     "打开文档【",
    "关闭当前文档失败", "设置主层有误!",
};

bool TellsOfFailure(const std::string& utf8) {
    return std::any_of(std::begin(kFailures), std::end(kFailures),
                       [&](const char* words) { return utf8.find(words) != std::string::npos; });
}

/// Sheets are made in memory, what the user saves is a document's drawing.
bool IsOfDocument(const AcDbDatabase* database) {
    const std::unique_ptr<AcApDocumentIterator> documents(acDocManager->newAcApDocumentIterator());
    while (!documents->done() && documents->document()->database() != database) {
        documents->step();
    }
    return !documents->done();
}
}  // namespace

ConsoleSession::ConsoleSession(MessageStream& messages) : messages_(messages), charts_(messages) {
    mfc::SetWindowSystem(&windows_);
    windows_.SetBoxSink([this](const mfc::MessageBoxRequest& box) { OnBox(box); });
    windows_.SetShowSink([this](const std::string& text) { messages_.PrintLine(text); });
    windows_.SetEndListener(
        [this](mfc::FrameModel& window, bool givenUp) { OnDialogEnd(window, givenUp); });
    ed::SetCommandLineSink([this](const std::string& text) { OnCommandLine(text); });
    oledb::SetErrorListener([this](const std::string& text) { NoteFault(text); });
    win32::SetFileFaultListener([this](const std::string& text) { NoteFault(text); });
    acrxAddEventReactor(this);
}

ConsoleSession::~ConsoleSession() {
    acrxRemoveEventReactor(this);
    win32::SetFileFaultListener(nullptr);
    oledb::SetErrorListener(nullptr);
    ed::SetCommandLineSink(nullptr);
    mfc::SetWindowSystem(nullptr);
}

void ConsoleSession::Start(const std::string& suiteFolder) {
    std::string error;
    if (!suiteFolder.empty() && !host_.OpenSuite(suiteFolder, error)) {
        throw Failure(error);
    }
    const std::string plugin = host::Host::FindModule(kPlugin, error);
    if (plugin.empty() || !host_.LoadModule(plugin, error)) {
        throw Failure(error);
    }
    lab::AddDataManagement(win32::Language::kEnglish,
                           [this](const std::string& /*said*/) { refused_ = true; });
    host_.StartDocument();
}

void ConsoleSession::OnCommandLine(const std::string& text) {
    const std::string utf8 = win32::Utf8FromGbk(text);
    messages_.Print(utf8);
    refused_ = refused_ || TellsOfFailure(utf8);
    std::erase_if(unsaidFaults_,
                  [&](const std::string& fault) { return utf8.find(fault) != std::string::npos; });
}

void ConsoleSession::NoteFault(const std::string& text) {
    faulty_ = true;
    if (std::find(unsaidFaults_.begin(), unsaidFaults_.end(), text) == unsaidFaults_.end()) {
        unsaidFaults_.push_back(text);
    }
}

bool ConsoleSession::ReportFaults() {
    for (const std::string& fault : std::exchange(unsaidFaults_, {})) {
        messages_.Report(fault);
    }
    return std::exchange(faulty_, false);
}

bool ConsoleSession::JudgeCommand() {
    const bool faulty = ReportFaults();
    const bool complete = charts_.Judge();
    return !std::exchange(refused_, false) && !faulty && complete;
}

void ConsoleSession::OnBox(const mfc::MessageBoxRequest& box) {
    messages_.PrintLine(win32::Utf8FromGbk(box.text));
    // One that asks nothing tells what stands against it; an open dialog can still be mended.
    const bool asks = mfc::HasButton(box.type, IDYES) || mfc::HasButton(box.type, IDCANCEL);
    if (!asks) {
        (windows_.IsDialogOpen() ? objected_ : refused_) = true;
    }
}

/// Who cancels a dialog after its objection has his will, who only leaves it has been refused.
void ConsoleSession::OnDialogEnd(mfc::FrameModel& window, bool givenUp) {
    refused_ = refused_ || (givenUp && objected_);
    objected_ = false;
    if (window.Result() == IDOK) {
        charts_.NoteConfirmed(window);
    }
}

void ConsoleSession::saveComplete(AcDbDatabase* database, const char* path) {
    if (!IsOfDocument(database)) {
        charts_.NoteSaved();
    }
    if (saveListener_) {
        saveListener_(win32::FileSystemPath(path));
    }
}

void ConsoleSession::abortSave(AcDbDatabase* database) {
    NoteFault(database->lastFileError());
}

void ConsoleSession::abortRead(AcDbDatabase* database) {
    abortSave(database);
}

void ConsoleSession::insertIncomplete(AcDbDatabase* /*target*/, const std::string& finding) {
    NoteFault(finding);
}

}  // namespace console
