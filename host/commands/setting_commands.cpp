#include "host/BuiltInCommand.h"
#include "host/dialogue.h"
#include "platform/ed/system_variables.h"

namespace host {

namespace {
bool SetSdi(Host& /*host*/, const BuiltInCommand::Arguments& arguments) {
    const std::string& value = arguments.front();
    if (value != "0" && value != "1") {
        return Complain("SDI takes 0 (several documents) or 1 (a single one), not \"%1\".",
                        {value});
    }
    resbuf mode;
    mode.restype = RTSHORT;
    mode.resval.rint = value == "1" ? 1 : 0;
    return acedSetVar("SDI", &mode) == RTNORM;
}
}  // namespace

const std::vector<BuiltInCommand>& SettingCommands() {
    static const std::vector<BuiltInCommand> commands = {
        {"SDI", true, {"New value for SDI (0 or 1): "}, SetSdi},
    };
    return commands;
}

}  // namespace host
