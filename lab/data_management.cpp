#include "lab/data_management.h"

#include <utility>

#include "lab/Failure.h"
#include "lab/Project.h"
#include "platform/ed/AcEdCommandStack.h"
#include "platform/ed/command_line.h"
#include "platform/mfc/window_system.h"
#include "platform/win32/code_page.h"
#include "platform/win32/window_message.h"

namespace lab {

namespace {
win32::Language spoken = win32::Language::kEnglish;
std::function<void(const std::string& fault)> failureListener;

std::string Text(const char* english, const char* chinese) {
    return spoken == win32::Language::kChinese ? chinese : english;
}

std::string Standing(bool checked) {
    return checked ? Text("checked", "已检查") : Text("not checked", "未检查");
}

/// Where the check stands, and what it is that the user answers for.
std::string Describe(const Project& project) {
    return Text("Project ", "工程 ") + project.profile.number + " " + project.profile.name +
           "\n\n" + Text("Project profile (GCSJ): ", "工程配置文件 (GCSJ)：") +
           Standing(project.profile.checked) + "\n" +
           Text("Table x_GongCheng (GCSJ): ", "工程表 x_GongCheng (GCSJ)：") +
           (project.table ? Standing(project.table->checked)
                          : Text("no such project", "没有该工程")) +
           "\n\n" +
           Text(
               "Checked means that somebody has gone through the project's boreholes, samples, "
               "masses and layers and answers for them: nothing is tested here. Charts are drawn "
               "of checked projects only.",
               "“已检查”表示有人核对过本工程的钻孔、试样、筛分质量和土层数据并对其负责，本程序"
               "在此不作检验。只有已检查的工程才能出图。");
}

void Say(const std::string& utf8) {
    acutPrintf("\n%s", win32::GbkFromUtf8(utf8).c_str());
}

int Ask(const std::string& utf8, UINT type) {
    return mfc::CurrentWindowSystem().ShowMessageBox(
        {win32::GbkFromUtf8(utf8), "", type, win32::MainWindow(), true});
}

void AskForCheck(const Project& project) {
    const std::string description = Describe(project);
    if (project.profile.checked && project.table && project.table->checked) {
        Ask(description, MB_OK | MB_ICONINFORMATION);
        return;
    }
    const std::string question =
        description + "\n\n" + Text("Mark the project as checked?", "将本工程标记为已检查吗？");
    if (Ask(question, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) != IDYES) {
        Say(
            Text("The project is left as it is. GoDBManage, or \"grdx project --checked yes\", "
                 "marks it as checked.",
                 "工程保持原状。用 GoDBManage 或“grdx project --checked yes”可标记为已检查。"));
        return;
    }
    ChangeProject({.checked = true});
    Say(Text("The project is marked as checked.", "工程已标记为已检查。"));
}

void GoDBManage() {
    try {
        AskForCheck(ReadProject());
    } catch (const Failure& failure) {
        Say(failure.what());
        failureListener(failure.what());
    }
}
}  // namespace

void AddDataManagement(win32::Language language,
                       std::function<void(const std::string& fault)> onFailure) {
    spoken = language;
    failureListener = std::move(onFailure);
    acedRegCmds->addCommand("LAB", "GODBMANAGE", "GoDBManage", ACRX_CMD_MODAL, GoDBManage);
}

}  // namespace lab
