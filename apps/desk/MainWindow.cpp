#include "apps/desk/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

#include "apps/desk/CommandLine.h"
#include "apps/desk/DrawingView.h"
#include "apps/desk/main_menu.h"
#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/ed/system_variables.h"
#include "platform/ed/user_break.h"
#include "platform/oledb/lock_wait.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/private_profile.h"

namespace desk {

namespace {
constexpr std::size_t kProfilePathSize = 256;
constexpr const char* kGeometry = "windowGeometry";
constexpr const char* kLightBackground = "lightBackground";
constexpr double kFirstShareOfScreen = 0.8;

std::vector<AcApDocument*> OpenDocuments() {
    std::vector<AcApDocument*> documents;
    const std::unique_ptr<AcApDocumentIterator> walk(acDocManager->newAcApDocumentIterator());
    for (; !walk->done(); walk->step()) {
        documents.push_back(walk->document());
    }
    return documents;
}

bool IsSingleDocumentMode() {
    resbuf mode;
    return acedGetVar("SDI", &mode) == RTNORM && mode.resval.rint != 0;
}

/// Number and name of the suite's project.
QString ProjectTitle() {
    char profile[kProfilePathSize] = "";
    GetProjectProfilePath(profile);
    const auto read = [&](const char* key) {
        return windows::FromGbk(win32::TextInProfile(profile, "Project", key));
    };
    return *profile == '\0' ? windows::InterfaceText("no suite folder", "未打开工程目录")
                            : (read("GCBH") + QLatin1Char(' ') + read("GCMC")).trimmed();
}

QString PickOf(AcDbObjectId id) {
    return QStringLiteral("#%1").arg(static_cast<qulonglong>(id.handle()), 0, 16).toUpper();
}

/// The file's name without folders, with a star when the drawing has unsaved changes.
QString TitleOf(const AcApDocument& document) {
    const QString path = windows::FromGbk(document.fileName());
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('\\')) + 1);
    return document.database()->isModified() ? name + QLatin1Char('*') : name;
}
}  // namespace

MainWindow::MainWindow(DeskSession& session)
    : session_(session),
      tabs_(new QTabBar(this)),
      view_(new DrawingView(this)),
      line_(new CommandLine(this)),
      coordinates_(new QLabel(this)),
      suite_(new QLabel(this)),
      undo_(new QAction(this)),
      redo_(new QAction(this)),
      work_(this) {
    auto* const drawing = new QWidget(this);
    auto* const column = new QVBoxLayout(drawing);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(tabs_);
    column->addWidget(view_, 1);
    auto* const splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(drawing);
    splitter->addWidget(line_);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({10000, 1});  // as little as it takes for the command line
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);

    tabs_->setObjectName(QStringLiteral("documents"));
    tabs_->setTabsClosable(true);
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    tabs_->setFocusPolicy(Qt::NoFocus);
    view_->setFocusPolicy(Qt::NoFocus);
    coordinates_->setObjectName(QStringLiteral("coordinates"));
    statusBar()->addWidget(coordinates_);
    statusBar()->addPermanentWidget(suite_);
    MakeUndo();
    RestoreLook();
    MakeMenus(*this);
    Connect();
    acDocManager->addReactor(this);
    session_.Windows().SetMainWindow(this);
    if (!session_.SuiteFolder().empty()) {
        RememberSuite();
    }
    ShowState();
}

MainWindow::~MainWindow() {
    QSettings().setValue(QLatin1String(kGeometry), saveGeometry());
    acDocManager->removeReactor(this);
    oledb::SetLockWaitListener(nullptr);
    ed::SetBreakCheck(nullptr);
    session_.Windows().SetMainWindow(nullptr);
    session_.SetSelectionSource(nullptr);
    session_.SetStateListener(nullptr);
    session_.SetTextSink(nullptr);
    view_->SetDocument(nullptr);
}

/// As the user left it; at first as large as is good to work in.
void MainWindow::RestoreLook() {
    const QSettings settings;
    if (!restoreGeometry(settings.value(QLatin1String(kGeometry)).toByteArray())) {
        resize(screen()->availableSize() * kFirstShareOfScreen);
    }
    SetLightBackground(settings.value(QLatin1String(kLightBackground)).toBool());
    session_.Windows().SetRemembersPages(true);
}

void MainWindow::SetLightBackground(bool light) {
    view_->SetBackground(light ? picture::Background::kLight : picture::Background::kDark);
    QSettings().setValue(QLatin1String(kLightBackground), light);
}

bool MainWindow::HasLightBackground() const {
    return view_->Background() == picture::Background::kLight;
}

