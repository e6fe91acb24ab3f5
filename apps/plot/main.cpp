#include <QGuiApplication>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>

#include <CLI/CLI.hpp>

#include "apps/plot/plot.h"
#include "apps/terminal/help.h"
#include "host/Host.h"
#include "host/ResultStream.h"
#include "host/version.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/suite/suite_folder.h"
#include "platform/win32/code_page.h"
#include "platform/win32/number_text.h"

namespace {

using terminal::Help;

constexpr int kDone = 0;
constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

constexpr const char* kNamesFollow = "-";  ///< in place of drawings

constexpr const char* kPlugin = "grdx.arx";

void Complain(const std::string& finding) {
    std::cerr << "grdx: " << finding << '\n';
}

/// The window system's warnings are about sessions and screens, which plotting has none of.
void PassOnFaults(QtMsgType type, const QMessageLogContext& /*place*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        Complain(text.toStdString());
    }
}

/// A drawing program that shows nothing and says everything on standard error.
class Session {
public:
    Session() {
        mfc::SetWindowSystem(&windows_);
        windows_.SetBoxSink([](const mfc::MessageBoxRequest& box) {
            std::cerr << win32::Utf8FromGbk(box.text) << '\n';
        });
    }
    ~Session() { mfc::SetWindowSystem(nullptr); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool start(const std::string& suite, std::string& error) {
        if (!suite.empty() && !host_.OpenSuite(suite, error)) {
            return false;
        }
        const std::string plugin = host::Host::FindModule(kPlugin, error);
        return !plugin.empty() && host_.LoadModule(plugin, error);
    }

private:
    mfc::ScriptedWindowSystem windows_;
    host::Host host_;
};

/// Agrees for the user to what the suite folder leads to outside of itself.
bool Trust(const std::string& folder, std::string& error) {
    std::vector<suite::OutsidePlace> places;
    return suite::CheckFolder(folder, places, error) &&
           (places.empty() || suite::AgreeToFolder(folder, places, error));
}

bool Run(const plot::Request& request, const std::string& suite, bool trust,
         host::ResultStream& results) {
    Session session;
    std::string error;
    if ((trust && !Trust(suite, error)) || !session.start(suite, error)) {
        Complain(error);
        return false;
    }
    return Plot(request,
                {[&](const std::string& path) { results.Print(path + "\n"); }, Complain, Complain});
}

/// The lines of standard input.
std::vector<std::string> ReadNames() {
    std::vector<std::string> names;
    for (std::string name; std::getline(std::cin, name);) {
        names.push_back(name);
    }
    return names;
}

/// What stands against a resolution; empty for a good one.
std::string CheckResolution(const std::string& text) {
    const std::optional<double> dots = win32::ParseNumber(text);
    const bool good = dots && *dots >= 10.0 && *dots <= 2400.0;
    return good ? "" : text + " is no number of dots an inch from 10 to 2400";
}

/// What the command line asked for.
class CommandLine {
public:
    CommandLine() {
        terminal::DescribeProgram(app_, "grdx plot",
                                  Help("Drawings as pages and pictures", "把图形输出为页面或图像"),
                                  host::VersionText("grdx-plot"));
        app_.add_option(
                "file", request_.drawings,
                Help("drawing; - reads the drawings' names from standard input, a line each",
                     "图形文件；- 表示从标准输入读取文件名，每行一个"))
            ->type_name("FILE.dwg")
            ->required();
        app_.add_option("--to", request_.format,
                        Help("kind of page; SVG and PNG hold one drawing a file",
                             "输出格式；SVG 和 PNG 每个文件一个图形"))
            ->required()
            ->transform(
                CLI::Transformer(std::map<std::string, plot::Format>{{"pdf", plot::Format::kPdf},
                                                                     {"svg", plot::Format::kSvg},
                                                                     {"png", plot::Format::kPng}})
                    .description(""))
            ->type_name("pdf|svg|png");
        app_.add_option("-o,--output", request_.output,
                        Help("the file to write, drawings as pages of one PDF; without it one file "
                             "beside each drawing",
                             "输出文件，PDF 可含多页；省略时在每个图形旁各写一个文件"))
            ->type_name("FILE");
        app_.add_option("--dpi", request_.options.dpi,
                        Help("resolution of PNG pictures in dots an inch, 10 to 2400",
                             "PNG 图像的分辨率，每英寸点数，10 至 2400"))
            ->type_name("N")
            ->check(CheckResolution)
            ->capture_default_str();
        app_.add_flag("--monochrome", request_.options.monochrome,
                      Help("everything black", "全部用黑色"));
        terminal::AddSuiteOption(app_, suite_);
        terminal::AddTrustFlag(app_, trust_);
    }

    int run(int argc, char** argv) {
        host::ResultStream results;
        const int status = run(argc, argv, results);
        if (!results.Fault().empty()) {
            Complain(results.Fault());
        }
        return results.Failed() ? kRefused : status;
    }

private:
    int run(int argc, char** argv, host::ResultStream& results) {
        try {
            app_.parse(argc, argv);
            if (request_.format != plot::Format::kPdf && request_.drawings.size() > 1 &&
                !request_.output.empty()) {
                throw CLI::ValidationError("--output",
                                           "names one page, so it goes with one drawing");
            }
        } catch (const CLI::ParseError& error) {
            std::ostringstream help;
            const int status = app_.exit(error, help) == 0 ? kDone : kWrongUsage;
            results.Print(help.str());
            return status;
        }
        if (request_.drawings == std::vector<std::string>{kNamesFollow}) {
            request_.drawings = ReadNames();
            if (request_.drawings.empty()) {
                Complain("standard input names no drawing");
                return kRefused;
            }
        }
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(PassOnFaults);
        // Its own options are not asked for: a drawing called like one must not name it a plug-in.
        int nameOnly = 1;
        const QGuiApplication application(nameOnly, argv);
        return Run(request_, suite_, trust_, results) ? kDone : kRefused;
    }

    CLI::App app_;
    plot::Request request_;
    std::string suite_;
    bool trust_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    try {
        return CommandLine().run(argc, argv);
    } catch (const std::exception& failure) {
        Complain(failure.what());
        return kRefused;
    }
}
