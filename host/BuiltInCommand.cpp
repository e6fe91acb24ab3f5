#include "host/BuiltInCommand.h"

#include <strings.h>

namespace host {

const BuiltInCommand* FindBuiltInCommand(const std::string& name) {
    for (const auto* family : {&DocumentCommands(), &ViewCommands(), &SettingCommands(),
                               &EditCommands(), &InquiryCommands()}) {
        for (const BuiltInCommand& command : *family) {
            if (strcasecmp(command.name, name.c_str()) == 0) {
                return &command;
            }
        }
    }
    return nullptr;
}

}  // namespace host
