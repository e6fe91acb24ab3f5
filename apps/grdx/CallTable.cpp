#include "apps/grdx/CallTable.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <string_view>

#include "apps/grdx/Failure.h"
#include "apps/grdx/LockPatience.h"
#include "apps/grdx/plot_handover.h"
#include "apps/terminal/help.h"
#include "host/version.h"
#include "platform/suite/suite_folder.h"

namespace console {

using terminal::Help;

namespace {
constexpr int kDone = 0;
constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

constexpr const char* kPlot = "plot";

/// Agrees for the user to what the suite folder leads to outside of itself.
void TrustSuite(const std::string& folder, MessageStream& messages) {
    std::vector<suite::OutsidePlace> places;
    std::string error;
    if (!suite::CheckFolder(folder, places, error) ||
        (!places.empty() && !suite::AgreeToFolder(folder, places, error))) {
        throw Failure(error);
    }
    if (!places.empty()) {
        messages.Report("from now on " + folder + " uses\n" +
                        DescribePlaces(places, places.size()));
    }
}

/// Names the word that stands where a call should: the parser alone only says that one is missing.
void RefuseUnknownCall(const CLI::App& program, int argc, char** argv) {
    const CLI::App* group = &program;
    for (int index = 1; index < argc && argv[index][0] != '-'; ++index) {
        const auto calls = group->get_subcommands({});
        if (calls.empty()) {
            return;
        }
        std::string names;
        const CLI::App* named = nullptr;
        for (const CLI::App* call : calls) {
            named = call->get_name() == argv[index] ? call : named;
            names += (names.empty() ? "" : ", ") + call->get_name();
        }
        if (named == nullptr) {
            throw CLI::ExtrasError("\"" + std::string(argv[index]) + "\" is no call of " +
                                       group->get_name() + ", which has " + names,
                                   CLI::ExitCodes::ExtrasError);
        }
        group = named;
    }
}
}  // namespace

CallTable::CallTable() {
    terminal::DescribeProgram(program_, "grdx",
                              Help("Grain-size analysis charts", "颗粒分析成果图"),
                              host::VersionText("grdx"));
    program_.require_subcommand(1);
    program_.footer(Help(
        "A project lives in a suite folder, which holds its settings, its database and the\n"
        "sheets drawn: 'grdx new DIR' makes one, the other calls work in the one that -s, the\n"
        "variable GRDX_SUITE or the current folder names. 'grdx CALL --help' tells of a call.",
        "一个工程存放在一个工程目录中，内有配置文件、数据库和成果图。grdx new DIR 新建工程目录，\n"
        "其余命令使用 -s、环境变量 GRDX_SUITE 或当前目录指定的工程目录。grdx 命令 --help "
        "显示该命令的用法。"));
}

CLI::App& CallTable::Add(CLI::App& parent, const char* name, const std::string& what, Call call) {
    CLI::App& added = *parent.add_subcommand(name, what);
    added.group(Help("Subcommands", "子命令"));
    added.footer("");
    added.get_help_ptr()->group(Help("Options", "选项"));
    added.callback([this, call = std::move(call)] { chosen_ = call; });
    return added;
}

CLI::App& CallTable::AddGroup(const char* name, const std::string& what) {
    CLI::App& group = Add(program_, name, what, nullptr);
    group.callback({});
    group.require_subcommand(1);
    return group;
}

void CallTable::AddSuite(CLI::App& call) {
    // Of its own, since the environment is also read for the calls that are not made.
    std::string& suite = suites_.try_emplace(&call, ".").first->second;
    terminal::AddSuiteOption(call, suite)->capture_default_str();
    terminal::AddTrustFlag(call, trust_);
}

const std::string& CallTable::Suite() const {
    const auto made = std::find_if(suites_.begin(), suites_.end(),
                                   [](const auto& entry) { return entry.first->parsed(); });
    static const std::string kNone;
    return made != suites_.end() ? made->second : kNone;
}

void CallTable::AddWait(CLI::App& call) {
    constexpr int kDay = 86400;
    call.add_option("--wait", waitSeconds_,
                    Help("how long to wait for a database that another program has locked, in "
                         "seconds (at most a day)",
                         "数据库被其他程序锁定时最多等待的秒数（不超过一天）"))
        ->type_name("SECONDS")
        ->check(CLI::Range(0, kDay).description(""))
        ->capture_default_str();
}

int CallTable::Run(int argc, char** argv) {
    MessageStream messages;
    const int status = Parse(argc, argv, messages);
    if (!messages.ResultFault().empty()) {
        messages.Report(messages.ResultFault());
    }
    return messages.ResultsFailed() ? kRefused : status;
}

int CallTable::Parse(int argc, char** argv, MessageStream& messages) {
    try {
        if (argc > 1 && std::string_view(argv[1]) == kPlot) {
            HandOverToPlotting(argv + 1);
        }
        RefuseUnknownCall(program_, argc, argv);
        program_.parse(argc, argv);
        if (trust_) {
            TrustSuite(Suite(), messages);
        }
        const LockPatience patience(messages, waitSeconds_);
        return chosen_(messages) ? kDone : kRefused;
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        const int status = program_.exit(error, help) == 0 ? kDone : kWrongUsage;
        messages.PrintResult(help.str());
        return status;
    } catch (const std::exception& failure) {
        messages.Report(failure.what());
        return kRefused;
    }
}

void AddPlotCall(CallTable& calls) {
    // Only its line in the help: the program beside this one has it, as it needs a window system.
    calls.Add(calls.Program(), kPlot,
              Help("drawings as PDF or SVG pages or PNG pictures", "把图形输出为 PDF、SVG 或 PNG"),
              nullptr);
}

}  // namespace console
