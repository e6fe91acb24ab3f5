#include "apps/grdx/ConsoleSession.h"

#include <algorithm>
#include <utility>

#include "apps/grdx/Failure.h"
#include "lab/data_management.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/ed/command_line.h"
#include "platform/oledb/last_error.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_fault.h"
#include "platform/win32/gbk_literal.h"
#include "platform/win32/windows_path.h"

namespace console {

namespace {
constexpr const char* kPlugin = "grdx.arx";
}  // namespace

ConsoleSession::ConsoleSession(MessageStream& messages) : messages_(messages) {
    mfc::SetWindowSystem(&windows_);
    windows_.SetBoxSink([this](const mfc::MessageBoxRequest& box) {
        messages_.PrintLine(win32::Utf8FromGbk(box.text));
    });
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
    lab::AddDataManagement(lab::Language::kEnglish);
    host_.StartDocument();
}

void ConsoleSession::OnCommandLine(const std::string& text) {
    const std::string utf8 = win32::Utf8FromGbk(text);
    messages_.Print(utf8);
    // The plug-in tells of a store that failed in no other way, and goes on.
    storeFailed_ = storeFailed_ || text.find("入库失败"_gbk) != std::string::npos;
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

bool ConsoleSession::TakeStoreFailure() {
    return std::exchange(storeFailed_, false);
}

void ConsoleSession::saveComplete(AcDbDatabase* /*database*/, const char* path) {
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
