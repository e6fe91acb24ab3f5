#include "apps/desk/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStyle>
#include <QToolBar>
#include <functional>
#include <vector>

#include "apps/desk/MainWindow.h"
#include "apps/windows/interface_text.h"

namespace desk {

namespace {
/// A line of a menu, a separator when it has no text.
struct Entry {
    const char* english = nullptr;
    const char* chinese = nullptr;
    QKeySequence keys;
    std::function<void(MainWindow&)> run;
    bool inToolBar = false;
};

std::function<void(MainWindow&)> Command(const char* line) {
    return [line](MainWindow& window) { window.RunCommand(QString::fromLatin1(line)); };
}

std::vector<Entry> FileEntries() {
    return {
        {"&New", "新建(&N)", QKeySequence::New, Command("NEW")},
        {"&Open...", "打开(&O)...", QKeySequence::Open, &MainWindow::ChooseDrawings, true},
        {"&Save", "保存(&S)", QKeySequence::Save, &MainWindow::Save, true},
        {"Save &As...", "另存为(&A)...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
         &MainWindow::ChooseSaveName},
        {"&Close", "关闭(&C)", QKeySequence(Qt::CTRL | Qt::Key_F4), Command("CLOSE")},
        {},
        {"&Plot...", "打印(&P)...", QKeySequence::Print, &MainWindow::Plot, true},
        {},
        {"Open Suite &Folder...", "打开工程目录(&F)...", {}, &MainWindow::ChooseSuite},
    };
}

std::vector<Entry> EditEntries() {
    return {
        {"&Erase", "删除(&E)", {}, Command("ERASE")},
        {"&Move", "移动(&M)", {}, Command("MOVE")},
        {"&Copy", "复制(&C)", {}, Command("COPY")},
        {"&Rotate", "旋转(&R)", {}, Command("ROTATE")},
        {"&Scale", "缩放(&S)", {}, Command("SCALE")},
        {"M&irror", "镜像(&I)", {}, Command("MIRROR")},
        {"E&xplode", "分解(&X)", {}, Command("EXPLODE")},
        {},
        {"&List", "列表(&L)", {}, Command("LIST")},
    };
}

std::vector<Entry> ChartEntries() {
    return {
        {"&Sample Charts (CGRDX)", "试样颗分图(&S) CGRDX", {}, Command("CGRDX"), true},
        {"&Layer Charts (CLGRDX)", "土层颗分图(&L) CLGRDX", {}, Command("CLGRDX"), true},
        {},
        {"&Open Sample Charts (EGRDX)", "打开试样图(&O) EGRDX", {}, Command("EGRDX"), true},
        {"O&pen Layer Charts (ELGRDX)", "打开土层图(&P) ELGRDX", {}, Command("ELGRDX"), true},
        {},
        {"S&tore Curve (SGRDX)", "曲线入库(&T) SGRDX", {}, Command("SGRDX"), true},
        {},
        {"&Data Check (GoDBManage)", "数据检查(&D) GoDBManage", {}, Command("GoDBManage")},
    };
}

/// The text of a tool button: without mnemonic, dots and the command's name.
QString ToolText(QString text) {
    static const QRegularExpression mnemonic(
        QStringLiteral("\\(&.\\)|&|\\.\\.\\.|\\(?[A-Z]+GRDX\\)?"));
    return text.remove(mnemonic).simplified();
}

void Fill(MainWindow& window, QMenu& menu, QToolBar& toolBar, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        if (entry.english == nullptr) {
            menu.addSeparator();
            continue;
        }
        QAction* const action =
            menu.addAction(windows::InterfaceText(entry.english, entry.chinese));
        action->setShortcut(entry.keys);
        QObject::connect(action, &QAction::triggered, &window,
                         [&window, run = entry.run] { run(window); });
        action->setIconText(ToolText(action->text()));
        if (entry.inToolBar) {
            toolBar.addAction(action);
        }
    }
}

void AddRecentSuites(MainWindow& window, QMenu& file) {
    QMenu* const recent =
        file.addMenu(windows::InterfaceText("&Recent Suite Folders", "最近的工程目录(&R)"));
    QObject::connect(&file, &QMenu::aboutToShow, &window,
                     [&window, recent] { window.FillRecentSuites(*recent); });
}

void AddBackground(MainWindow& window, QMenu& view) {
    QAction* const light =
        view.addAction(windows::InterfaceText("&Light Background", "浅色背景(&L)"));
    light->setCheckable(true);
    light->setChecked(window.HasLightBackground());
    QObject::connect(light, &QAction::toggled, &window,
                     [&window](bool on) { window.SetLightBackground(on); });
}
}  // namespace

void MakeMenus(MainWindow& window) {
    QToolBar& toolBar = *window.addToolBar(windows::InterfaceText("Tools", "工具"));
    toolBar.setObjectName(QStringLiteral("tools"));
    toolBar.setMovable(false);
    toolBar.setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto addMenu = [&](const char* english, const char* chinese) -> QMenu& {
        return *window.menuBar()->addMenu(windows::InterfaceText(english, chinese));
    };

    QMenu& file = addMenu("&File", "文件(&F)");
    Fill(window, file, toolBar, FileEntries());
    toolBar.addSeparator();
    AddRecentSuites(window, file);
    file.addSeparator();
    Fill(window, file, toolBar, {{"&Quit", "退出(&Q)", QKeySequence::Quit, Command("QUIT")}});

    QMenu& edit = addMenu("&Edit", "编辑(&E)");
    edit.addActions({window.UndoAction(), window.RedoAction()});
    edit.addSeparator();
    Fill(window, edit, toolBar, EditEntries());

    QMenu& view = addMenu("&View", "视图(&V)");
    Fill(window, view, toolBar,
         {{"Zoom &Extents", "全部显示(&E)", QKeySequence(Qt::Key_F8), Command("ZOOM E"), true},
          {"Zoom &All", "显示图形界限(&A)", {}, Command("ZOOM A")}});
    AddBackground(window, view);
    toolBar.addSeparator();

    Fill(window, addMenu("&Charts", "颗分图(&C)"), toolBar, ChartEntries());
}

}  // namespace desk