void MainWindow::Connect() {
    session_.SetTextSink([this](const std::string& gbk) { line_->Print(windows::FromGbk(gbk)); });
    session_.SetStateListener([this] { ShowState(); });
    ed::SetBreakCheck([this] { return work_.Step(); });
    oledb::SetLockWaitListener([this](std::chrono::milliseconds) { return !work_.Wait(); });
    line_->SetLineHandler([this](const QString& text) { Submit(text); });
    line_->SetEscapeHandler([this] {
        if (!session_.Feed().Cancel()) {
            view_->GiveUp();
        }
    });
    line_->SetDeleteHandler([this] {
        if (!view_->Selection().empty()) {
            RunCommand(QStringLiteral("ERASE"));
        }
    });

    view_->mayLook = [this] { return !session_.Feed().IsRunning(); };
    view_->onPoint = [this](picture::Point point) {
        const QString text =
            QStringLiteral("%1,%2").arg(point.x, 0, 'f', 6).arg(point.y, 0, 'f', 6);
        line_->Echo(text);
        session_.Feed().Submit(windows::ToGbk(text));
    };
    view_->onEntity = [this](AcDbObjectId entity) { AnswerPick(entity); };
    session_.SetSelectionSource(
        [this](host::BuiltInCommand::Picks picks) { return TakeSelection(picks); });
    view_->onGripsMoved = [this](const std::vector<std::string>& moves) { MoveGrips(moves); };
    view_->onCursor = [this](picture::Point point) { ShowCursor(point.x, point.y); };
    view_->onShowAll = [this] { RunCommand(QStringLiteral("ZOOM E")); };

    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        if (index < 0 || session_.Feed().IsRunning()) {
            return ShowDocuments();
        }
        acDocManager->executeInApplicationContext(
            [](void* document) {
                acDocManager->activateDocument(static_cast<AcApDocument*>(document));
            },
            documents_.at(static_cast<std::size_t>(index)));
        session_.Feed().RunSent();
    });
    connect(tabs_, &QTabBar::tabCloseRequested, this, [this](int index) {
        tabs_->setCurrentIndex(index);
        RunCommand(QStringLiteral("CLOSE"));
    });
}

void MainWindow::Submit(const QString& line) {
    const std::string gbk = windows::ToGbk(line);
    if (!session_.Feed().IsWaiting() && !gbk.empty() && view_->DropAt(gbk)) {
        return;
    }
    session_.Feed().Submit(gbk);
}

bool MainWindow::RunCommand(const QString& line, bool tell) {
    std::string said;
    const bool good = session_.Run(windows::ToGbk(line), said);
    if (!good && tell) {
        TellError(QString::fromStdString(said).trimmed());
    }
    return good;
}

/// What is selected, as a pick: all of it, or the one curve among it.
std::string MainWindow::TakeSelection(host::BuiltInCommand::Picks picks) {
    std::vector<AcDbObjectId> selected = view_->Selection();
    if (picks == host::BuiltInCommand::Picks::kOne) {
        std::erase_if(selected, [](AcDbObjectId id) { return !IsCustomEntity(id); });
        if (selected.size() != 1) {
            return {};
        }
    }
    QStringList words;
    for (const AcDbObjectId id : selected) {
        words << PickOf(id);
    }
    view_->Select({});
    return windows::ToGbk(words.join(QLatin1Char(',')));
}

/// A click on nothing leaves the command waiting: it was meant for something.
void MainWindow::AnswerPick(AcDbObjectId entity) {
    if (entity.isNull()) {
        return line_->AskAgain(
            windows::InterfaceText("Nothing is there. Enter or Esc ends the command.",
                                   "该处没有对象。按回车或 Esc 结束命令。"));
    }
    line_->Echo(PickOf(entity));
    session_.Feed().Submit(windows::ToGbk(PickOf(entity)));
}

void MainWindow::ShowState() {
    if (!session_.Feed().IsRunning() && session_.Program().IsQuitting()) {
        QApplication::quit();
        return;
    }
    if (!session_.Feed().IsRunning()) {
        EndWork();
    } else if (session_.Feed().IsWaiting()) {
        work_.Pause();
    }
    line_->ShowWaiting(session_.Feed().IsWaiting());
    view_->SetAsking(!session_.Feed().IsWaiting()                   ? DrawingView::Asking::kNothing
                     : session_.Program().Interpreter().IsPicking() ? DrawingView::Asking::kEntity
                                                                    : DrawingView::Asking::kPoint);
    ShowDocuments();
    ShowSteps();
    ShowDrawing();
    suite_->setText(ProjectTitle());
    suite_->setToolTip(QString::fromStdString(session_.SuiteFolder()));
}

/// What the user has ended is told, as what was made before is there.
void MainWindow::EndWork() {
    oledb::ForgetGivenUpWait();
    if (const std::optional<int> done = work_.End()) {
        line_->Print(windows::InterfaceText("\nCancelled; %1 done before that stand.\n",
                                            "\n已取消，此前完成的 %1 项保留。\n")
                         .arg(*done));
    }
}

