#include "src/chart/CDrawTools.h"

#include <memory>

#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "src/entity/model_space.h"

Acad::ErrorStatus CDrawTools::AddToModelSpace(AcDbEntity* entity, AcDbObjectId& id) const {
    return AppendToModelSpace(DrawingOrWorking(nullptr), entity, id);
}

int CDrawTools::AddToDrawing(AcDbDatabase* target, AcDbEntity* entity, AcDbObjectId& id) const {
    return AppendToModelSpace(target, entity, id) == Acad::eOk ? 1 : 0;
}

void CDrawTools::AppendEntity(AcDbEntity* entity, AcDbObjectId& id, AcDbDatabase* target) const {
    id = AppendOrDrop(target, std::unique_ptr<AcDbEntity>(entity));
}

void CDrawTools::DrawLine(double x1, double y1, double x2, double y2, AcDbDatabase* target) const {
    auto line = std::make_unique<AcDbLine>();
    line->setStartPoint({x1, y1, 0.0});
    line->setEndPoint({x2, y2, 0.0});
    AppendOrDrop(target, std::move(line));
}

void CDrawTools::DrawWideLine(double x1, double y1, double x2, double y2, double width,
                              Adesk::UInt16 colorIndex, AcDbDatabase* target) const {
    auto line = std::make_unique<AcDbPolyline>();
    line->addVertexAt(0, {x1, y1}, 0.0, width, width);
    line->addVertexAt(0, {x2, y2}, 0.0, width, width);
    AcCmColor color;
    color.setColorIndex(colorIndex);
    line->setColor(color, false);
    AppendOrDrop(target, std::move(line));
}
