#include <algorithm>

#include "platform/db/AcDbText.h"
#include "src/common/module_state.h"
#include "src/entity/CKFCurve.h"
#include "src/entity/curve_labels.h"

Acad::ErrorStatus CKFCurve::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                          AcDbIntArray&) const {
    assertReadEnabled();
    gripPoints.append(curvePoints_);
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::moveGripPointsAt(const AcDbIntArray& indices,
                                             const AcGeVector3d& offset) {
    const bool allKnown = std::all_of(indices.begin(), indices.end(), [this](int index) {
        return index >= 0 && index < curvePoints_.length();
    });
    if (!allKnown) {
        return Acad::eInvalidIndex;
    }
    assertWriteEnabled();
    for (int index : indices) {
        curvePoints_[index] += offset;
        modified_ = true;
        CurveDataChanged = 1;
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::transformBy(const AcGeMatrix3d& transform) {
    AcGeVector3d direction = AcGeVector3d::kXAxis;
    direction.transformBy(transform);
    if (!direction.isEqualTo(AcGeVector3d::kXAxis)) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();  // only now: a refusal leaves the drawing without a change to save
    AcDbEntity::transformBy(transform);
    for (AcGePoint3d& point : curvePoints_) {
        point.transformBy(transform);
    }
    for (AcGePoint3d& point : labelPoints_) {
        point.transformBy(transform);
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::explode(AcDbVoidPtrArray& entitySet) const {
    assertReadEnabled();
    if (IsDrawable()) {
        auto* spline = new AcDbSpline(MakeSpline());
        spline->setColorIndex(kCurveColor, true);
        entitySet.append(static_cast<AcDbEntity*>(spline));
    }
    const std::vector<std::string> texts = CurveLabelTexts(chartType_, diameters_);
    const int count = std::min(labelPoints_.length(), static_cast<int>(texts.size()));
    for (int i = 0; i < count; ++i) {
        auto* text = new AcDbText(labelPoints_[i], texts[static_cast<std::size_t>(i)].c_str(),
                                  AcDbObjectId::kNull, textHeight_, 0.0);
        text->setTextStyle(textStyleId_);
        text->setWidthFactor(kLabelWidthFactor);
        entitySet.append(static_cast<AcDbEntity*>(text));
    }
    return Acad::eOk;
}
