#pragma once

#include "platform/mfc/ScriptedWindowSystem.h"
#include "platform/mfc/afx.h"
#include "platform/mfc/resources.h"
#include "platform/mfc/window_styles.h"
#include "platform/win32/gbk_literal.h"

/// Dialogs of a module as tests use them, current while the object lives, and a window system that
/// answers from a list.
class TestModule {
public:
    static constexpr WORD kChoice = 604;
    static constexpr WORD kOptions = 2008;
    static constexpr WORD kNotes = 601;

    TestModule() : module_(mfc::RegisterModule(Resources())) {
        AfxSetResourceHandle(module_);
        before_ = mfc::SetWindowSystem(&windows);
    }
    ~TestModule() {
        mfc::SetWindowSystem(before_);
        AfxSetResourceHandle(nullptr);
        mfc::UnregisterModule(module_);
    }
    TestModule(const TestModule&) = delete;
    TestModule& operator=(const TestModule&) = delete;

    /// Answers as lines, in order.
    void Answer(std::initializer_list<const char*> lines) {
        for (const char* line : lines) {
            mfc::Answer answer{};
            std::string error;
            if (!mfc::ParseAnswer(line, answer, error)) {
                throw std::logic_error(error);
            }
            windows.AddAnswer(answer);
        }
    }

    static mfc::ModuleResources Resources() {
        const DWORD page = WS_CHILD | WS_CAPTION;
        const DWORD notify = WS_TABSTOP | LBS_NOTIFY;
        return {
            {{kChoice,
              "选择取样"_gbk,
              page,
              {0, 0, 215, 135},
              {{IDC_STATIC, WC_STATIC, 0, {8, 0, 47, 9}, "钻孔编号："_gbk},
               {2008, WC_LISTBOX, notify | LBS_SORT, {8, 9, 73, 107}, ""},
               {2001, WC_LISTBOX, notify | LBS_MULTIPLESEL, {91, 9, 115, 107}, ""},
               {2037, WC_BUTTON, WS_TABSTOP, {161, 117, 45, 16}, "删除*号(&D)"_gbk}}},
             {kOptions,
              "选项"_gbk,
              page,
              {0, 0, 215, 140},
              {{2035, WC_BUTTON, BS_AUTOCHECKBOX | WS_TABSTOP, {127, 48, 8, 8}, ""},
               {2037,
                WC_BUTTON,
                BS_AUTOCHECKBOX | BS_LEFTTEXT | WS_DISABLED,
                {56, 80, 79, 8},
                ""}}},
             {kNotes,
              "标注"_gbk,
              page,
              {0, 0, 215, 135},
              {{2013, WC_EDIT, WS_TABSTOP | ES_AUTOHSCROLL, {101, 35, 55, 12}, ""},
               {2030, DATETIMEPICK_CLASS, WS_TABSTOP, {77, 80, 79, 11}, ""},
               {IDOK, WC_BUTTON, BS_DEFPUSHBUTTON | WS_TABSTOP, {59, 115, 41, 13}, "确定(&O)"_gbk},
               {IDCANCEL, WC_BUTTON, WS_TABSTOP, {109, 115, 41, 13}, "取消(&C)"_gbk}}}},
            {{2007, "the icon's picture"}},
            {{100, "查看颗粒分析成果图"_gbk}}};
    }

    mfc::ScriptedWindowSystem windows;

private:
    HINSTANCE module_;
    mfc::WindowSystem* before_;
};
