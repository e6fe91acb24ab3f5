#include "src/frame/project_context.h"

#include <cstdlib>
#include <limits>
#include <string>

#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDb.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/private_profile.h"
#include "platform/win32/window_message.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/ui/settings.h"

namespace {

constexpr const char* kSection = "Project";

int ReadNumber(const char* key, int absent) {
    return static_cast<int>(
        GetPrivateProfileInt(kSection, key, absent, ProjectProfilePath.c_str()));
}

void RefuseUncheckedData(ProjectCheck variant) {
    if (variant == ProjectCheck::kOpeners) {
        AfxMessageBox(
            "工程数据没有进行[数据合法性检查]，\n\n请到主模块执行[数检]命令后再试此功能！"_gbk,
            MB_ICONEXCLAMATION);
        return;
    }
    AfxMessageBox("工程数据没有进行[数据合法性检查]，\n请到主模块执行[数检]命令后再试此功能！"_gbk);
    RequestDataManagement();
}

/// A curve keeps the index of its project in 16 bits, and by it finds the rows of its results: cut
/// to these, a larger index would be another project's.
bool FitsCurve(const std::string& index) {
    using Range = std::numeric_limits<Adesk::Int16>;
    const long long number = std::strtoll(index.c_str(), nullptr, 10);
    return number >= Range::min() && number <= Range::max();
}

void RefuseIndex(const std::string& index) {
    const std::string number = ReadProfileText(kSection, "GCBH", ProjectProfilePath);
    AfxMessageBox(("工程“"_gbk + number + "”的序号 "_gbk + index +
                   " 大于 32767，曲线的结果会存入其他工程，不能出图！"_gbk)
                      .c_str());
}

}  // namespace

bool CheckProject(ProjectCheck variant) {
    if (ReadNumber("GCSY", -1) < 0) {
        AfxMessageBox("请首先启动【数据管理】并打开工程，再重试此功能！"_gbk);
        return false;
    }
    // The suite writes 0 once the data have passed; a project without the flag counts as unchecked.
    if (ReadNumber("GCSJ", 1) > 0) {
        RefuseUncheckedData(variant);
        return false;
    }
    const std::string index = ReadProfileText(kSection, "GCSY", ProjectProfilePath);
    if (variant == ProjectCheck::kCharts && !FitsCurve(index)) {
        RefuseIndex(index);
        return false;
    }
    return true;
}

void LoadProjectContext() {
    ProjectContext.GCSY = ReadNumber("GCSY", -1);
    ProjectContext.GCBH = ReadProfileText(kSection, "GCBH", ProjectProfilePath);
    ProjectContext.GCBZ = std::atoi(ReadProfileText(kSection, "GCBZ", ProjectProfilePath).c_str());
    ProjectContext.GCMC = ReadProfileText(kSection, "GCMC", ProjectProfilePath);
}

void RequestDataManagement() {
    std::string input =
        "\x03"
        "GoDBManage\n";
    const HWND mainWindow = adsw_acadMainWnd();
    COPYDATASTRUCT data{
        .dwData = 1, .cbData = static_cast<DWORD>(input.size() + 1), .lpData = input.data()};
    SendMessage(mainWindow, WM_COPYDATA, reinterpret_cast<WPARAM>(mainWindow),
                reinterpret_cast<LPARAM>(&data));
}
