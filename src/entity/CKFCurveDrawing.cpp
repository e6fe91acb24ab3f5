#include <algorithm>
#include <cstdio>
#include <memory>

#include "platform/db/AcDbLine.h"
#include "platform/gi/AcGiWorldDraw.h"
#include "platform/mfc/message_box.h"
#include "src/core/gbk_text.h"
#include "src/entity/CKFCurve.h"
#include "src/entity/append_entity.h"

namespace {

constexpr int kSplineOrder = 4;
constexpr double kSplineFitTolerance = 0.0;
constexpr Adesk::UInt16 kRed = 1;
constexpr Adesk::UInt16 kYellow = 2;

// Markers by which a selection tells the curve from its labels.
constexpr Adesk::Int32 kCurveMarker = 1;
constexpr Adesk::Int32 kLabelMarker = 2;

void ReportUnreadableLevel(const DiameterLevel& level) {
    char text[80];
    std::snprintf(text, sizeof text, "计算d%d时出错，请检查输入的数据!"_gbk, level.percent);
    AfxMessageBox(text);
}

void AddToWorkingDrawing(std::unique_ptr<AcDbEntity> entity, Adesk::UInt16 color) {
    entity->setColorIndex(color);
    AppendOrDrop(nullptr, std::move(entity));
}

AcGiTextStyle LabelStyle(double textHeight, double widthFactor) {
    AcGiTextStyle style;
    style.setFileName("comfont.shx");
    style.setBigFontFileName("hztxt.shx");
    style.setXScale(widthFactor);
    style.setObliquingAngle(0.0);
    style.setTrackingPercent(80.0);
    style.setTextSize(textHeight);
    return style;
}

constexpr int kCumulativeChart = 2;

std::string ValueText(std::optional<double> value, ResultValueMode mode) {
    return value ? CKFCurve::FormatResultValue(*value, mode) : std::string();
}

}  // namespace

CurveGrid CKFCurve::Grid() const {
    return {fields_.gridOrigin, fields_.wideAxis, fields_.decadeLength, fields_.gridWidth,
            fields_.gridHeight};
}

AcDbSpline CKFCurve::MakeSpline() const {
    return AcDbSpline(fields_.curvePoints, kSplineOrder, kSplineFitTolerance);
}

void CKFCurve::ComputeDiameters() {
    assertWriteEnabled();
    const CurveGrid grid = Grid();
    if (const DiameterLevel* unreadable =
            ReadDiameters(CurveThrough(fields_.curvePoints), grid, fields_.diameters)) {
        const double y = grid.YOfLevel(*unreadable);
        AddToWorkingDrawing(std::make_unique<AcDbLine>(AcGePoint3d(grid.Left(), y, 0.0),
                                                       AcGePoint3d(grid.Right(), y, 0.0)),
                            kRed);
        AddToWorkingDrawing(std::make_unique<AcDbSpline>(MakeSpline()), kYellow);
        ReportUnreadableLevel(*unreadable);
    }
}

Adesk::Boolean CKFCurve::worldDraw(AcGiWorldDraw* context) {
    if (context->isDragging()) {
        return true;
    }
    DrawCurve(*context);
    DrawLabels(*context);
    return true;
}

void CKFCurve::DrawCurve(AcGiWorldDraw& context) {
    const AcGeCubicSplineCurve3d curve = CurveThrough(fields_.curvePoints);
    if (curve.isValid()) {
        context.subEntityTraits().setSelectionMarker(kCurveMarker);
        context.subEntityTraits().setColor(kCurveColor);
        MakeSpline().worldDraw(&context);
    }
    if (const DiameterLevel* unreadable = ReadDiameters(curve, Grid(), fields_.diameters)) {
        ReportUnreadableLevel(*unreadable);
    }
}

void CKFCurve::DrawLabels(AcGiWorldDraw& context) const {
    const std::vector<std::string> texts = LabelTexts();
    const AcGiTextStyle style = LabelStyle(fields_.textHeight, kLabelWidthFactor);
    const int count = std::min(fields_.labelPoints.length(), static_cast<int>(texts.size()));
    for (int i = 0; i < count; ++i) {
        context.subEntityTraits().setSelectionMarker(kLabelMarker);
        context.subEntityTraits().setColor(fields_.colorIndex);
        context.geometry().text(fields_.labelPoints[i], AcGeVector3d::kZAxis, AcGeVector3d::kXAxis,
                                texts[static_cast<std::size_t>(i)].c_str(), -1, false, style);
    }
}

std::string CKFCurve::FormatResultValue(double value, ResultValueMode mode) {
    return ::FormatResultValue(value, mode);
}

std::vector<std::string> CKFCurve::LabelTexts() const {
    const std::vector<double>& diameters = fields_.diameters;
    const auto diameter = [&diameters](DiameterIndex index) {
        return ValueText(DeterminedDiameter(diameters, index), kDiameterValue);
    };
    const std::string uniformity = ValueText(Uniformity(diameters), kCoefficientValue);
    const std::string curvature = ValueText(Curvature(diameters), kCoefficientValue);
    if (fields_.chartType == kCumulativeChart) {
        return {diameter(kD95), diameter(kD60), diameter(kD50), diameter(kD30),
                diameter(kD10), uniformity,     curvature};
    }
    return {"=" + diameter(kD60), "=" + uniformity, "=" + diameter(kD30), "=" + diameter(kD10),
            "=" + curvature};
}

void CKFCurve::saveAs(AcGiWorldDraw* context, AcDb::SaveType type) {
    fields_.savingAs = 1;
    AcDbEntity::saveAs(context, type);
    fields_.savingAs = 0;
}
