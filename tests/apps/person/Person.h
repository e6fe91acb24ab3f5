#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>

/// The captions of the plug-in's two windows.
inline const QString kSheetTitle = QStringLiteral("颗粒分析成果图");
inline const QString kBrowserTitle = QStringLiteral("查看颗粒分析成果图");

/// Plays the user while a window waits for one: its steps are tried in turn until each is done, in
/// whatever event loop runs. A step that cannot be done fails the test, and every window is then
/// sent away.
class Person {
public:
    Person();
    /// Fails the test when steps are left.
    ~Person();
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    /// `step` gives false while it has to wait; `what` names it in a failure.
    void Then(const std::string& what, std::function<bool()> step);
    /// A step in the window with that title, once it is in front.
    void In(const QString& title, std::function<void(QWidget& window)> step);
    /// Presses a button of the window with that title.
    void Press(const QString& title, int id);
    /// Waits for the box with that text and presses a button of it.
    void Answer(const QString& text, int id);
    /// A step in the first window of that class that comes to the front; `what` names it.
    template <class Window>
    void Meet(const std::string& what, std::function<void(Window&)> step) {
        Then(what, [step = std::move(step)] {
            auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (window != nullptr) {
                step(*window);
            }
            return window != nullptr;
        });
    }
    /// Runs events until all steps are done or one has failed.
    void Finish();

private:
    struct Step {
        std::string what;
        std::function<bool()> run;
    };
    void Arm();
    void Act();

    std::deque<Step> steps_;
    int tries_ = 0;
    bool failed_ = false;
    std::shared_ptr<bool> alive_;
};

/// The visible widget of the control of that id; fails the test and gives null when there is none.
template <class Widget>
Widget* Control(const QWidget& window, int id) {
    for (Widget* widget : window.findChildren<Widget*>(QStringLiteral("control %1").arg(id))) {
        if (widget->isVisible()) {
            return widget;
        }
    }
    ADD_FAILURE() << window.windowTitle().toStdString() << " shows no control " << id;
    return nullptr;
}

/// Types a text of any script.
void Type(QWidget& widget, const QString& text);

/// The texts of a list, those of selected items in round brackets.
QStringList Items(const QAbstractItemView& list);
/// Clicks the item of that text; fails the test when there is none.
void ClickItem(QAbstractItemView& list, const QString& text);
