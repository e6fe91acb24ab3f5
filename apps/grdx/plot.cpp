#include "apps/grdx/plot.h"

#include "apps/grdx/ConsoleSession.h"
#include "apps/grdx/Failure.h"
#include "host/plot/SvgPlot.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace console {

void PlotAsSvg(const std::string& drawing, const std::string& page, MessageStream& messages) {
    std::string windowsPath;
    if (!win32::WindowsPath(drawing, windowsPath)) {
        throw Failure(drawing + ": the path has a character that GBK does not have");
    }
    ConsoleSession session(messages);
    session.Start("");
    AcDbDatabase database(false, true);
    if (database.readDwgFile(windowsPath.c_str()) != Acad::eOk) {
        throw Failure(database.lastFileError());
    }
    std::string error;
    if (!win32::ReplaceFileWhole(page, plot::SvgOf(database), error)) {
        throw Failure(error);
    }
}

}  // namespace console
