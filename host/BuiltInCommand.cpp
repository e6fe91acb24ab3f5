#include "host/BuiltInCommand.h"

#include "platform/win32/gbk_case.h"

namespace host {

const BuiltInCommand* FindBuiltInCommand(const std::string& name) {
    for (const auto* family : {&DocumentCommands(), &ViewCommands(), &SettingCommands(),
                               &EditCommands(), &InquiryCommands(), &UndoCommands()}) {
        for (const BuiltInCommand& command : *family) {
            if (win32::EqualNoCase(command.name, name)) {
                return &command;
            }
        }
    }
    return nullptr;
}

}  // namespace host
