#pragma once

#include "platform/rx/AcRxClass.h"

class AcDbDatabase;

/// Hears of drawings written; each notification does nothing unless overridden. Reactors are not
/// owned.
class AcRxEventReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxEventReactor);
    /// The drawing stands under `path` (Windows path, GBK).
    virtual void saveComplete(AcDbDatabase* database, const char* path);
    /// The save failed; the reason is in the database's lastFileError().
    virtual void abortSave(AcDbDatabase* database);
    /// Reading failed; the reason is in the database's lastFileError().
    virtual void abortRead(AcDbDatabase* database);
};

void acrxAddEventReactor(AcRxEventReactor* reactor);
void acrxRemoveEventReactor(AcRxEventReactor* reactor);
