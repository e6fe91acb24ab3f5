#include "apps/grdx/plot.h"

#include <filesystem>

#include "apps/grdx/Failure.h"
#include "host/plot/SvgPlot.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace console {

std::string PlotAsSvg(const std::string& drawing, const std::string& page) {
    std::string windowsPath;
    if (!win32::WindowsPath(drawing, windowsPath)) {
        throw Failure(drawing + ": the path has a character that GBK does not have");
    }
    AcDbDatabase database(false, true);
    if (database.readDwgFile(windowsPath.c_str()) != Acad::eOk) {
        throw Failure(database.lastFileError());
    }
    std::string path =
        page.empty() ? std::filesystem::path(drawing).replace_extension("svg").string() : page;
    std::string error;
    if (!win32::ReplaceFileWhole(path, plot::SvgOf(database), error)) {
        throw Failure(error);
    }
    return path;
}

}  // namespace console
