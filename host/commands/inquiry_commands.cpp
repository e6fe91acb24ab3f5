#include <charconv>
#include <cstdio>

#include "host/BuiltInCommand.h"
#include "host/entity_pick.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/ed/command_line.h"
#include "platform/ge/AcGePoint3d.h"

namespace host {

namespace {
std::string LayerName(const AcDbEntity& entity) {
    AcDbLayerTableRecord* layer = nullptr;
    if (acdbOpenObject(layer, entity.layerId(), AcDb::kForRead) != Acad::eOk) {
        return "-";
    }
    std::string name = layer->name();
    layer->close();
    return name;
}

std::string HandleText(AcDbObjectId id) {
    char text[20] = "";
    std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(id.handle()));
    return text;
}

std::string PointText(const AcGePoint3d& point) {
    std::string text;
    for (const double coordinate : {point.x, point.y}) {
        char digits[400] = "";  // the longest double has 309 before the point
        char* const end = std::to_chars(std::begin(digits), std::end(digits), coordinate,
                                        std::chars_format::fixed, 4)
                              .ptr;
        text.append(text.empty() ? "" : ",").append(digits, end);
    }
    return text;
}

void Say(Phrase phrase, std::initializer_list<std::string> values) {
    acutPrintf("\n%s", phrase.Text(values).c_str());
}

void Describe(const AcDbEntity& entity) {
    Say("%1  handle %2  layer %3  color %4",
        {entity.isA()->name(), HandleText(entity.objectId()), LayerName(entity),
         std::to_string(entity.colorIndex())});
    AcDbExtents extents;
    if (entity.getGeomExtents(extents) == Acad::eOk) {
        Say("from %1 to %2", {PointText(extents.minPoint()), PointText(extents.maxPoint())});
    }
}

bool ListOne(const std::string& pick) {
    AcDbObjectId id;
    AcGePoint3d point;
    AcDbEntity* entity = nullptr;
    if (!PickEntity(*acDocManager->curDocument(), pick, id, point) ||
        acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) {
        return false;
    }
    Describe(*entity);
    entity->close();
    return true;
}

bool List(Host& /*host*/, const BuiltInCommand::Arguments& arguments) {
    return ForEachPick(arguments[0], ListOne);
}
}  // namespace

const std::vector<BuiltInCommand>& InquiryCommands() {
    static const std::vector<BuiltInCommand> commands = {
        {"LIST", false, {"Select object: "}, List, BuiltInCommand::Picks::kSeveral},
    };
    return commands;
}

}  // namespace host
