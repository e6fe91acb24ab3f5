#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbHatch.h"
#include "src/chart/CDrawTools.h"
#include "src/entity/model_space.h"

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

void CDrawTools::DrawSolidDot(double x, double y, double radius, Adesk::UInt16 colorIndex,
                              AcDbDatabase* target) const {
    AcCmColor color;
    color.setColorIndex(colorIndex);
    auto circle =
        std::make_unique<AcDbCircle>(AcGePoint3d(x, y, 0.0), AcGeVector3d::kZAxis, radius);
    circle->setColor(color, false);
    const AcDbObjectId circleId = AppendOrDrop(target, std::move(circle));
    if (circleId.isNull()) {
        return;
    }
    std::unique_ptr<AcDbHatch> hatch = MakeSolidFill(circleId, color);
    AcDbObjectIdArray boundaries;
    hatch->getAssocObjIds(boundaries);
    const AcDbObjectId hatchId = AppendOrDrop(target, std::move(hatch));
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
    AppendOrDrop(target, std::move(reference));
}
