#include "tests/apps/person/Person.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>

namespace {
constexpr int kPauseMilliseconds = 5;
constexpr int kMaxTries = 1000;

/// The one window that takes input.
QWidget* Front() {
    return QApplication::activeModalWidget();
}
}  // namespace

Person::Person() : alive_(std::make_shared<bool>(true)) {
    Arm();
}

Person::~Person() {
    *alive_ = false;
    for (const Step& step : steps_) {
        ADD_FAILURE() << "not come to: " << step.what;
    }
}

void Person::Then(const std::string& what, std::function<bool()> step) {
    steps_.push_back({what, std::move(step)});
}

void Person::In(const QString& title, std::function<void(QWidget&)> step) {
    Then("in " + title.toStdString(), [title, step = std::move(step)] {
        QWidget* const window = Front();
        if (window == nullptr || window->windowTitle() != title) {
            return false;
        }
        if (!window->isActiveWindow()) {  // there is no window manager to see to it
            window->activateWindow();
            return false;
        }
        QCoreApplication::sendPostedEvents();  // what the window has put off is done
        step(*window);
        return true;
    });
}

void Person::Press(const QString& title, int id) {
    In(title, [id](QWidget& window) {
        if (auto* button = Control<QPushButton>(window, id)) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    });
}

void Person::Answer(const QString& text, int id) {
    Then("box " + text.toStdString(), [text, id] {
        auto* const box = qobject_cast<QMessageBox*>(Front());
        if (box == nullptr || !box->text().contains(text)) {
            return false;
        }
        if (auto* button = Control<QPushButton>(*box, id)) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
        return true;
    });
}

void Person::Finish() {
    while (!steps_.empty() && !failed_) {
        QTest::qWait(kPauseMilliseconds);
    }
}

/// A timer of its own for every try: a step may end up in a further event loop.
void Person::Arm() {
    auto* const timer = new QTimer(QCoreApplication::instance());
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, alive = alive_] {
        timer->deleteLater();
        if (*alive) {
            Arm();
            Act();
        }
    });
    timer->start(kPauseMilliseconds);
}

void Person::Act() {
    if (failed_) {
        if (auto* const window = qobject_cast<QDialog*>(Front())) {
            window->done(0);
        }
        return;
    }
    if (steps_.empty()) {
        tries_ = Front() == nullptr ? 0 : tries_ + 1;
        if (tries_ > kMaxTries) {
            failed_ = true;
            ADD_FAILURE() << "nobody answers " << Front()->windowTitle().toStdString();
        }
        return;
    }
    const Step step = steps_.front();
    steps_.pop_front();
    if (step.run()) {
        tries_ = 0;
        return;
    }
    steps_.push_front(step);
    if (++tries_ > kMaxTries) {
        failed_ = true;
        ADD_FAILURE() << "could not be done: " << step.what << "; in front: "
                      << (Front() == nullptr ? "nothing" : Front()->windowTitle().toStdString());
    }
}

void Type(QWidget& widget, const QString& text) {
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(character), {});
    }
}

QStringList Items(const QAbstractItemView& list) {
    QStringList items;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        const QString text = index.data().toString();
        items << (list.selectionModel()->isSelected(index) ? QStringLiteral("(%1)").arg(text)
                                                           : text);
    }
    return items;
}

void ClickItem(QAbstractItemView& list, const QString& text) {
    QCoreApplication::sendPostedEvents();
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        if (index.data().toString() == text) {
            list.scrollTo(index);
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
            QCoreApplication::sendPostedEvents();
            return;
        }
    }
    ADD_FAILURE() << "no item " << text.toStdString() << " in "
                  << Items(list).join(QLatin1Char(' ')).toStdString();
}
