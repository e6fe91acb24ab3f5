#pragma once

#include <memory>
#include <string>

#include "platform/mfc/dialog_template.h"
#include "platform/win32/win_types.h"

class CWnd;

namespace mfc {

enum class WindowKind { Dialog, Sheet, Static, Edit, PushButton, CheckBox, ListBox, DatePicker };

/// What changed about a window.
enum class Change { Text, Enabled, Items, Selection, Check, Date, Focus, ActivePage, Icon, Ended };

/// State of one window: what a back end draws and what code works on. Texts are GBK.
///
/// The setters are what code does. What the user does are the operations named after it (Click,
/// Type and so on): they do nothing and return false when the window or one around it is
/// disabled, and run the handlers, which may change or end anything.
class WindowModel {
public:
    /// `parent` is null for a window of its own and else outlives this one.
    WindowModel(WindowKind kind, WindowModel* parent, int id, DWORD style, const DialogRect& rect,
                std::string text);
    virtual ~WindowModel();
    WindowModel(const WindowModel&) = delete;
    WindowModel& operator=(const WindowModel&) = delete;

    HWND Handle() const { return handle_; }
    WindowKind Kind() const { return kind_; }
    WindowModel* Parent() const { return parent_; }
    /// IDC_STATIC for a control that nobody addresses; 0 for dialogs and sheets.
    int Id() const { return id_; }
    DWORD Style() const { return style_; }
    bool HasStyle(DWORD bits) const { return (style_ & bits) == bits; }
    /// In dialog units, within the parent.
    const DialogRect& Rect() const { return rect_; }

    const std::string& Text() const { return text_; }
    void SetText(std::string text);
    /// An edit field: replaces its text. False for any other kind.
    bool Type(std::string text);

    /// The window's own state, whatever is around it.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// Enabled together with all windows around it.
    bool Operable() const;

    /// The object through which code sees the window; one of the kind's class is made when none
    /// was attached.
    CWnd& Wnd();
    void Attach(CWnd* object);
    /// The object goes; the one made before, if any, takes its place again.
    void Detach(const CWnd* object);

protected:
    /// Tells the listener of the window at the top.
    void Changed(Change change);
    /// Sends the parent a notification of this control.
    void Notify(int code);
    virtual void OnChanged(WindowModel& window, Change change);

private:
    WindowKind kind_;
    WindowModel* parent_;
    int id_;
    DWORD style_;
    DialogRect rect_;
    std::string text_;
    bool enabled_;
    HWND handle_;
    CWnd* attached_ = nullptr;
    std::unique_ptr<CWnd> own_;
};

/// State behind a handle; null when the window is not one of this layer's.
WindowModel* FindModel(HWND window);

}  // namespace mfc
