#include "host/picture/PictureDraw.h"

#include <cmath>
#include <numbers>
#include <string_view>

#include "host/picture/TextDrawing.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/gi/shape_outline.h"
#include "platform/win32/gbk_case.h"

namespace picture {

namespace {
constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr int kForeground = 7;
/// The layer of what guides the drawing of dimensions, which no program prints.
constexpr std::string_view kNeverPrinted = "DEFPOINTS";

Point Flat(const AcGePoint3d& point) {
    return {point.x, point.y};
}
Point Flat(const AcGeVector3d& vector) {
    return {vector.x, vector.y};
}
}  // namespace

Adesk::Boolean PictureDraw::regenAbort() const {
    constexpr std::size_t kMostStepsOfShape = 4;
    constexpr std::size_t kMostPointsOfShape = 16;
    return ++steps_ > kMostStepsOfShape * mostShapes_ || list_.shapeCount() > mostShapes_ ||
           list_.pointCount() > kMostPointsOfShape * mostShapes_;
}

void PictureDraw::draw(AcDbEntity& entity) {
    byLayer_ = lookOf(entity.layerId());
    if (byLayer_.frozen || entity.visibility() != AcDb::kVisible) {
        return;
    }
    list_.beginItem(entity.objectId());
    entity.setTraits(*this);
    entity.worldDraw(this);
    endWideLine();
    list_.endItem();
}

const PictureDraw::LayerLook& PictureDraw::lookOf(AcDbObjectId id) {
    const auto [found, isNew] = layers_.try_emplace(id.handle());
    AcDbLayerTableRecord* layer = nullptr;
    if (isNew && acdbOpenObject(layer, id, AcDb::kForRead) == Acad::eOk) {
        found->second = {layer->isFrozen(),
                         layer->isOff(),
                         layer->isPlottable() && !win32::EqualNoCase(layer->name(), kNeverPrinted),
                         layer->color().colorIndex(),
                         layer->lineWeight(),
                         layer->linetypeObjectId()};
        layer->close();
    }
    return found->second;
}

const LinePattern* PictureDraw::patternOf(AcDbObjectId id) {
    const auto [found, isNew] = patterns_.try_emplace(id.handle());
    AcDbLinetypeTableRecord* linetype = nullptr;
    if (isNew && acdbOpenObject(linetype, id, AcDb::kForRead) == Acad::eOk) {
        std::vector<double> lengths;
        for (const AcDbLinetypeTableRecord::Dash& dash : linetype->dashes()) {
            lengths.push_back(dash.length);
        }
        found->second = LinePattern(std::move(lengths));
        linetype->close();
    }
    return found->second.isBroken() ? &found->second : nullptr;
}

void PictureDraw::setColor(Adesk::UInt16 colorIndex) {
    endWideLine();
    pen_.colorIndex = colorIndex == AcCmColor::kByBlock  ? kForeground
                      : colorIndex < AcCmColor::kByLayer ? colorIndex
                                                         : byLayer_.colorIndex;
}

void PictureDraw::setLayer(const AcDbObjectId& layer) {
    endWideLine();
    const LayerLook& look = lookOf(layer);
    list_.setShown(!look.off);
    list_.setPrinted(look.printed);
}

void PictureDraw::setLineType(const AcDbObjectId& linetype) {
    const AcDbDatabase* const database = linetype.database();
    const bool isByLayer = database == nullptr || linetype == database->byLayerLinetype();
    pen_.pattern = patternOf(isByLayer ? byLayer_.linetype : linetype);
}

void PictureDraw::setLineTypeScale(double scale) {
    pen_.patternScale = scale * lineTypeScale_;
}

void PictureDraw::setLineWeight(Adesk::Int16 lineWeight) {
    constexpr float kHundredths = 100.0F;
    const Adesk::Int16 weight = lineWeight == AcDb::kLnWtByLayer ? byLayer_.lineWeight : lineWeight;
    pen_.lineWeight = static_cast<float>(weight) / kHundredths;
}

const std::vector<Point>& PictureDraw::flat(Adesk::UInt32 count, const AcGePoint3d* points) {
    flat_.clear();
    for (Adesk::UInt32 i = 0; i < count; ++i) {
        flat_.push_back(Flat(points[i]));
    }
    return flat_;
}

Adesk::Boolean PictureDraw::polyline(Adesk::UInt32 count, const AcGePoint3d* points) {
    endWideLine();
    pen_.drawPolyline(flat(count, points));
    return true;
}

Adesk::Boolean PictureDraw::polygon(Adesk::UInt32 count, const AcGePoint3d* points) {
    endWideLine();
    list_.addFill(flat(count, points), pen_.colorIndex);
    return true;
}

Adesk::Boolean PictureDraw::circle(const AcGePoint3d& center, double radius,
                                   const AcGeVector3d& normal) {
    endWideLine();
    if (normal.x == 0.0 && normal.y == 0.0) {
        pen_.drawArc({Flat(center), radius, 0.0, kTurn});
        return true;
    }
    const std::vector<AcGePoint3d> points = gi::CirclePoints(center, radius, normal);
    return polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

Adesk::Boolean PictureDraw::circularArc(const AcGePoint3d& center, double radius, double startAngle,
                                        double sweepAngle) {
    endWideLine();
    pen_.drawArc({Flat(center), radius, startAngle, sweepAngle});
    return true;
}

Adesk::Boolean PictureDraw::wideLine(const AcGePoint3d& start, const AcGePoint3d& end,
                                     double startWidth, double endWidth) {
    for (const WideLineRun::Segment& part :
         pen_.dashesOf({Flat(start), Flat(end), startWidth, endWidth})) {
        if (!wideLine_.continues(part)) {
            endWideLine();
        }
        wideLine_.add(part);
    }
    return true;
}

void PictureDraw::endWideLine() {
    if (!wideLine_.isEmpty()) {
        list_.addFill(wideLine_.take(), pen_.colorIndex);
    }
}

Adesk::Boolean PictureDraw::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                 const AcGeVector3d& direction, const char* message,
                                 Adesk::Int32 length, Adesk::Boolean raw,
                                 const AcGiTextStyle& style) {
    endWideLine();
    const AcGeVector3d along = direction.normal();
    const AcGeVector3d stem =
        normal.crossProduct(along).normal() + along * std::tan(style.obliquingAngle());
    const Affine frame{Flat(position), Flat(along * (style.textSize() * style.xScale())),
                       Flat(stem * style.textSize())};
    TextDrawing(list_, fonts_, style, frame, pen_.colorIndex, pen_.lineWeight)
        .draw(CharactersOf(gi::TextPart(message, length), raw));
    return true;
}

}  // namespace picture
