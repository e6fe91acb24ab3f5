#include <algorithm>
#include <cstdio>
#include <memory>

#include "platform/gi/AcGiWorldDraw.h"
#include "platform/mfc/message_box.h"
#include "platform/win32/gbk_literal.h"
#include "src/core/number_format.h"
#include "src/entity/CKFCurve.h"
#include "src/entity/curve_labels.h"
#include "src/entity/model_space.h"

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

}  // namespace

bool CKFCurve::IsDrawable() const {
    return std::any_of(curvePoints_.begin(), curvePoints_.end(), [this](const AcGePoint3d& point) {
        return !point.isEqualTo(curvePoints_[0]);
    });
}

AcDbSpline CKFCurve::MakeSpline() const {
    return AcDbSpline(curvePoints_, kSplineOrder, kSplineFitTolerance);
}

AcDbLine CKFCurve::LevelLine(const DiameterLevel& level) const {
    const double y = grid_.Top() - level.tenthsDown * grid_.gridHeight / 10.0;
    return {{grid_.Left(), y, 0.0}, {grid_.Right(), y, 0.0}};
}

const DiameterLevel* CKFCurve::ReadDiameters(const AcDbSpline& spline) {
    diameters_.clear();
    AcGePoint3dArray crossings;
    for (const DiameterLevel& level : kDiameterLevels) {
        const AcDbLine line = LevelLine(level);
        crossings.setLogicalLength(0);
        if (spline.intersectWith(&line, AcDb::kOnBothOperands, crossings) != Acad::eOk) {
            return &level;
        }
        diameters_.push_back(crossings.isEmpty()
                                 ? kLevelNotReached
                                 : RoundAsPrinted(grid_.SizeOfX(crossings[0].x), 3));
    }
    return nullptr;
}

void CKFCurve::SetAllDiametersNotReached() {
    diameters_.assign(kDiameterCount, kLevelNotReached);
}

void CKFCurve::ComputeDiameters() {
    assertWriteEnabled();
    if (!IsDrawable()) {
        SetAllDiametersNotReached();
        return;
    }
    const AcDbSpline spline = MakeSpline();
    if (const DiameterLevel* unreadable = ReadDiameters(spline)) {
        AddToWorkingDrawing(std::make_unique<AcDbLine>(LevelLine(*unreadable)), kRed);
        AddToWorkingDrawing(std::make_unique<AcDbSpline>(spline), kYellow);
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
    if (!IsDrawable()) {
        SetAllDiametersNotReached();
        return;
    }
    AcDbSpline spline = MakeSpline();
    context.subEntityTraits().setSelectionMarker(kCurveMarker);
    context.subEntityTraits().setColor(kCurveColor);
    spline.worldDraw(&context);
    if (const DiameterLevel* unreadable = ReadDiameters(spline)) {
        ReportUnreadableLevel(*unreadable);
    }
}

void CKFCurve::DrawLabels(AcGiWorldDraw& context) const {
    const std::vector<std::string> texts = CurveLabelTexts(chartType_, diameters_);
    const AcGiTextStyle style = LabelStyle(textHeight_, kLabelWidthFactor);
    const int count = std::min(labelPoints_.length(), static_cast<int>(texts.size()));
    for (int i = 0; i < count; ++i) {
        context.subEntityTraits().setSelectionMarker(kLabelMarker);
        context.subEntityTraits().setColor(labelColorIndex_);
        context.geometry().text(labelPoints_[i], AcGeVector3d::kZAxis, AcGeVector3d::kXAxis,
                                texts[static_cast<std::size_t>(i)].c_str(), -1, false, style);
    }
}

void CKFCurve::saveAs(AcGiWorldDraw* context, AcDb::SaveType type) {
    savingAs_ = 1;
    AcDbEntity::saveAs(context, type);
    savingAs_ = 0;
}
