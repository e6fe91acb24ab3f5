#include "src/frame/chart_folder.h"

#include "platform/mfc/message_box.h"
#include "platform/win32/directory.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/db/project_database.h"

namespace {

constexpr const char* kOutputFolder = "output\\";

/// "室内曲线\": laboratory curves.
std::string CurvesFolder() {
    return std::string("室内曲线"_gbk) + "\\";
}

std::string WithBackslash(std::string folder) {
    // The last byte alone may be the trail byte of a double-byte character.
    if (folder.empty() || FindLastChar(folder, '\\') != folder.size() - 1) {
        folder += '\\';
    }
    return folder;
}

/// Makes the folder where it is missing, unless another program has just made it.
bool EnterFolder(const std::string& path) {
    if (_chdir(path.c_str()) == 0) {
        return true;
    }
    _mkdir(path.c_str());
    return _chdir(path.c_str()) == 0;
}

}  // namespace

std::string ChartFolder() {
    std::string registered;
    QueryRegisteredFolder(registered);
    return WithBackslash(registered) + kOutputFolder + ProjectContext.GCBH + "\\" + CurvesFolder();
}

bool MakeChartFolder(std::string& folder) {
    std::string registered;
    if (!QueryRegisteredFolder(registered)) {
        AfxMessageBox("路径未注册!"_gbk);
        return false;
    }
    std::string path = WithBackslash(registered) + kOutputFolder;
    // A failure shows again, and is told, at the folder below.
    EnterFolder(path);
    for (const std::string& level : {ProjectContext.GCBH + "\\", CurvesFolder()}) {
        path += level;
        if (!EnterFolder(path)) {
            AfxMessageBox("不能新建目录."_gbk);
            return false;
        }
    }
    folder = path;
    return true;
}
