#pragma once

#include <string>
#include <vector>

#include "host/phrase.h"

namespace host {

class Host;

/// A command that every drawing has, beside those that modules add.
struct BuiltInCommand {
    using Arguments = std::vector<std::string>;
    /// What its first argument picks.
    enum class Picks { kNothing, kOne, kSeveral };

    const char* name;  ///< global name, upper case
    /// Opens, closes or switches documents: runs in the application context, and also when no
    /// document is open.
    bool session;
    /// What is asked for, one argument each, in this order.
    std::vector<Phrase> prompts;
    /// Gets one argument (GBK) for each prompt. False when it failed; the reason is then on the
    /// command line.
    bool (*run)(Host& host, const Arguments& arguments);
    Picks picks = Picks::kNothing;
};

/// The command of that name (without regard to case); null when there is none.
const BuiltInCommand* FindBuiltInCommand(const std::string& name);

// The commands by family, each in a file of its own in host/commands.
const std::vector<BuiltInCommand>& DocumentCommands();
const std::vector<BuiltInCommand>& ViewCommands();
const std::vector<BuiltInCommand>& SettingCommands();
const std::vector<BuiltInCommand>& EditCommands();
const std::vector<BuiltInCommand>& InquiryCommands();
const std::vector<BuiltInCommand>& UndoCommands();

}  // namespace host
