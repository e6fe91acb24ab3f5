#pragma once

#include "platform/ed/AcEditor.h"

/// Offers to store a reshaped curve before a command that would leave its drawing or start other
/// charts. The command goes on whatever the answer.
class CKFEditorReactor : public AcEditorReactor {
public:
    void commandWillStart(const char* cmdStr) override;
};
