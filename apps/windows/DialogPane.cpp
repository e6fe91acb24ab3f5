#include "apps/windows/DialogPane.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolTip>
#include <QValidator>

#include "apps/windows/DialogUnits.h"
#include "apps/windows/ListBoxView.h"
#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "platform/mfc/ButtonModel.h"
#include "platform/mfc/DatePickerModel.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/window_styles.h"
#include "platform/win32/clock.h"

namespace windows {

namespace {

/// Keeps out what could not be stored: a name must not turn into question marks.
class GbkValidator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& /*position*/) const override {
        return IsGbk(input) ? Acceptable : Invalid;
    }
};

QLineEdit* MakeEdit(mfc::WindowModel& control, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setValidator(new GbkValidator(edit));
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [&control](const QString& text) { control.Type(ToGbk(text)); });
    QObject::connect(edit, &QLineEdit::inputRejected, edit, [edit] {
        QToolTip::showText(edit->mapToGlobal(QPoint(0, edit->height())),
                           InterfaceText("GBK has no such character.", "GBK 字符集中没有该字符。"),
                           edit);
    });
    return edit;
}

QDate DateOf(const mfc::DatePickerModel& picker) {
    const std::tm local = win32::LocalTime(picker.Time());
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

QDateEdit* MakeDatePicker(mfc::DatePickerModel& picker, QWidget* parent) {
    auto* edit = new QDateEdit(parent);
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    QObject::connect(edit, &QDateEdit::dateChanged, edit, [&picker](QDate date) {
        picker.PickDate(date.year(), date.month(), date.day());
    });
    return edit;
}

}  // namespace

DialogPane::DialogPane(mfc::DialogModel& dialog, const DialogUnits& units, QWidget* parent)
    : QWidget(parent), dialog_(dialog) {
    const mfc::DialogRect& rect = dialog.Rect();
    setFixedSize(units.ToPixels({0, 0, rect.width, rect.height}).size());
    for (const auto& control : dialog.Controls()) {
        Add(*control, units);
    }
    ChainTabs(nullptr);
}

void DialogPane::Add(mfc::WindowModel& control, const DialogUnits& units) {
    const Control made = MakeControl(control);
    made.widget->setGeometry(units.ToPixels(control.Rect()));
    if (control.Id() != IDC_STATIC) {
        made.widget->setObjectName(QStringLiteral("control %1").arg(control.Id()));
    }
    if (!control.HasStyle(WS_TABSTOP)) {
        made.widget->setFocusPolicy(Qt::NoFocus);
    }
    made.widget->installEventFilter(this);
    controls_.emplace(&control, made);
    made.update();
    made.widget->setEnabled(control.Enabled());
}

DialogPane::Control DialogPane::MakeControl(mfc::WindowModel& control) {
    switch (control.Kind()) {
        case mfc::WindowKind::Edit: {
            QLineEdit* const edit = MakeEdit(control, this);
            return {edit, [edit, &control] {
                        const QString text = FromGbk(control.Text());
                        if (edit->text() != text) {  // the cursor stays where it is
                            edit->setText(text);
                        }
                    }};
        }
        case mfc::WindowKind::PushButton: {
            auto& model = static_cast<mfc::ButtonModel&>(control);
            auto* const button = new QPushButton(this);
            button->setDefault(model.IsDefault());
            connect(button, &QPushButton::clicked, button, [&model] { model.Click(); });
            return {button, [button, &model] { button->setText(FromGbk(model.Text())); }};
        }
        case mfc::WindowKind::CheckBox: {
            auto& model = static_cast<mfc::ButtonModel&>(control);
            auto* const box = new QCheckBox(this);
            if (model.HasStyle(BS_LEFTTEXT)) {
                box->setLayoutDirection(Qt::RightToLeft);
            }
            connect(box, &QCheckBox::clicked, box, [&model] { model.Click(); });
            return {box, [box, &model] {
                        box->setText(FromGbk(model.Text()));
                        box->setChecked(model.Checked());
                    }};
        }
        case mfc::WindowKind::ListBox: {
            auto* const list = new ListBoxView(static_cast<mfc::ListBoxModel&>(control), this);
            return {list, [list] { list->NoteChange(); }};
        }
        case mfc::WindowKind::DatePicker: {
            auto& model = static_cast<mfc::DatePickerModel&>(control);
            QDateEdit* const edit = MakeDatePicker(model, this);
            return {edit, [edit, &model] {
                        const QSignalBlocker blocked(edit);
                        edit->setDate(DateOf(model));
                    }};
        }
        default: {
            auto* const label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
            return {label, [label, &control] { label->setText(FromGbk(control.Text())); }};
        }
    }
}

QWidget* DialogPane::ChainTabs(QWidget* before) {
    for (const auto& control : dialog_.Controls()) {
        QWidget* const widget = controls_.at(control.get()).widget;
        if (before != nullptr) {
            setTabOrder(before, widget);
        }
        before = widget;
    }
    return before;
}

void DialogPane::Show(const mfc::WindowModel& window, mfc::Change change) {
    if (&window == &dialog_ && change == mfc::Change::Focus) {
        return TakeFocus();
    }
    const auto found = controls_.find(&window);
    if (found != controls_.end()) {
        found->second.update();
        found->second.widget->setEnabled(window.Enabled());
    }
}

void DialogPane::TakeFocus() {
    const auto found = controls_.find(dialog_.Focus());
    if (found != controls_.end() && !found->second.widget->hasFocus()) {
        found->second.widget->setFocus(Qt::TabFocusReason);
    }
}

/// Code that asks which control has the focus is told what the user did.
bool DialogPane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        for (const auto& [model, control] : controls_) {
            if (control.widget == watched) {
                dialog_.SetFocus(const_cast<mfc::WindowModel*>(model));
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace windows
