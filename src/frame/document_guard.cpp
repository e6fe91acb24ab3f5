#include "src/frame/document_guard.h"

#include <memory>

#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"
#include "platform/ed/system_variables.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"
#include "platform/win32/private_profile.h"
#include "src/common/module_state.h"

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
