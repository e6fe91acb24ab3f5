#include "src/frame/document_switching.h"

#include <exception>
#include <vector>

#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"
#include "platform/ed/user_break.h"
#include "platform/win32/gbk_literal.h"
#include "src/frame/document_guard.h"
#include "src/frame/split_list.h"

namespace {

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
