#include "src/ui/plugin_resources.h"

#include "platform/mfc/CWnd.h"
#include "platform/mfc/message_box.h"
#include "platform/mfc/window_styles.h"
#include "platform/win32/window_message.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/facts/control_ids.h"

namespace {

using mfc::ControlDescription;
using mfc::DialogDescription;
using mfc::DialogRect;

constexpr DWORD kPageStyle = WS_CHILD | WS_CAPTION;
constexpr DWORD kDialogStyle = DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kListStyle = WS_TABSTOP | WS_BORDER | WS_VSCROLL | LBS_NOTIFY;

ControlDescription Label(DialogRect rect, const char* text) {
    return {IDC_STATIC, WC_STATIC, 0, rect, text};
}

ControlDescription Edit(int id, DialogRect rect) {
    return {static_cast<WORD>(id), WC_EDIT, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, rect, ""};
}

ControlDescription CheckBox(int id, DialogRect rect, const char* text = "", DWORD style = 0) {
    return {static_cast<WORD>(id), WC_BUTTON, WS_TABSTOP | BS_AUTOCHECKBOX | style, rect, text};
}

ControlDescription Button(int id, DialogRect rect, const char* text, DWORD style = BS_PUSHBUTTON) {
    return {static_cast<WORD>(id), WC_BUTTON, WS_TABSTOP | style, rect, text};
}

ControlDescription List(int id, DialogRect rect, DWORD style) {
    return {static_cast<WORD>(id), WC_LISTBOX, kListStyle | style, rect, ""};
}

ControlDescription DatePicker(int id, DialogRect rect) {
    return {static_cast<WORD>(id), DATETIMEPICK_CLASS, WS_TABSTOP, rect, ""};
}

DialogDescription AnnotationPage() {
    return {IDD_ANNOTATION,
            "标注"_gbk,
            kPageStyle,
            {0, 0, 215, 135},
            {
                Label({43, 37, 57, 10}, "完成单位名称："_gbk),
                Edit(IDC_UNIT, {101, 35, 55, 12}),
                CheckBox(IDC_UNIT_CHECK, {163, 35, 13, 10}),
                Label({43, 52, 35, 10}, "试验者："_gbk),
                Edit(IDC_TESTER, {101, 50, 55, 12}),
                CheckBox(IDC_TESTER_CHECK, {163, 50, 13, 10}),
                Label({43, 67, 37, 10}, "检查者："_gbk),
                Edit(IDC_CHECKER, {101, 65, 55, 12}),
                CheckBox(IDC_CHECKER_CHECK, {163, 65, 13, 10}),
                Label({43, 82, 32, 10}, "日  期："_gbk),
                DatePicker(IDC_DATE, {77, 80, 79, 11}),
                CheckBox(IDC_DATE_CHECK, {163, 80, 13, 10}),
            }};
}

DialogDescription OptionsPage() {
    return {IDD_OPTIONS,
            "选项"_gbk,
            kPageStyle,
            {0, 0, 215, 135},
            {
                Label({71, 48, 40, 8}, "加外框线"_gbk),
                CheckBox(IDC_OUTER_FRAME, {127, 48, 8, 8}),
                Label({71, 64, 52, 10}, "标右侧坐标值"_gbk),
                CheckBox(IDC_RIGHT_AXIS, {127, 64, 8, 8}),
                CheckBox(IDC_RECOMPUTE, {56, 80, 79, 8}, "重新计算百分含量"_gbk, BS_LEFTTEXT),
            }};
}

DialogDescription SamplePage() {
    return {IDD_SAMPLE_PAGE,
            "选择取样"_gbk,
            kPageStyle,
            {0, 0, 215, 135},
            {
                Label({8, 0, 47, 9}, "钻孔编号："_gbk),
                List(IDC_BOREHOLES, {8, 9, 73, 107}, LBS_SORT),
                Label({91, 0, 37, 9}, "取样编号:"_gbk),
                List(IDC_SAMPLES, {91, 9, 115, 107}, LBS_MULTIPLESEL),
                Label({8, 123, 79, 10}, "(有*号表示已出图)"_gbk),
                Button(IDC_REMOVE_SAMPLE_MARKS, {161, 117, 45, 16}, "删除*号(&D)"_gbk),
            }};
}

DialogDescription LayerPage() {
    return {IDD_LAYER_PAGE,
            "选择取样"_gbk,
            kPageStyle,
            {0, 0, 153, 135},
            {
                Label({15, 2, 42, 9}, "土层编号:"_gbk),
                List(IDC_LAYERS, {30, 15, 115, 100}, LBS_MULTIPLESEL),
                Button(IDC_REMOVE_LAYER_MARKS, {98, 118, 46, 11}, "删除*号"_gbk),
                Label({28, 120, 71, 9}, "(有*号表示已出图)"_gbk),
            }};
}

ControlDescription OkButton(DialogRect rect) {
    return Button(IDOK, rect, "确定(&O)"_gbk, BS_DEFPUSHBUTTON);
}

ControlDescription CancelButton(DialogRect rect) {
    return Button(IDCANCEL, rect, "取消(&C)"_gbk);
}

DialogDescription SampleBrowser() {
    return {IDD_SAMPLE_BROWSER,
            "查看颗粒分析成果图"_gbk,
            kDialogStyle,
            {0, 0, 215, 135},
            {
                Label({11, 5, 53, 8}, "钻孔编号:"_gbk),
                Label({98, 5, 44, 10}, "选择试样:"_gbk),
                List(IDC_BROWSER_BOREHOLES, {8, 16, 76, 96}, LBS_SORT),
                List(IDC_SHEETS, {93, 16, 113, 96}, LBS_MULTIPLESEL),
                OkButton({59, 115, 41, 13}),
                CancelButton({109, 115, 41, 13}),
            }};
}

DialogDescription LayerBrowser() {
    return {IDD_LAYER_BROWSER,
            "查看颗粒分析成果图"_gbk,
            kDialogStyle,
            {0, 0, 164, 135},
            {
                Label({30, 7, 39, 10}, "选择土层:"_gbk),
                List(IDC_SHEETS, {25, 18, 113, 96}, LBS_MULTIPLESEL),
                OkButton({36, 115, 41, 13}),
                CancelButton({86, 115, 41, 13}),
            }};
}

/// A grading curve over its grid.
constexpr const char* kIcon = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<rect x="3.5" y="3.5" width="25" height="25" fill="#ffffff" stroke="#404040"/>
<path d="M3.5 12H28.5M3.5 20H28.5M12 3.5V28.5M20 3.5V28.5" stroke="#c0c0c0" fill="none"/>
<path d="M4 6C12 6 12 12 16 17S22 26 28 26" stroke="#0050b0" stroke-width="2" fill="none"/>
<g fill="#d00000"><circle cx="10" cy="8" r="2"/><circle cx="16" cy="17" r="2"/>
<circle cx="22" cy="24.500" r="2"/></g>
</svg>
)";

}  // namespace

const mfc::ModuleResources& PluginResources() {
    static const mfc::ModuleResources resources = {
        .dialogs = {AnnotationPage(), OptionsPage(), SamplePage(), LayerPage(), SampleBrowser(),
                    LayerBrowser()},
        .icons = {{IDI_GRDX, kIcon}},
        .strings = {}};
    return resources;
}

void SetModuleIcon(CWnd& window) {
    HICON const icon =
        LoadIcon(ExtensionModule.ModuleResourceInstance(), MAKEINTRESOURCE(IDI_GRDX));
    window.SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    window.SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}
