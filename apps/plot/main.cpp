#include <QGuiApplication>
#include <iostream>
#include <map>

#include <CLI/CLI.hpp>

#include "apps/plot/plot.h"
#include "host/Host.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/win32/code_page.h"

namespace {

constexpr int kDone = 0;
constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

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
        const std::string plugin = host::Host::FindModule(kPlugin);
        if (plugin.empty()) {
            error = std::string(kPlugin) +
                    " is neither beside the program nor in the folder "
                    "\"lib\" beside its folder";
            return false;
        }
        return host_.LoadModule(plugin, error);
    }

private:
    mfc::ScriptedWindowSystem windows_;
    host::Host host_;
};

bool Run(const plot::Request& request, const std::string& suite) {
    Session session;
    std::string error;
    if (!session.start(suite, error)) {
        Complain(error);
        return false;
    }
    return Plot(request, {[](const std::string& path) { std::cout << path << std::endl; }, Complain,
                          Complain});
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Drawings as pages and pictures"};
    app.name("grdx plot");
    plot::Request request;
    std::string suite;
    const std::map<std::string, plot::Format> formats{
        {"pdf", plot::Format::kPdf}, {"svg", plot::Format::kSvg}, {"png", plot::Format::kPng}};
    app.add_option("file", request.drawings, "DWG file")->required();
    app.add_option("--to", request.format, "kind of page: pdf, svg or png")
        ->required()
        ->transform(CLI::Transformer(formats))
        ->type_name("");
    app.add_option("-o,--output", request.output,
                   "the file to write, all drawings as pages of one PDF; else one beside each");
    app.add_option("--dpi", request.options.dpi, "dots an inch of PNG pictures")
        ->check(CLI::Range(10.0, 2400.0))
        ->capture_default_str();
    app.add_flag("--monochrome", request.options.monochrome, "everything black");
    app.add_option("-s,--suite", suite, "suite folder, for its fonts")->envname("GRDX_SUITE");
    try {
        app.parse(argc, argv);
        if (request.format != plot::Format::kPdf && request.drawings.size() > 1 &&
            !request.output.empty()) {
            throw CLI::ValidationError("--output", "names one page, so it goes with one drawing");
        }
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kDone : kWrongUsage;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(PassOnFaults);
    const QGuiApplication application(argc, argv);
    return Run(request, suite) ? kDone : kRefused;
}
