#include <strings.h>

#include "host/BuiltInCommand.h"
#include "host/dialogue.h"
#include "host/model_entities.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/HeaderVariables.h"

namespace host {

namespace {
bool IsOption(const std::string& word, const char* option) {
    return !word.empty() && strncasecmp(word.c_str(), option, word.size()) == 0;
}

/// The part of the plane that a new drawing is meant for.
AcDbExtents Limits(const AcDbDatabase& database) {
    const HeaderVariables& header = database.header();
    AcDbExtents limits;
    limits.addPoint({header.LIMMIN.x, header.LIMMIN.y, 0.0});
    limits.addPoint({header.LIMMAX.x, header.LIMMAX.y, 0.0});
    return limits;
}

void Show(AcApDocument& document, const AcDbExtents& area) {
    const AcGePoint3d& low = area.minPoint();
    const AcGePoint3d& high = area.maxPoint();
    AcApView& view = document.view();
    view.center = AcGePoint2d((low.x + high.x) / 2.0, (low.y + high.y) / 2.0);
    // A drawing of one straight line has no area; the view keeps its size across it.
    view.width = high.x > low.x ? high.x - low.x : view.width;
    view.height = high.y > low.y ? high.y - low.y : view.height;
}

/// E shows what is drawn, A the drawing's limits as well; an empty drawing has only those.
bool Zoom(Host& /*host*/, const BuiltInCommand::Arguments& arguments) {
    const bool all = IsOption(arguments.front(), "All");
    if (!all && !IsOption(arguments.front(), "Extents")) {
        return Complain("ZOOM takes E (extents) or A (all), not \"%1\".", {arguments.front()});
    }
    AcApDocument& document = *acDocManager->curDocument();
    AcDbExtents area = ModelSpaceExtents(*document.database());
    if (all || area.isEmpty()) {
        area.addExt(Limits(*document.database()));
    }
    Show(document, area);
    return true;
}
}  // namespace

const std::vector<BuiltInCommand>& ViewCommands() {
    static const std::vector<BuiltInCommand> commands = {
        {"ZOOM", false, {"All or Extents: "}, Zoom},
    };
    return commands;
}

}  // namespace host
