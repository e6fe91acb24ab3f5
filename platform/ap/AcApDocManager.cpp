#include "platform/ap/AcApDocManager.h"

#include <algorithm>
#include <utility>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHostApplicationServices.h"
#include "platform/mfc/afx.h"
#include "platform/win32/gbk_case.h"
#include "platform/win32/window_message.h"

namespace {
/// Counts the application context in while it lives, also when a command throws.
class ContextScope {
public:
    explicit ContextScope(int& depth) : depth_(depth) { ++depth_; }
    ~ContextScope() { --depth_; }
    ContextScope(const ContextScope&) = delete;
    ContextScope& operator=(const ContextScope&) = delete;

private:
    int& depth_;
};

bool IsCloseCommand(const char* text) {
    return win32::EqualNoCase(text, "close ");
}
}  // namespace

AcApDocManager* acDocManagerInstance() {
    static AcApDocManager manager;
    return &manager;
}

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator() {
    std::vector<AcApDocument*> documents;
    documents.reserve(documents_.size());
    for (const auto& document : documents_) {
        documents.push_back(document.get());
    }
    return new AcApDocumentIterator(std::move(documents));
}

void AcApDocManager::executeInApplicationContext(void (*function)(void*), void* data) {
    const ContextScope scope(applicationContext_);
    function(data);
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const char* text,
                                                      bool /*activate*/, bool /*wrapUpInactiveDoc*/,
                                                      bool /*echo*/) {
    if (!owns(document)) {
        return Acad::eNoDocument;
    }
    if (document != current_ && IsCloseCommand(text)) {
        if (!document->database()->isModified()) {
            drop(document);
        }
        return Acad::eOk;
    }
    document->pendingInput_ += text;
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode) {
    if (!owns(document)) {
        return Acad::eNoDocument;
    }
    document->locks_.push_back(mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document) {
    if (!owns(document)) {
        return Acad::eNoDocument;
    }
    if (document->locks_.empty()) {
        return Acad::eNotApplicable;
    }
    document->locks_.pop_back();
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::appContextNewDocument() {
    if (!isApplicationContext()) {
        return Acad::eInvalidInput;
    }
    AcApDocument& document = adopt(std::make_unique<AcDbDatabase>(true, false));
    document.setFileName(("Drawing" + std::to_string(++untitledCount_) + ".dwg").c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::closeDocument(AcApDocument* document) {
    if (!owns(document)) {
        return Acad::eNoDocument;
    }
    if (!isApplicationContext()) {
        return Acad::eInvalidInput;
    }
    drop(document);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* document) {
    if (!owns(document)) {
        return Acad::eNoDocument;
    }
    if (!isApplicationContext()) {
        return Acad::eInvalidInput;
    }
    makeCurrent(document);
    return Acad::eOk;
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor) {
    if (reactor != nullptr &&
        std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end()) {
        reactors_.push_back(reactor);
    }
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor) {
    std::erase(reactors_, reactor);
}

void AcApDocManager::pushResourceHandle(HMODULE handle) {
    resourceHandles_.push_back(AfxGetResourceHandle());
    AfxSetResourceHandle(handle);
}

void AcApDocManager::popResourceHandle() {
    if (!resourceHandles_.empty()) {
        AfxSetResourceHandle(resourceHandles_.back());
        resourceHandles_.pop_back();
    }
}

std::string AcApDocManager::takePendingInput() {
    return current_ != nullptr ? std::exchange(current_->pendingInput_, {}) : std::string();
}

bool AcApDocManager::owns(const AcApDocument* document) const {
    return document != nullptr &&
           std::any_of(documents_.begin(), documents_.end(),
                       [&](const auto& owned) { return owned.get() == document; });
}

AcApDocument& AcApDocManager::adopt(std::unique_ptr<AcDbDatabase> database) {
    documents_.push_back(std::make_unique<AcApDocument>(std::move(database)));
    makeCurrent(documents_.back().get());
    return *current_;
}

void AcApDocManager::drop(const AcApDocument* document) {
    const bool wasCurrent = document == current_;
    const auto place = std::find_if(documents_.begin(), documents_.end(),
                                    [&](const auto& owned) { return owned.get() == document; });
    for (AcApDocManagerReactor* const reactor : std::vector(reactors_)) {
        reactor->documentToBeDestroyed(place->get());
    }
    // The drawing outlives the list entry, so that nobody finds a current document half gone.
    const std::unique_ptr<AcApDocument> closed = std::move(*place);
    documents_.erase(place);
    if (wasCurrent) {
        makeCurrent(documents_.empty() ? nullptr : documents_.back().get());
    }
}

void AcApDocManager::makeCurrent(AcApDocument* document) {
    current_ = document;
    acdbHostApplicationServices()->setWorkingDatabase(document != nullptr ? document->database()
                                                                          : nullptr);
}

HWND adsw_acadMainWnd() {
    return win32::MainWindow();
}

ACRX_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject, nullptr);

void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument* /*document*/) {}
