#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include "apps/desk/MainWindow.h"
#include "apps/desk/application.h"
#include "apps/windows/interface_text.h"

namespace {
std::string AbsolutePath(const QString& path) {
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath()).toStdString();
}

/// The suite folder asked for: the option's, else the environment's, else the current one if it is
/// a suite folder; empty for none.
std::string SuiteAskedFor(const QCommandLineParser& arguments) {
    if (arguments.isSet(QStringLiteral("suite"))) {
        return AbsolutePath(arguments.value(QStringLiteral("suite")));
    }
    if (qEnvironmentVariableIsSet("GRDX_SUITE")) {
        return AbsolutePath(qEnvironmentVariable("GRDX_SUITE"));
    }
    return QFileInfo::exists(QStringLiteral("suite.ini")) ? AbsolutePath(QStringLiteral("."))
                                                          : std::string();
}
}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    desk::SetUpApplication();
    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        windows::InterfaceText("Grain-size analysis charts", "颗粒分析成果图"));
    arguments.addHelpOption();
    arguments.addOption({{QStringLiteral("s"), QStringLiteral("suite")},
                         windows::InterfaceText("suite folder", "工程目录"),
                         QStringLiteral("DIR")});
    arguments.addPositionalArgument(QStringLiteral("FILE.dwg"),
                                    windows::InterfaceText("drawings to open", "要打开的图形"),
                                    QStringLiteral("[FILE.dwg...]"));
    arguments.process(application);

    desk::Session session;
    std::string error;
    if (!session.Start(SuiteAskedFor(arguments), error)) {
        std::string unsaid;
        session.Start("", error.empty() ? error : unsaid);
    }
    desk::MainWindow window(session);
    window.show();
    const auto open = [&] {
        if (!error.empty()) {
            window.TellError(QString::fromStdString(error));
        }
        window.OpenDrawings(arguments.positionalArguments());
    };
    QTimer onceSeen;
    onceSeen.setSingleShot(true);
    QObject::connect(&onceSeen, &QTimer::timeout, &window, open);
    onceSeen.start(0);
    return QApplication::exec();
}
