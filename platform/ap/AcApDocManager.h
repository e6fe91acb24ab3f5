#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ap/AcApDocument.h"
#include "platform/rx/AcRxClass.h"
#include "platform/rx/Acad.h"
#include "platform/win32/win_types.h"

class AcApDocument;

/// Hears of what becomes of documents; each notification does nothing unless overridden. Reactors
/// are not owned.
class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);
    /// The document is still whole and goes when every reactor has been told.
    virtual void documentToBeDestroyed(AcApDocument* document);
};

/// Walks the documents in opening order, as they were when it was made.
class AcApDocumentIterator {
public:
    explicit AcApDocumentIterator(std::vector<AcApDocument*> documents)
        : documents_(std::move(documents)) {}
    bool done() const { return next_ >= documents_.size(); }
    void step() { ++next_; }
    AcApDocument* document() const { return documents_[next_]; }

private:
    std::vector<AcApDocument*> documents_;
    std::size_t next_ = 0;
};

/// The open documents. Commands run in a document's context; only the application context may
/// open, make, close and switch documents: elsewhere those operations do nothing and give
/// eInvalidInput. The current document's database is the working database. A drawing's path may
/// lack the extension ".dwg".
class AcApDocManager {
public:
    /// Null when no document is open.
    AcApDocument* curDocument() const { return current_; }
    int documentCount() const { return static_cast<int>(documents_.size()); }
    /// The caller deletes it.
    AcApDocumentIterator* newAcApDocumentIterator();
    bool isApplicationContext() const { return applicationContext_ > 0; }
    /// Runs the function at once in the application context.
    void executeInApplicationContext(void (*function)(void*), void* data);

    /// Queues command text for the document; a host runs it after the running command, in order.
    /// "close " to a document other than the current one is carried out at once, or never when the
    /// document has unsaved changes: it would otherwise go in the hands of whoever comes to it
    /// next. `activate`, `wrapUpInactiveDoc` and `echo` are accepted for their callers.
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const char* text,
                                          bool activate = true, bool wrapUpInactiveDoc = false,
                                          bool echo = true);

    /// Locks are counted. eNoDocument for null, eNotApplicable for an unlock without a lock.
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite);
    Acad::ErrorStatus unlockDocument(AcApDocument* document);

    /// Opens a drawing as a new document and makes it current. eDrawingNotOpened when no document
    /// can be made of the file; the reason is printed on the command line. A drawing that is open
    /// already becomes current.
    Acad::ErrorStatus appContextOpenDocument(const char* path);
    /// A new untitled drawing as a new document, made current.
    Acad::ErrorStatus appContextNewDocument();
    /// Closes without saving or asking. eNoDocument when it is none of ours. The document opened
    /// last of those left becomes current.
    Acad::ErrorStatus closeDocument(AcApDocument* document);
    Acad::ErrorStatus activateDocument(AcApDocument* document);
    /// Saves the document's drawing under its name or another (Windows path), which becomes its
    /// name; the file is on the disk then. eInvalidInput for an empty name, and without one for a
    /// drawing that has none yet; a failed save leaves the reason in the database's
    /// lastFileError().
    Acad::ErrorStatus saveDocument(AcApDocument* document, const char* path = nullptr);

    /// A reactor hears from then on, once however often it is added. Null is ignored.
    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);

    /// Makes a module's resources current until the matching pop.
    void pushResourceHandle(HMODULE handle);
    void popResourceHandle();

    /// Takes the command text waiting for the current document, whole; empty when none waits.
    /// Called by hosts.
    std::string takePendingInput();

    /// Asked, when set, before a document with unsaved changes makes room for another: false, after
    /// telling the user, keeps it. Set by hosts.
    using LeaveQuestion = std::function<bool(AcApDocument& document)>;
    void setLeaveQuestion(LeaveQuestion question) { mayLeave_ = std::move(question); }

private:
    friend Acad::ErrorStatus acedSyncFileOpen(const char* path);
    bool owns(const AcApDocument* document) const;
    /// Null when no open document is that file's.
    AcApDocument* documentOfFile(const std::string& path) const;
    /// A new document of the drawing, made current.
    AcApDocument& adopt(std::unique_ptr<AcDbDatabase> database);
    void adoptFile(std::unique_ptr<AcDbDatabase> database, const std::string& path);
    void drop(const AcApDocument* document);
    void makeCurrent(AcApDocument* document);

    std::vector<std::unique_ptr<AcApDocument>> documents_;
    AcApDocument* current_ = nullptr;
    int applicationContext_ = 0;
    int untitledCount_ = 0;
    LeaveQuestion mayLeave_;
    std::vector<HMODULE> resourceHandles_;
    std::vector<AcApDocManagerReactor*> reactors_;
};

AcApDocManager* acDocManagerInstance();
#define acDocManager acDocManagerInstance()

/// Single-document mode: opens a drawing in place of the current document, about whose unsaved
/// changes the host asks first. eDrawingNotOpened, with the reason on the command line and the
/// current document still open, when it has to stay or no document can be made of the file.
Acad::ErrorStatus acedSyncFileOpen(const char* path);

/// The host's main window, as handle and for owners of dialogs.
HWND adsw_acadMainWnd();
