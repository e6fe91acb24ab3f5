// What the main window does with files and folders.

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QMenu>
#include <QSettings>
#include <optional>

#include "apps/desk/CommandLine.h"
#include "apps/desk/DrawingView.h"
#include "apps/desk/MainWindow.h"
#include "apps/desk/PlotWindow.h"
#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/win32/windows_path.h"

namespace desk {

namespace {
constexpr const char* kRecentSuites = "recentSuites";
constexpr qsizetype kRecentCount = 8;
constexpr qsizetype kToldFaults = 20;  ///< more do not fit on a screen

QString DrawingFilter() {
    return windows::InterfaceText("Drawings (*.dwg)", "图形文件 (*.dwg)");
}

QStringList RecentSuites() {
    return QSettings().value(QLatin1String(kRecentSuites)).toStringList();
}

/// The path of a file as a word of the command line; nothing when GBK cannot write it.
std::optional<QString> PathWord(const QString& path) {
    std::string windowsPath;
    if (!win32::WindowsPath(QFileInfo(path).absoluteFilePath().toStdString(), windowsPath)) {
        return std::nullopt;
    }
    return QLatin1Char('"') +
           windows::FromGbk(windowsPath).replace(QLatin1Char('"'), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

/// The folder to begin choosing in: the current drawing's, else the suite's sheets.
QString StartFolder(const DeskSession& session) {
    const AcApDocument* const document = acDocManager->curDocument();
    if (document != nullptr && !document->isUntitled()) {
        return QFileInfo(QString::fromStdString(win32::FileSystemPath(document->fileName())))
            .absolutePath();
    }
    return session.SuiteFolder().empty()
               ? QString()
               : QString::fromStdString(session.SuiteFolder()) + QStringLiteral("/output");
}
}  // namespace

void MainWindow::OpenDrawings(const QStringList& paths) {
    WorkProgress progress(this);
    QStringList failed;
    for (const QString& path : paths) {
        if (const QString fault = OpenDrawing(path); !fault.isEmpty()) {
            failed << fault;
        }
        if (progress.Step(windows::InterfaceText("Opening drawings...", "正在打开图形……"),
                          static_cast<int>(paths.size()))) {
            break;
        }
    }
    progress.End();
    if (!failed.isEmpty()) {
        TellError(failed.mid(0, kToldFaults).join(QLatin1Char('\n')));
    }
}

/// What stands against opening it; empty when it is open.
QString MainWindow::OpenDrawing(const QString& path) {
    const std::optional<QString> word = PathWord(path);
    if (!word) {
        return path + windows::InterfaceText(": the name has characters that GBK does not have",
                                             ": 文件名中有 GBK 字符集以外的字符");
    }
    std::string said;
    if (!session_.Run(windows::ToGbk(QStringLiteral("OPEN ") + *word), said)) {
        return QString::fromStdString(said).trimmed();
    }
    session_.Feed().Start("ZOOM E");
    return {};
}

void MainWindow::ChooseDrawings() {
    OpenDrawings(QFileDialog::getOpenFileNames(this,
                                               windows::InterfaceText("Open Drawings", "打开图形"),
                                               StartFolder(session_), DrawingFilter()));
}

void MainWindow::Save() {
    const AcApDocument* const document = acDocManager->curDocument();
    if (document != nullptr && document->isUntitled()) {
        ChooseSaveName();
    } else {
        RunCommand(QStringLiteral("QSAVE"), true);
    }
}

void MainWindow::ChooseSaveName() {
    const QString path =
        QFileDialog::getSaveFileName(this, windows::InterfaceText("Save Drawing As", "图形另存为"),
                                     StartFolder(session_), DrawingFilter());
    if (path.isEmpty()) {
        return;
    }
    if (const std::optional<QString> word = PathWord(path)) {
        RunCommand(QStringLiteral("SAVEAS ") + *word, true);
    } else {
        TellError(path + windows::InterfaceText(": the name has characters that GBK does not have",
                                                ": 文件名中有 GBK 字符集以外的字符"));
    }
}

void MainWindow::Plot() {
    AcApDocument* const document = acDocManager->curDocument();
    if (document == nullptr || session_.Feed().IsRunning()) {
        return;
    }
    PlotWindow window(documents_, document, this);
    window.exec();
    if (!window.Report().isEmpty()) {
        line_->Print(QLatin1Char('\n') + window.Report() + QLatin1Char('\n'));
    }
}

void MainWindow::ChooseSuite() {
    const QString folder = QFileDialog::getExistingDirectory(
        this, windows::InterfaceText("Open Suite Folder", "打开工程目录"),
        QString::fromStdString(session_.SuiteFolder()));
    if (!folder.isEmpty()) {
        OpenSuite(folder);
    }
}

bool MainWindow::OpenSuite(const QString& folder) {
    if (session_.Feed().IsRunning()) {  // and stands below us: it has to end first
        session_.Feed().Cancel();
        nextSuite_ = folder;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        return true;
    }
    const std::string path = QFileInfo(folder).absoluteFilePath().toStdString();
    std::string error;
    // Changed drawings may be saved first; the user may also stay.
    if (!session_.Admit(path, error) || !RunCommand(QStringLiteral("CLOSEALL")) ||
        !session_.Start(path, error)) {
        if (!error.empty()) {
            TellSuiteFault(folder, error);
        }
        return false;
    }
    RememberSuite();
    return true;
}

void MainWindow::TellSuiteFault(const QString& folder, const std::string& error) {
    const bool isOther =
        !folder.isEmpty() && !QFileInfo::exists(QDir(folder).filePath(QStringLiteral("suite.ini")));
    TellError(isOther ? windows::InterfaceText(
                            "%1 holds no suite.ini: it is no suite folder.\n\nOn the console, "
                            "\"grdx new\" makes one.",
                            "%1 中没有 suite.ini，不是工程目录。\n\n新建工程目录请用命令行程序 "
                            "grdx new。")
                            .arg(folder)
                      : QString::fromStdString(error));
}

void MainWindow::customEvent(QEvent* /*event*/) {
    OpenSuite(nextSuite_);
}

void MainWindow::RememberSuite() {
    const QString folder = QString::fromStdString(session_.SuiteFolder());
    QStringList folders = RecentSuites();
    folders.removeAll(folder);
    folders.prepend(folder);
    QSettings().setValue(QLatin1String(kRecentSuites), QStringList(folders.mid(0, kRecentCount)));
}

void MainWindow::FillRecentSuites(QMenu& menu) {
    menu.clear();
    for (const QString& folder : RecentSuites()) {
        menu.addAction(folder, this, [this, folder] { OpenSuite(folder); });
    }
    menu.setEnabled(!menu.isEmpty());
}

}  // namespace desk
