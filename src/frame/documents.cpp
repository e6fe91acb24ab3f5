#include "src/frame/documents.h"

#include <exception>
#include <memory>
#include <vector>

#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"
#include "platform/ed/system_variables.h"
#include "platform/ed/user_break.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/private_profile.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"

namespace {

constexpr const char* kDocumentModeVariable = "SDI";
constexpr short kSingleDocument = 1;

void SetDocumentMode(short mode) {
    resbuf value;
    value.restype = RTSHORT;
    value.resval.rint = mode;
    acedSetVar(kDocumentModeVariable, &value);
}

bool HasSeveralDocuments() {
    return acDocManager->documentCount() >= 2;
}

bool UserLetsOthersClose(const char* caption) {
    const char* question =
        "现在AutoCAD已经打开了多个文档,\n\n本命令只允许在打开一个文档的条件下使用.\n\n "
        "点击\"是\"程序自动关闭打开的文档,继续执行命令。\n\n点击\"否\"取消本命令"_gbk;
    return MessageBox(adsw_acadMainWnd(), question, caption, MB_YESNO | MB_ICONINFORMATION) ==
           IDYES;
}

void CloseOtherDocuments() {
    const AcApDocument* const current = acDocManager->curDocument();
    const std::unique_ptr<AcApDocumentIterator> documents(acDocManager->newAcApDocumentIterator());
    for (; !documents->done(); documents->step()) {
        if (documents->document() != current) {
            acDocManager->sendStringToExecute(documents->document(), "close ");
        }
    }
}

constexpr char kPathSeparator = '|';

void ZoomCurrentDocument(ZoomAfterOpen zoom) {
    if (zoom != kZoomNone) {
        acDocManager->sendStringToExecute(acDocManager->curDocument(),
                                          zoom == kZoomAll ? "zoom a " : "zoom e ");
    }
}

Acad::ErrorStatus OpenInPlace(const std::string& paths, ZoomAfterOpen zoom) {
    std::vector<std::string> names;
    if (!SplitList(paths, kPathSeparator, names)) {
        return Acad::eInvalidInput;
    }
    if (names.size() > 1) {
        acutPrintf("%s", "当前是单文档状态,只能打开一个文档"_gbk);
    }
    const Acad::ErrorStatus status = acedSyncFileOpen(names.front().c_str());
    if (status == Acad::eOk) {
        ZoomCurrentDocument(zoom);
    }
    return status;
}

void OpenEach(OpenRequest& request) {
    std::vector<std::string> names;
    SplitList(request.paths, kPathSeparator, names);
    for (std::size_t i = 0; i < names.size() && (i == 0 || acedUsrBrk() == 0); ++i) {
        const Acad::ErrorStatus status = acDocManager->appContextOpenDocument(names[i].c_str());
        if (status == Acad::eOk) {
            ZoomCurrentDocument(request.zoom);
        } else if (request.status == Acad::eOk) {
            request.status = status;
        }
    }
}

const char* CurrentFileName() {
    const AcApDocument* const current = acDocManager->curDocument();
    return current == nullptr ? "" : current->fileName();
}

Acad::ErrorStatus OpenAsDocuments(const std::string& paths, ZoomAfterOpen zoom, bool lock) {
    OpenRequest request{.paths = paths, .zoom = zoom};
    if (!acDocManager->isApplicationContext()) {
        acDocManager->executeInApplicationContext(OpenRequestedDocuments, &request);
        return request.status;
    }
    OpenRequestedDocuments(&request);
    if (lock && request.status == Acad::eOk) {
        return acDocManager->lockDocument(acDocManager->curDocument(), AcAp::kWrite);
    }
    return request.status;
}

}  // namespace

bool CheckSingleDocument(const char* caption) {
    if (HasSeveralDocuments()) {
        if (!UserLetsOthersClose(caption)) {
            return false;
        }
        CloseOtherDocuments();
        if (HasSeveralDocuments()) {
            acutPrintf("%s", "\n文档无法自动关闭,请使用sdi命令设置成单位档模式来执行本命令.\n"_gbk);
            return false;
        }
    }
    SetDocumentMode(kSingleDocument);
    return true;
}

void RestoreDocumentMode() {
    const UINT mode =
        GetPrivateProfileInt("MDI", "MDIMODE", kSingleDocument, SettingsProfilePath.c_str());
    SetDocumentMode(static_cast<short>(mode));
}

bool IsMultiDocumentMode() {
    resbuf mode;
    return acedGetVar(kDocumentModeVariable, &mode) == RTNORM && mode.resval.rint == 0;
}

void OpenRequestedDocuments(void* request) {
    OpenRequest& wanted = *static_cast<OpenRequest*>(request);
    if (!acDocManager->isApplicationContext()) {
        acutPrintf("\nERROR: in Document context : %s\n", CurrentFileName());
        wanted.status = Acad::eNotApplicable;
        return;
    }
    try {
        OpenEach(wanted);
    } catch (const std::exception&) {
        acutPrintf("打开文档【%s】失败"_gbk, wanted.paths.c_str());
        wanted.status = Acad::eDrawingNotOpened;
    }
}

Acad::ErrorStatus OpenDocument(const std::string& paths, ZoomAfterOpen zoom, bool lock) {
    return IsMultiDocumentMode() ? OpenAsDocuments(paths, zoom, lock) : OpenInPlace(paths, zoom);
}

Acad::ErrorStatus CloseCurrentDocument(bool unlock) {
    AcApDocument* const current = acDocManager->curDocument();
    if (unlock) {
        acDocManager->unlockDocument(current);
    }
    try {
        return acDocManager->closeDocument(current);
    } catch (const std::exception&) {
        acutPrintf("%s", "关闭当前文档失败"_gbk);
        return Acad::eNotApplicable;
    }
}