void MainWindow::ShowDrawing() {
    if (shownSuite_ != session_.SuiteFolder()) {
        shownSuite_ = session_.SuiteFolder();
        view_->ForgetFonts();
    }
    view_->SetDocument(acDocManager->curDocument());
    if (!session_.Feed().IsRunning()) {
        view_->Rebuild();
    }
    view_->update();
    for (const std::string& fault : view_->TakeFaults()) {
        line_->Print(QStringLiteral("\n%1\n").arg(QString::fromStdString(fault)));
    }
}

void MainWindow::ShowDocuments() {
    const QSignalBlocker blocked(tabs_);
    documents_ = OpenDocuments();
    while (tabs_->count() > static_cast<int>(documents_.size())) {
        tabs_->removeTab(tabs_->count() - 1);
    }
    for (std::size_t i = 0; i < documents_.size(); ++i) {
        const int tab = static_cast<int>(i);
        const QString title = TitleOf(*documents_[i]);
        if (tab >= tabs_->count()) {
            tabs_->addTab(title);
        } else if (tabs_->tabText(tab) != title) {  // a change lays all of them out
            tabs_->setTabText(tab, title);
        }
        tabs_->setTabToolTip(tab, windows::FromGbk(documents_[i]->fileName()));
        if (documents_[i] == acDocManager->curDocument()) {
            tabs_->setCurrentIndex(tab);
        }
    }
    tabs_->setVisible(!IsSingleDocumentMode() || documents_.size() > 1);
    const AcApDocument* const current = acDocManager->curDocument();
    const QString program = QApplication::applicationDisplayName();
    setWindowTitle(current != nullptr ? program + QStringLiteral(" - ") + TitleOf(*current)
                                      : program);
}

/// One drag is one step, whatever it moves.
void MainWindow::MoveGrips(const std::vector<std::string>& moves) {
    {
        const host::UndoHistories::Recording drag(session_.Program().Histories(), "GRIP");
        for (const std::string& arguments : moves) {
            session_.Feed().Start("GRIP " + arguments);
        }
    }
    ShowSteps();
}

void MainWindow::MakeUndo() {
    undo_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    redo_->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    connect(undo_, &QAction::triggered, this, [this] { RunCommand(QStringLiteral("U")); });
    connect(redo_, &QAction::triggered, this, [this] { RunCommand(QStringLiteral("REDO")); });
}

void MainWindow::ShowSteps() {
    const AcApDocument* const document = acDocManager->curDocument();
    std::string back;
    std::string forth;
    if (document != nullptr) {
        const host::DrawingHistory& history = session_.Program().Histories().Of(*document);
        back = history.NextUndo();
        forth = history.NextRedo();
    }
    const auto show = [](QAction& action, const QString& text, const std::string& command) {
        action.setText(text.arg(windows::FromGbk(host::StepTitle(command))).simplified());
        action.setEnabled(!command.empty());
    };
    show(*undo_, windows::InterfaceText("&Undo %1", "撤销%1(&U)"), back);
    show(*redo_, windows::InterfaceText("&Redo %1", "重做%1(&R)"), forth);
}

void MainWindow::ShowCursor(double x, double y) {
    QString text = QStringLiteral("%1, %2").arg(x, 0, 'f', 4).arg(y, 0, 'f', 4);
    if (view_->Grips().IsDragging()) {
        const picture::Point offset = view_->Grips().Offset();
        text += QStringLiteral("   @%1, %2").arg(offset.x, 0, 'f', 4).arg(offset.y, 0, 'f', 4);
    }
    coordinates_->setText(text);
}

void MainWindow::TellError(const QString& text) {
    session_.Windows().ShowMessageBox(
        {windows::ToGbk(text), "", MB_OK | MB_ICONEXCLAMATION, nullptr, true});
}

/// Its tab goes with it: a command that closes documents may then show a window of its own for
/// long.
void MainWindow::documentToBeDestroyed(AcApDocument* document) {
    view_->SetDocument(nullptr);
    const auto found = std::find(documents_.begin(), documents_.end(), document);
    if (found != documents_.end()) {
        const QSignalBlocker blocked(tabs_);
        tabs_->removeTab(static_cast<int>(found - documents_.begin()));
        documents_.erase(found);
    }
}

/// Keys that no control has used belong to the command line.
void MainWindow::keyPressEvent(QKeyEvent* event) {
    line_->Forward(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    // A dialog in front has to be answered first.
    if (QApplication::activeModalWidget() == nullptr) {
        RunCommand(QStringLiteral("QUIT"));
    }
    event->setAccepted(session_.Program().IsQuitting() && !session_.Feed().IsRunning());
}

}  // namespace desk
