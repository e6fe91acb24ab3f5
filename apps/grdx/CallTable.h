#pragma once

#include <functional>
#include <map>
#include <string>

#include <CLI/CLI.hpp>

#include "apps/grdx/MessageStream.h"

namespace console {

/// The calls that the program offers, and the running of the one that a command line makes.
/// Exit status: 0 done, 1 refused or failed, 2 wrong usage.
class CallTable {
public:
    /// What a call does; false when something asked for was not done, which it has told.
    using Call = std::function<bool(MessageStream& messages)>;

    CallTable();

    CLI::App& Program() { return program_; }
    /// A call below `parent`, which is the program or a group of calls.
    CLI::App& Add(CLI::App& parent, const char* name, const std::string& what, Call call);
    /// Calls that go together under one word.
    CLI::App& AddGroup(const char* name, const std::string& what);

    // Options that several calls take, read by them when they run.
    void AddSuite(CLI::App& call);
    void AddWait(CLI::App& call);
    /// The suite folder of the call that is made.
    const std::string& Suite() const;

    int Run(int argc, char** argv);

private:
    int Parse(int argc, char** argv, MessageStream& messages);

    CLI::App program_;
    std::map<const CLI::App*, std::string> suites_;
    bool trust_ = false;
    int waitSeconds_ = 30;
    Call chosen_;
};

/// Each enters its calls; their arguments live as long as the table.
void AddNewCall(CallTable& calls);
void AddCopyCall(CallTable& calls);
void AddImportCalls(CallTable& calls);
void AddListCall(CallTable& calls);
void AddProjectCall(CallTable& calls);
void AddCheckCall(CallTable& calls);
void AddExportCalls(CallTable& calls);
void AddDrawCalls(CallTable& calls);
void AddInfoCall(CallTable& calls);
void AddPlotCall(CallTable& calls);
void AddScriptCall(CallTable& calls);

}  // namespace console
