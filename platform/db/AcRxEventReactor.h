#pragma once

#include <string>

#include "platform/rx/AcRxClass.h"

class AcDbDatabase;

/// Hears of drawings written, read and inserted; each notification does nothing unless overridden.
/// Reactors are not owned.
class AcRxEventReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxEventReactor);
    /// The drawing stands under `path` (Windows path, GBK).
    virtual void saveComplete(AcDbDatabase* database, const char* path);
    /// The save failed; the reason is in the database's lastFileError().
    virtual void abortSave(AcDbDatabase* database);
    /// Reading failed; the reason is in the database's lastFileError().
    virtual void abortRead(AcDbDatabase* database);
    /// A drawing was inserted into another one, but not all that its file has. `finding` (UTF-8)
    /// names the file and what is missing.
    virtual void insertIncomplete(AcDbDatabase* target, const std::string& finding);
};

/// A reactor hears from then on, once however often it is added. Null is ignored.
void acrxAddEventReactor(AcRxEventReactor* reactor);
/// A reactor may remove itself or others while it is told something.
void acrxRemoveEventReactor(AcRxEventReactor* reactor);

/// Tell every reactor, in the order they were added.
void acrxTellSaveComplete(AcDbDatabase* database, const char* path);
void acrxTellAbortSave(AcDbDatabase* database);
void acrxTellAbortRead(AcDbDatabase* database);
void acrxTellInsertIncomplete(AcDbDatabase* target, const std::string& finding);
