#pragma once

#include <QMainWindow>
#include <string>
#include <vector>

#include "apps/desk/DeskSession.h"
#include "apps/desk/WorkProgress.h"
#include "platform/ap/AcApDocManager.h"

class QAction;
class QLabel;
class QMenu;
class QTabBar;

namespace desk {

class CommandLine;
class DrawingView;

/// The program's window: the drawings as tabs (none while there is only one by the system variable
/// SDI), the drawing, the command line, and below them where the cursor is. What is typed anywhere
/// in it goes to the command line.
class MainWindow : public QMainWindow, private AcApDocManagerReactor {
public:
    explicit MainWindow(DeskSession& session);
    ~MainWindow() override;

    DrawingView& View() const { return *view_; }
    CommandLine& Line() const { return *line_; }

    /// Starts commands as if chosen from a menu. When one fails and `tell` is set, what it said is
    /// shown in a box as well: nobody looks at the command line who has not typed.
    bool RunCommand(const QString& line, bool tell = false);
    /// Opens drawings by the paths of the file system.
    void OpenDrawings(const QStringList& paths);
    /// Makes a folder the suite folder, after asking for every changed drawing. False, after saying
    /// why, when it is none or the user wants to go on with the present one.
    /// While a command runs it is cancelled, and the folder opened when it has ended.
    bool OpenSuite(const QString& folder);
    /// Says why a folder cannot be the suite folder.
    void TellSuiteFault(const QString& folder, const std::string& error);
    /// Says something went wrong.
    void TellError(const QString& text);

    /// Take the drawing's last step back, or bring it back again: named after the step, disabled
    /// where there is none.
    QAction* UndoAction() const { return undo_; }
    QAction* RedoAction() const { return redo_; }

    // What the menus do beyond commands.
    void ChooseDrawings();
    void ChooseSaveName();
    void ChooseSuite();
    void Save();
    void Plot();
    void SetLightBackground(bool light);
    bool HasLightBackground() const;
    void FillRecentSuites(QMenu& menu);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Opens the suite folder that had to wait.
    void customEvent(QEvent* event) override;

private:
    void documentToBeDestroyed(AcApDocument* document) override;
    void Connect();
    void Submit(const QString& line);
    std::string TakeSelection(host::BuiltInCommand::Picks picks);
    void AnswerPick(AcDbObjectId entity);
    void ShowState();
    void EndWork();
    void ShowDrawing();
    void ShowDocuments();
    void MoveGrips(const std::vector<std::string>& moves);
    void MakeUndo();
    void ShowSteps();
    void ShowCursor(double x, double y);
    QString OpenDrawing(const QString& path);
    void RememberSuite();
    void RestoreLook();

    DeskSession& session_;
    QTabBar* tabs_;
    DrawingView* view_;
    CommandLine* line_;
    QLabel* coordinates_;
    QLabel* suite_;
    QAction* undo_;
    QAction* redo_;
    WorkProgress work_;
    std::string shownSuite_;
    QString nextSuite_;                     ///< to be opened when the running command has ended
    std::vector<AcApDocument*> documents_;  ///< as the tabs show them
};

}  // namespace desk
