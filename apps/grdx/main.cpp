#include <exception>
#include <sstream>
#include <string_view>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "apps/grdx/Failure.h"
#include "apps/grdx/InputStream.h"
#include "apps/grdx/LockPatience.h"
#include "apps/grdx/MessageStream.h"
#include "apps/grdx/data_import.h"
#include "apps/grdx/draw.h"
#include "apps/grdx/drawing_info.h"
#include "apps/grdx/new_suite.h"
#include "apps/grdx/numbers.h"
#include "apps/grdx/plot.h"
#include "apps/grdx/project.h"
#include "apps/grdx/script.h"
#include "apps/grdx/suite_access.h"
#include "apps/grdx/suite_listing.h"
#include "host/version.h"
#include "lab/project_database.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/file_fault.h"

namespace {

using console::Failure;
using console::MessageStream;

constexpr int kDone = 0;
constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

constexpr const char* kPlot = "plot";

/// What the command line asked for; each call reads its own part.
struct Options {
    std::string suite = ".";
    bool trust = false;
    std::string folder;
    console::ProjectData project{1, "P1", "新建工程", 0};
    std::string file;
    std::vector<std::string> files;
    lab::ProjectChange change;
    bool json = false;
    bool layers = false;
    int waitSeconds = 30;
    console::DrawRequest draw;
};

/// Agrees for the user to what the suite folder leads to outside of itself.
void TrustSuite(const Options& options, MessageStream& messages) {
    std::vector<suite::OutsidePlace> places;
    std::string error;
    if (!suite::CheckFolder(options.suite, places, error) ||
        (!places.empty() && !suite::AgreeToFolder(options.suite, places, error))) {
        throw Failure(error);
    }
    if (!places.empty()) {
        messages.Report("from now on " + options.suite + " uses\n" +
                        DescribePlaces(places, places.size()));
    }
}

/// For calls that read profiles by themselves: one that cannot be read is not taken for an empty
/// one.
void OpenSuite(const Options& options) {
    win32::SetFileFaultListener([](const std::string& text) { throw Failure(text); });
    std::string error;
    if (!suite::OpenFolder(options.suite, error)) {
        throw Failure(error);
    }
}

void ThrowIfAny(const std::vector<console::LineError>& errors, const std::string& path) {
    std::string text;
    for (const console::LineError& error : errors) {
        text += (text.empty() ? "" : "\n") + path + ":" + std::to_string(error.line) + ": " +
                error.reason;
    }
    if (!text.empty()) {
        throw Failure(text);
    }
}

std::string Count(std::size_t count, const std::string& unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

bool ImportSamples(const Options& options, MessageStream& messages) {
    OpenSuite(options);
    std::vector<console::LineError> errors;
    const auto samples = console::ReadSampleFile(console::ReadInputText(options.file), errors);
    ThrowIfAny(errors, options.file);
    oledb::SqlDatabase database = lab::OpenProjectDatabase(oledb::Access::Change);
    console::StoreSamples(database, console::CurrentProject().index, samples);
    std::size_t items = 0;
    for (const auto& sample : samples) {
        items += sample.items.size();
    }
    messages.PrintResult(Count(samples.size(), "sample") + ", " + Count(items, "sieve item") +
                         "\n");
    return true;
}

bool ImportLayers(const Options& options, MessageStream& messages) {
    OpenSuite(options);
    std::vector<console::LineError> errors;
    const auto layers = console::ReadLayerFile(console::ReadInputText(options.file), errors);
    ThrowIfAny(errors, options.file);
    oledb::SqlDatabase database = lab::OpenProjectDatabase(oledb::Access::Change);
    console::StoreLayers(database, console::CurrentProject().index, layers);
    messages.PrintResult(Count(layers.size(), "layer") + "\n");
    return true;
}

bool NewSuite(const Options& options, MessageStream& messages) {
    console::MakeSuiteFolder(options.folder, options.project);
    messages.PrintResult(options.folder + "\n");
    return true;
}

bool List(const Options& options, MessageStream& messages) {
    OpenSuite(options);
    const console::SuiteListing listing = console::ReadSuite();
    messages.PrintResult(options.json ? console::SuiteAsJson(listing).dump() + "\n"
                                      : console::DescribeSuite(listing));
    return true;
}

bool Project(const Options& options, MessageStream& messages) {
    OpenSuite(options);
    console::ShowProject(options.change, options.json, messages);
    return true;
}

bool Draw(const Options& options, MessageStream& messages) {
    return console::DrawCharts(options.suite, options.draw, messages);
}

bool Info(const Options& options, MessageStream& messages) {
    bool good = true;
    for (const std::string& file : options.files) {
        try {
            const console::DrawingInfo info = console::ReadDrawingInfo(file, options.layers);
            messages.PrintResult(options.json ? console::DrawingAsJson(info).dump() + "\n"
                                              : console::DescribeDrawing(info));
            for (const std::string& line : info.damage) {
                messages.Report(line);
                good = false;
            }
        } catch (const Failure& failure) {
            messages.Report(failure.what());
            good = false;
        }
    }
    return good;
}

bool Script(const Options& options, MessageStream& messages) {
    return console::RunScript(options.suite, options.file, messages);
}

using Call = bool (*)(const Options& options, MessageStream& messages);

/// The calls that the command line offers, and which of them was made.
class CommandLine {
public:
    CommandLine() {
        app_.name("grdx");
        app_.set_version_flag("--version", host::VersionText("grdx"),
                              "Print version and formats and exit");
        app_.require_subcommand(1);
        AddNew();
        AddImport();
        AddList();
        AddProject();
        AddDraw();
        AddInfo();
        app_.add_subcommand(kPlot, "drawings as pages and pictures");
        AddScript();
    }

    int Run(int argc, char** argv) {
        MessageStream messages;
        const int status = Parse(argc, argv, messages);
        if (!messages.ResultFault().empty()) {
            messages.Report(messages.ResultFault());
        }
        return messages.ResultsFailed() ? kRefused : status;
    }

private:
    int Parse(int argc, char** argv, MessageStream& messages) {
        try {
            if (argc > 1 && std::string_view(argv[1]) == kPlot) {
                console::HandOverToPlotting(argv + 1);
            }
            app_.parse(argc, argv);
            if (options_.trust) {
                TrustSuite(options_, messages);
            }
            const console::LockPatience patience(messages, options_.waitSeconds);
            return chosen_(options_, messages) ? kDone : kRefused;
        } catch (const CLI::ParseError& error) {
            std::ostringstream help;
            const int status = app_.exit(error, help) == 0 ? kDone : kWrongUsage;
            messages.PrintResult(help.str());
            return status;
        } catch (const std::exception& failure) {
            messages.Report(failure.what());
            return kRefused;
        }
    }

    CLI::App* AddCall(CLI::App& parent, const char* name, const char* what, Call call) {
        CLI::App* const added = parent.add_subcommand(name, what);
        added->callback([this, call] { chosen_ = call; });
        return added;
    }

    void AddSuite(CLI::App& call) {
        call.add_option("-s,--suite", options_.suite, "suite folder")
            ->envname("GRDX_SUITE")
            ->capture_default_str();
        call.add_flag("--trust", options_.trust,
                      "agree to what the suite folder uses outside of itself");
    }

    void AddWait(CLI::App& call) {
        constexpr int kDay = 86400;
        call.add_option("--wait", options_.waitSeconds,
                        "seconds to wait for a database that another program has locked")
            ->check(CLI::Range(0, kDay))
            ->capture_default_str();
    }

    void AddNew() {
        CLI::App& call =
            *AddCall(app_, "new", "make a suite folder with an empty project", NewSuite);
        call.add_option("folder", options_.folder, "the folder, new or empty")->required();
        call.add_option("--number", options_.project.number,
                        "project number; names the output folder")
            ->capture_default_str();
        call.add_option("--name", options_.project.name, "project name")->capture_default_str();
        call.add_option("--code", options_.project.code,
                        "standard code: 2 six charts on A3, 1 other bound of fine sand")
            ->check(CLI::IsMember({0, 1, 2}))
            ->capture_default_str();
    }

    void AddImport() {
        CLI::App& import = *app_.add_subcommand("import", "read data into the project database");
        import.require_subcommand(1);
        CLI::App* const samples =
            AddCall(import, "samples",
                    "CSV: borehole,sample,depth,thickness,method,total,size,mass", ImportSamples);
        CLI::App* const layers =
            AddCall(import, "layers", "CSV: main,sub,size,percent", ImportLayers);
        for (CLI::App* call : {samples, layers}) {
            call->add_option("file", options_.file, "CSV file, UTF-8 or GBK")->required();
            AddSuite(*call);
            AddWait(*call);
        }
    }

    void AddList() {
        CLI::App& call =
            *AddCall(app_, "list", "boreholes, samples and layers with marks and results", List);
        call.add_flag("--json", options_.json, "as one JSON object");
        AddSuite(call);
    }

    void AddProject() {
        CLI::App& call = *AddCall(app_, "project", "shows and changes the project's data", Project);
        call.add_option("--number", options_.change.number, "project number");
        call.add_option("--name", options_.change.name, "project name");
        call.add_option("--code", options_.change.code, "standard code")
            ->check(CLI::IsMember({0, 1, 2}));
        call.add_option("--checked", options_.change.checked, "whether the data count as checked")
            ->check(CLI::IsMember({"yes", "no"}));
        call.add_flag("--json", options_.json, "as one JSON object");
        AddSuite(call);
    }

    void AddDraw() {
        CLI::App& draw =
            *app_.add_subcommand("draw", "draw charts; prints the path of every sheet");
        draw.require_subcommand(1);
        CLI::App& samples = *AddCall(draw, "samples", "charts of samples of a borehole", Draw);
        samples.add_option("--borehole", options_.draw.borehole, "borehole number")->required();
        AddItems(samples, "--sample", "sample number; may be given several times");
        CLI::App& layers = *AddCall(draw, "layers", "charts of soil layers", Draw);
        layers.preparse_callback([this](std::size_t) { options_.draw.layers = true; });
        AddItems(layers, "--layer", "layer, as 2 or 2-1; may be given several times");
    }

    void AddItems(CLI::App& call, const char* name, const char* what) {
        CLI::Option* const items =
            call.add_option(name, options_.draw.items, what)->allow_extra_args(false);
        CLI::Option* const all = call.add_flag("--all", options_.draw.all, "everything offered");
        items->excludes(all);
        call.parse_complete_callback([this, name] {
            if (options_.draw.items.empty() && !options_.draw.all) {
                throw CLI::RequiredError(std::string(name) + " or --all");
            }
        });
        AddPageChoices(call);
        AddSuite(call);
        AddWait(call);
    }

    void AddPageChoices(CLI::App& call) {
        console::PageChoices& choices = options_.draw.choices;
        AddAnnotation(call, "unit", choices.unit, choices.showUnit);
        AddAnnotation(call, "tester", choices.tester, choices.showTester);
        AddAnnotation(call, "checker", choices.checker, choices.showChecker);
        AddAnnotation(call, "date", choices.date, choices.showDate)
            ->check([](const std::string& text) {
                return console::IsDate(text) ? std::string() : text + " is no date YYYY-MM-DD";
            });
        AddSwitch(call, "outer-frame", choices.outerFrame);
        AddSwitch(call, "right-axis", choices.rightAxis);
        AddSwitch(call, "recompute", choices.recompute);
    }

    static CLI::Option* AddAnnotation(CLI::App& call, const std::string& name,
                                      std::optional<std::string>& text,
                                      std::optional<bool>& shown) {
        call.add_flag_callback(
            "--no-" + name, [&shown] { shown = false; }, "do not write it");
        return call.add_option_function<std::string>(
            "--" + name, [&text](const std::string& value) { text = value; }, "write it");
    }

    static void AddSwitch(CLI::App& call, const std::string& name, std::optional<bool>& on) {
        call.add_flag_function(
            "--" + name + ",!--no-" + name, [&on](std::int64_t count) { on = count > 0; },
            "as on the option page");
    }

    void AddInfo() {
        CLI::App& call = *AddCall(app_, "info", "what drawings hold", Info);
        call.add_option("file", options_.files, "DWG file")->required();
        call.add_flag("--json", options_.json, "one JSON object a file");
        call.add_flag("--layers", options_.layers, "read the curves as those of layer charts");
    }

    void AddScript() {
        CLI::App& call =
            *AddCall(app_, "script", "command-line input with answers to dialogs", Script);
        call.add_option("file", options_.file, "the script, - for standard input")->required();
        AddSuite(call);
        AddWait(call);
    }

    CLI::App app_{"Grain-size analysis charts"};
    Options options_;
    Call chosen_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
    return CommandLine().Run(argc, argv);
}
