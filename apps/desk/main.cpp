#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <iostream>
#include <string_view>

#include "apps/desk/MainWindow.h"
#include "apps/desk/application.h"
#include "apps/windows/interface_text.h"
#include "host/version.h"

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
void DescribeArguments(QCommandLineParser& arguments) {
    arguments.setApplicationDescription(
        windows::InterfaceText("Grain-size analysis charts", "颗粒分析成果图"));
    arguments.addHelpOption();
    arguments.addVersionOption();
    arguments.addOption({{QStringLiteral("s"), QStringLiteral("suite")},
                         windows::InterfaceText("suite folder", "工程目录"),
                         QStringLiteral("DIR")});
    arguments.addPositionalArgument(QStringLiteral("FILE.dwg"),
                                    windows::InterfaceText("drawings to open", "要打开的图形"),
                                    QStringLiteral("[FILE.dwg...]"));
}

/// Answers --help and --version, which need no screen, in a program that has none. False when
/// neither was asked for.
bool AnswerWithoutScreen(QCommandLineParser& arguments, int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // What is wrong with the others is told when there is a window system to know its own by.
    arguments.parse(QCoreApplication::arguments());
    if (arguments.isSet(QStringLiteral("version"))) {
        std::cout << host::VersionText("desk") << '\n';
    } else if (arguments.isSet(QStringLiteral("help"))) {
        std::cout << arguments.helpText().toStdString();
    } else {
        return false;
    }
    return true;
}
}  // namespace

int main(int argc, char** argv) {
    QCommandLineParser arguments;
    DescribeArguments(arguments);
    if (AnswerWithoutScreen(arguments, argc, argv)) {
        return 0;
    }
    // Behind "--" are drawings: one that is called like an option of the window system's must not
    // name it a plug-in.
    int options = static_cast<int>(std::find(argv, argv + argc, std::string_view("--")) - argv);
    QStringList behind;
    for (int i = options; i < argc; ++i) {
        behind.append(QString::fromLocal8Bit(argv[i]));
    }
    const QApplication application(options, argv);
    desk::SetUpApplication();
    arguments.process(QApplication::arguments() + behind);

    desk::DeskSession session;
    std::string error;
    const std::string suite = SuiteAskedFor(arguments);
    if (!session.Admit(suite, error) || !session.Start(suite, error)) {
        std::string unsaid;
        session.Start("", error.empty() ? error : unsaid);
    }
    desk::MainWindow window(session);
    window.show();
    const auto open = [&] {
        if (!error.empty()) {
            window.TellSuiteFault(QString::fromStdString(SuiteAskedFor(arguments)), error);
        }
        window.OpenDrawings(arguments.positionalArguments());
    };
    QTimer onceSeen;
    onceSeen.setSingleShot(true);
    QObject::connect(&onceSeen, &QTimer::timeout, &window, open);
    onceSeen.start(0);
    return QApplication::exec();
}
