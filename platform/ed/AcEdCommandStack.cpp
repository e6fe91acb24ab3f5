#include "platform/ed/AcEdCommandStack.h"

#include <algorithm>

#include "platform/rx/Acad.h"
#include "platform/win32/gbk_case.h"

ACRX_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject, nullptr);

namespace {
bool SameName(const std::string& left, const char* right) {
    return win32::EqualNoCase(left, right);
}
}  // namespace

int AcEdCommandStack::addCommand(const char* group, const char* globalName, const char* localName,
                                 int flags, AcRxFunctionPtr function, void* /*uiContext*/,
                                 int /*functionCode*/, void* /*resourceHandle*/,
                                 AcEdCommand** /*commandOut*/) {
    if (group == nullptr || globalName == nullptr || *globalName == '\0' || function == nullptr) {
        return Acad::eInvalidInput;
    }
    const bool taken = std::any_of(commands_.begin(), commands_.end(), [&](const auto& command) {
        return SameName(command.group, group) && SameName(command.globalName, globalName);
    });
    if (taken) {
        return Acad::eDuplicateKey;
    }
    const char* local = localName != nullptr && *localName != '\0' ? localName : globalName;
    commands_.push_back({group, globalName, local, flags, function});
    return Acad::eOk;
}

int AcEdCommandStack::removeGroup(const char* group) {
    const auto removed = std::erase_if(
        commands_, [&](const AcEdCommand& command) { return SameName(command.group, group); });
    return removed > 0 ? Acad::eOk : Acad::eKeyNotFound;
}

const AcEdCommand* AcEdCommandStack::lookupCmd(const char* name) const {
    const auto found = std::find_if(commands_.begin(), commands_.end(), [&](const auto& command) {
        return SameName(command.globalName, name) || SameName(command.localName, name);
    });
    return found != commands_.end() ? &*found : nullptr;
}

AcEdCommandStack* acedCommandStackInstance() {
    static AcEdCommandStack stack;
    return &stack;
}
