#include "host/BuiltInCommand.h"
#include "host/entity_pick.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/ed/command_line.h"

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

void Describe(const AcDbEntity& entity) {
    acutPrintf("\n%s  handle %llX  layer %s  color %d", entity.isA()->name(),
               static_cast<unsigned long long>(entity.objectId().handle()),
               LayerName(entity).c_str(), entity.colorIndex());
    AcDbExtents extents;
    if (entity.getGeomExtents(extents) == Acad::eOk) {
        acutPrintf("\nfrom %.4f,%.4f to %.4f,%.4f", extents.minPoint().x, extents.minPoint().y,
                   extents.maxPoint().x, extents.maxPoint().y);
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
        {"LIST", false, {"Select object: "}, List},
    };
    return commands;
}

}  // namespace host
