#include "apps/desk/DeskSession.h"

#include <algorithm>
#include <utility>

#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "lab/data_management.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/ed/command_line.h"
#include "platform/oledb/last_error.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_fault.h"

namespace desk {

namespace {
constexpr const char* kPlugin = "grdx.arx";
constexpr std::size_t kToldPlaces = 20;  ///< more do not fit on a screen
constexpr std::size_t kBoxLines = 15;    ///< of faults, which may be long

/// As many of them as a box holds, GBK; all of them stand on the command line.
std::string BoxText(const std::vector<std::string>& faults) {
    std::string text;
    const std::size_t shown = std::min(faults.size(), kBoxLines);
    for (std::size_t i = 0; i < shown; ++i) {
        text += (i == 0 ? "" : "\n") + win32::GbkFromUtf8(faults[i]);
    }
    if (shown < faults.size()) {
        text += "\n" + windows::ToGbk(windows::InterfaceText("… and %1 more on the command line.",
                                                             "……其余 %1 条见命令行。")
                                          .arg(faults.size() - shown));
    }
    return text;
}
}  // namespace

DeskSession::DeskSession() {
    mfc::SetWindowSystem(&windows_);
    ed::SetCommandLineSink([this](const std::string& text) { OnText(text); });
    oledb::SetErrorListener([this](const std::string& fault) { OnFault(fault); });
    win32::SetFileFaultListener([this](const std::string& fault) { OnFault(fault); });
    acrxAddEventReactor(this);
}

DeskSession::~DeskSession() {
    stateListener_ = nullptr;
    feed_.reset();
    host_.reset();
    acrxRemoveEventReactor(this);
    win32::SetFileFaultListener(nullptr);
    oledb::SetErrorListener(nullptr);
    ed::SetCommandLineSink(nullptr);
    mfc::SetWindowSystem(nullptr);
}

bool DeskSession::Admit(const std::string& suiteFolder, std::string& error) {
    std::vector<suite::OutsidePlace> places;
    if (suiteFolder.empty() || (suite::CheckFolder(suiteFolder, places, error) && places.empty())) {
        return true;
    }
    if (!error.empty()) {
        return false;
    }
    const QString question =
        windows::InterfaceText(
            "The suite folder %1 leads to what lies outside of it:\n\n%2\n\nUse it all the same?",
            "工程目录 %1 要使用目录以外的下列位置：\n\n%2\n\n仍要使用吗？")
            .arg(QString::fromStdString(suiteFolder),
                 QString::fromStdString(DescribePlaces(places, kToldPlaces)));
    return windows_.ShowMessageBox({windows::ToGbk(question), "",
                                    MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2, nullptr,
                                    true}) == IDYES &&
           suite::AgreeToFolder(suiteFolder, places, error);
}

bool DeskSession::Start(const std::string& suiteFolder, std::string& error) {
    const std::string plugin = host::Host::FindModule(kPlugin, error);
    if (plugin.empty()) {
        return false;
    }
    std::vector<suite::OutsidePlace> places;
    if (!suiteFolder.empty() && !suite::CheckFolder(suiteFolder, places, error)) {
        return false;
    }
    // The plug-in asks for the suite's paths once, when it is loaded.
    feed_.reset();
    host_.reset();
    if (suiteFolder.empty()) {
        suite::CloseFolder();
    }
    host_ = std::make_unique<host::Host>();
    host_->Interpreter().SetSelectionSource(selection_);
    feed_ = std::make_unique<CommandFeed>(host_->Interpreter());
    feed_->SetStateListener([this] { OnState(); });
    suiteFolder_ = suiteFolder;
    const bool good = (suiteFolder.empty() || host_->OpenSuite(suiteFolder, error)) &&
                      host_->LoadModule(plugin, error);
    lab::AddDataManagement(
        windows::IsInterfaceChinese() ? win32::Language::kChinese : win32::Language::kEnglish,
        [](const std::string& /*said*/) {});
    host_->StartDocument();
    OnState();
    return good;
}

void DeskSession::SetStateListener(std::function<void()> listener) {
    stateListener_ = std::move(listener);
}

void DeskSession::SetSelectionSource(host::CommandInterpreter::SelectionSource selection) {
    selection_ = std::move(selection);
    host_->Interpreter().SetSelectionSource(selection_);
}

bool DeskSession::Run(const std::string& gbkLine, std::string& said) {
    said_.clear();
    const bool good = feed_->Start(gbkLine);
    said = win32::Utf8FromGbk(std::exchange(said_, {}));
    return good;
}

void DeskSession::OnText(const std::string& gbk) {
    said_ += gbk;
    const std::string utf8 = win32::Utf8FromGbk(gbk);
    std::erase_if(unsaidFaults_,
                  [&](const std::string& fault) { return utf8.find(fault) != std::string::npos; });
    if (sink_) {
        sink_(gbk);
    }
}

void DeskSession::OnFault(const std::string& fault) {
    if (std::find(unsaidFaults_.begin(), unsaidFaults_.end(), fault) == unsaidFaults_.end()) {
        unsaidFaults_.push_back(fault);
    }
}

/// What nobody has said by the end of a command is said then, where it cannot be overlooked.
void DeskSession::OnState() {
    std::vector<std::string> faults;
    if (!feed_->IsRunning()) {
        faults = std::exchange(unsaidFaults_, {});
    }
    for (const std::string& fault : faults) {
        OnText("\n" + win32::GbkFromUtf8(fault));
    }
    if (stateListener_) {
        stateListener_();
    }
    if (!faults.empty()) {
        windows_.ShowMessageBox({BoxText(faults), "", MB_OK | MB_ICONEXCLAMATION, nullptr, true});
    }
}

void DeskSession::abortSave(AcDbDatabase* database) {
    OnFault(database->lastFileError());
}

void DeskSession::insertIncomplete(AcDbDatabase* /*target*/, const std::string& finding) {
    OnFault(finding);
}

}  // namespace desk
