// Entities of unknown classes: what can be told of them comes from their file.
#include "platform/db/AcDbKeptEntity.h"

#include "platform/dwg/kept_shape.h"
#include "platform/gi/ProxyGraphicsPlayer.h"

ACRX_DEFINE_MEMBERS(AcDbKeptEntity, AcDbEntity, nullptr);

Adesk::Boolean AcDbKeptEntity::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    constexpr std::size_t kBytesOfStep = 256;
    if (!gi::MayTakeSteps(*context, (fields_.bits.size() + graphics_.size()) / kBytesOfStep)) {
        return true;
    }
    startDrawing(*context);
    if (!DrawKeptShape(*this, *context)) {
        PlayProxyGraphics(graphics_, *context);
    }
    return true;
}

Acad::ErrorStatus AcDbKeptEntity::transformBy(const AcGeMatrix3d& /*transform*/) {
    return Acad::eNotApplicable;
}

std::unique_ptr<AcDbObject> AcDbKeptEntity::clone() const {
    return std::make_unique<AcDbKeptEntity>(*this);
}
