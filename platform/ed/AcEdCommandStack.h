#pragma once

#include <string>
#include <vector>

#include "platform/rx/AcRxClass.h"

using AcRxFunctionPtr = void (*)();

/// Command flags.
inline constexpr int ACRX_CMD_MODAL = 0x00000000;
/// Runs in the application context instead of a document's.
inline constexpr int ACRX_CMD_SESSION = 0x00200000;

/// One command; known under its global and its local name.
struct AcEdCommand {
    std::string group;
    std::string globalName;
    std::string localName;
    int flags = ACRX_CMD_MODAL;
    AcRxFunctionPtr function = nullptr;
};

/// The commands that modules have added. Names compare without regard to case.
class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);
    /// The arguments after the function (user-interface context, function code, resource handle,
    /// command pointer out) have no effect and take the defaults only.
    /// eDuplicateKey when the group has a command of that global name, eInvalidInput without name
    /// or function.
    int addCommand(const char* group, const char* globalName, const char* localName, int flags,
                   AcRxFunctionPtr function, void* uiContext = nullptr, int functionCode = -1,
                   void* resourceHandle = nullptr, AcEdCommand** commandOut = nullptr);
    /// Acad::eKeyNotFound when there is no such group.
    int removeGroup(const char* group);
    /// Null when no module knows the name.
    const AcEdCommand* lookupCmd(const char* name) const;
    const std::vector<AcEdCommand>& commands() const { return commands_; }

private:
    std::vector<AcEdCommand> commands_;
};

AcEdCommandStack* acedCommandStackInstance();
#define acedRegCmds acedCommandStackInstance()
