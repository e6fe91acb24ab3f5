// The desktop program where the user's language is Chinese: CTest runs these tests so.

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>

#include "apps/desk/application.h"
#include "apps/windows/interface_text.h"
#include "platform/mfc/message_box.h"
#include "tests/apps/desk/DeskFixture.h"

namespace {

class Chinese : public DeskFixture {
protected:
    void SetUp() override {
        if (!windows::IsInterfaceChinese()) {
            GTEST_SKIP() << "the language is another one";
        }
        desk::SetUpApplication();
    }

    /// The texts of a window with English words, names of files, commands and units left out.
    static std::string EnglishIn(const QWidget& window) {
        QStringList shown{window.windowTitle()};
        for (const auto* label : window.findChildren<QLabel*>()) {
            shown << label->text();
        }
        for (const auto* button : window.findChildren<QAbstractButton*>()) {
            shown << button->text();
        }
        for (const auto* action : window.findChildren<QAction*>()) {
            shown << action->text();
        }
        static const QRegularExpression named(QStringLiteral("\\w+\\.dwg|GoDBManage"));
        static const QRegularExpression word(QStringLiteral("[a-z]{4,}"));
        return shown.replaceInStrings(named, QString())
            .filter(word)
            .join(QLatin1Char('\n'))
            .toStdString();
    }
};

TEST_F(Chinese, EveryWindowAndPromptIs) {
    EXPECT_EQ(EnglishIn(window_), "");
    for (const auto& [name, open] : {std::pair<const char*, void (desk::MainWindow::*)()>{
                                         "open", &desk::MainWindow::ChooseDrawings},
                                     {"save as", &desk::MainWindow::ChooseSaveName},
                                     {"suite", &desk::MainWindow::ChooseSuite},
                                     {"plot", &desk::MainWindow::Plot}}) {
        person_.Then(name, [] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return false;
            }
            EXPECT_EQ(EnglishIn(*dialog), "");
            dialog->reject();
            return true;
        });
        (window_.*open)();
        person_.Finish();
    }
    WhenAsked("输入 SDI 的新值 (0 或 1): ", [this] { TypeLine("2"); });
    TypeLine("SDI");
    RunLine("nonsense");
    EXPECT_TRUE(Said().contains("SDI 取 0（多个图形）或 1（单个图形），“2”无效。"))
        << Said().toStdString();
    EXPECT_TRUE(Said().contains("未知命令“nonsense”。")) << Said().toStdString();
}

}  // namespace
