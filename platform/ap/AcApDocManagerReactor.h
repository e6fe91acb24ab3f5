#pragma once

#include "platform/rx/AcRxClass.h"

class AcApDocument;

/// Hears of what becomes of documents; each notification does nothing unless overridden. Reactors
/// are not owned.
class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);
    /// The document is still whole and goes when every reactor has been told.
    virtual void documentToBeDestroyed(AcApDocument* document);
};
