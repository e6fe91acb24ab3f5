#include <algorithm>

#include "platform/db/AcDbText.h"
#include "src/common/module_state.h"
#include "src/entity/CKFCurve.h"

Acad::ErrorStatus CKFCurve::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                          AcDbIntArray&) const {
    assertReadEnabled();
    gripPoints.append(fields_.curvePoints);
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::moveGripPointsAt(const AcDbIntArray& indices,
                                             const AcGeVector3d& offset) {
    const bool allKnown = std::all_of(indices.begin(), indices.end(), [this](int index) {
        return index >= 0 && index < fields_.curvePoints.length();
    });
    if (!allKnown) {
        return Acad::eInvalidIndex;
    }
    assertWriteEnabled();
    for (int index : indices) {
        fields_.curvePoints[index] += offset;
        fields_.modified = true;
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
    for (AcGePoint3d& point : fields_.curvePoints) {
        point.transformBy(transform);
    }
    for (AcGePoint3d& point : fields_.labelPoints) {
        point.transformBy(transform);
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::explode(AcDbVoidPtrArray& entitySet) const {
    assertReadEnabled();
    if (CurveThrough(fields_.curvePoints).isValid()) {
        auto* spline = new AcDbSpline(MakeSpline());
        spline->setColorIndex(kCurveColor, true);
        entitySet.append(static_cast<AcDbEntity*>(spline));
    }
    const std::vector<std::string> texts = LabelTexts();
    const int count = std::min(fields_.labelPoints.length(), static_cast<int>(texts.size()));
    for (int i = 0; i < count; ++i) {
        auto* text =
            new AcDbText(fields_.labelPoints[i], texts[static_cast<std::size_t>(i)].c_str(),
                         AcDbObjectId::kNull, fields_.textHeight, 0.0);
        text->setTextStyle(fields_.textStyleId);
        text->setWidthFactor(kLabelWidthFactor);
        entitySet.append(static_cast<AcDbEntity*>(text));
    }
    return Acad::eOk;
}
