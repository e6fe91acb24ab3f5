#include "src/chart/CDrawTools.h"

#include <memory>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "src/entity/append_entity.h"

namespace {

constexpr int kShareDenyWrite = 0x20;

std::unique_ptr<AcDbHatch> MakeSolidFill(AcDbObjectId boundary, const AcCmColor& color) {
    auto hatch = std::make_unique<AcDbHatch>();
    hatch->setNormal(AcGeVector3d::kZAxis);
    hatch->setElevation(0.0);
    hatch->setAssociative(true);
    hatch->setPattern(AcDbHatch::kPreDefined, "SOLID");
    hatch->setColor(color, false);
    hatch->appendLoop(AcDbHatch::kDefault, {boundary});
    hatch->evaluateHatch(false);
    return hatch;
}

/// Lets the boundary objects know the hatch, so that it follows their changes.
void ConnectBoundaries(const AcDbObjectIdArray& boundaries, AcDbObjectId hatch) {
    for (AcDbObjectId id : boundaries) {
        AcDbObject* boundary = nullptr;
        if (acdbOpenObject(boundary, id, AcDb::kForWrite) == Acad::eOk) {
            boundary->addPersistentReactor(hatch);
            boundary->close();
        }
    }
}

}  // namespace

Acad::ErrorStatus CDrawTools::AddToModelSpace(AcDbEntity* entity, AcDbObjectId& id) const {
    return AppendToModelSpace(DrawingOrWorking(nullptr), entity, id);
}

int CDrawTools::AddToDrawing(AcDbDatabase* target, AcDbEntity* entity, AcDbObjectId& id) const {
    return AppendToModelSpace(target, entity, id) == Acad::eOk ? 1 : 0;
}

void CDrawTools::AppendEntity(AcDbEntity* entity, AcDbObjectId& id, AcDbDatabase* target) const {
    id = Append(target, std::unique_ptr<AcDbEntity>(entity));
}

AcDbObjectId CDrawTools::Append(AcDbDatabase* target, std::unique_ptr<AcDbEntity> entity) const {
    AcDbObjectId id;
    const bool appended = target == nullptr ? AddToModelSpace(entity.get(), id) == Acad::eOk
                                            : AddToDrawing(target, entity.get(), id) == 1;
    if (appended) {
        static_cast<void>(entity.release());  // the drawing's now
    }
    return id;
}

void CDrawTools::DrawLine(double x1, double y1, double x2, double y2, AcDbDatabase* target) const {
    auto line = std::make_unique<AcDbLine>();
    line->setStartPoint({x1, y1, 0.0});
    line->setEndPoint({x2, y2, 0.0});
    Append(target, std::move(line));
}

void CDrawTools::DrawWideLine(double x1, double y1, double x2, double y2, double width,
                              Adesk::UInt16 colorIndex, AcDbDatabase* target) const {
    auto line = std::make_unique<AcDbPolyline>();
    line->addVertexAt(0, {x1, y1}, 0.0, width, width);
    line->addVertexAt(0, {x2, y2}, 0.0, width, width);
    AcCmColor color;
    color.setColorIndex(colorIndex);
    line->setColor(color, false);
    Append(target, std::move(line));
}

void CDrawTools::DrawSolidDot(double x, double y, double radius, Adesk::UInt16 colorIndex,
                              AcDbDatabase* target) const {
    AcCmColor color;
    color.setColorIndex(colorIndex);
    auto circle =
        std::make_unique<AcDbCircle>(AcGePoint3d(x, y, 0.0), AcGeVector3d::kZAxis, radius);
    circle->setColor(color, false);
    const AcDbObjectId circleId = Append(target, std::move(circle));
    if (circleId.isNull()) {
        return;
    }
    std::unique_ptr<AcDbHatch> hatch = MakeSolidFill(circleId, color);
    AcDbObjectIdArray boundaries;
    hatch->getAssocObjIds(boundaries);
    const AcDbObjectId hatchId = Append(target, std::move(hatch));
    if (!hatchId.isNull()) {
        ConnectBoundaries(boundaries, hatchId);
    }
}

void CDrawTools::InsertDrawingAsBlock(const std::string& path, double x, double y, double rotation,
                                      double scale, AcDbDatabase* target) const {
    AcDbDatabase source(false);
    source.readDwgFile(path.c_str(), kShareDenyWrite);
    AcDbObjectId block;
    target->insert(block, path.c_str(), &source, true);

    auto reference = std::make_unique<AcDbBlockReference>();
    reference->setBlockTableRecord(block);
    reference->setPosition({x, y, 0.0});
    reference->setRotation(rotation);
    reference->setScaleFactors({scale, scale, scale});
    Append(target, std::move(reference));
}
