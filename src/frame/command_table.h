#pragma once

#include <array>

#include "platform/ed/AcEdCommandStack.h"

inline constexpr const char* kCommandGroup = "GRDX";

/// One command of the plug-in; its name is global and local alike.
struct CommandEntry {
    const char* name;
    int flags;
    AcRxFunctionPtr function;
};

/// Every command, in the order in which they are added.
const std::array<CommandEntry, 5>& CommandTable();

void AddCommands();
void RemoveCommands();
