#pragma once

#include <vector>

#include "platform/rx/AcRxClass.h"

/// Hears of what the editor does; each notification does nothing unless overridden.
class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);
    /// Before a command runs; its global name in upper case.
    virtual void commandWillStart(const char* commandName);
    virtual void commandEnded(const char* commandName);
};

/// The editor: whom it tells. Reactors are not owned; one added twice hears once. A reactor may
/// remove itself, or others, while being told.
class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);
    void addReactor(AcEditorReactor* reactor);
    void removeReactor(AcEditorReactor* reactor);
    /// Tells the reactors; called by hosts that run commands.
    void tellCommandWillStart(const char* commandName) const;
    void tellCommandEnded(const char* commandName) const;

private:
    std::vector<AcEditorReactor*> reactors_;
};

AcEditor* acedEditorInstance();
#define acedEditor acedEditorInstance()
