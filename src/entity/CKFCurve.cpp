#include "src/entity/CKFCurve.h"

#include <algorithm>
#include <cstdlib>

#include "platform/rx/AcRxDictionary.h"
#include "src/common/module_state.h"
#include "src/db/curve_store.h"

namespace {

constexpr const char* kClassName = "CKFCurve";
constexpr int kBirthDwgVersion = 23;
constexpr int kBirthMaintenanceRelease = 6;
constexpr int kEveryProxyOperation = 255;

AcRxClass* classRecord = nullptr;  // looked up on first use after loading

AcRxObject* MakeCurve() {
    return new CKFCurve;
}

Adesk::Int32 LeadingInteger(const std::string& text) {
    return static_cast<Adesk::Int32>(std::strtol(text.c_str(), nullptr, 10));
}

}  // namespace

void CKFCurve::rxInit() {
    classRecord = newAcRxClass(kClassName, "AcDbEntity", kBirthDwgVersion, kBirthMaintenanceRelease,
                               kEveryProxyOperation, MakeCurve, "CKFCURVE", "CKFCURVE");
}

void CKFCurve::rxRemove() {
    deleteAcRxClass(desc());
    classRecord = nullptr;
}

AcRxClass* CKFCurve::desc() {
    if (classRecord == nullptr) {
        const auto* classes =
            static_cast<const AcRxDictionary*>(acrxSysRegistry()->at("ClassDictionary"));
        classRecord = static_cast<AcRxClass*>(classes->at(kClassName));
    }
    return classRecord;
}

AcRxClass* CKFCurve::isA() const {
    return desc();
}

void CKFCurve::SetIdentity(Adesk::Int16 chartType, Adesk::Int16 projectIndex,
                           const std::string& projectNumber, const std::string& borehole,
                           const std::string& sample) {
    assertWriteEnabled();
    chartType_ = chartType;
    projectIndex_ = projectIndex;
    projectNumber_ = projectNumber;
    borehole_ = borehole;
    sample_ = sample;
}

void CKFCurve::SetGrid(const CurveGrid& grid, double labelTextHeight) {
    assertWriteEnabled();
    grid_ = grid;
    textHeight_ = labelTextHeight;
}

void CKFCurve::SetPoints(const AcGePoint3dArray& curvePoints, const AcGePoint3dArray& labelPoints) {
    assertWriteEnabled();
    curvePoints_ = curvePoints;
    labelPoints_ = labelPoints;
}

void CKFCurve::SetTextStyleId(AcDbObjectId textStyle) {
    assertWriteEnabled();
    textStyleId_ = textStyle;
}

void CKFCurve::SetLayerKey(const std::string& mainLayer, const std::string& subLayer) {
    assertWriteEnabled();
    mainLayer_ = LeadingInteger(mainLayer);
    subLayer_ = LeadingInteger(subLayer);
}

int CKFCurve::StoreToDatabase() {
    if (!modified_) {
        return 2;
    }
    assertWriteEnabled();
    modified_ = false;
    CurveValues values;
    values.projectIndex = projectIndex_;
    values.borehole = borehole_;
    values.sample = sample_;
    values.mainLayer = mainLayer_;
    values.subLayer = subLayer_;
    values.diameters.fill(kLevelNotReached);
    std::copy_n(diameters_.begin(), std::min(diameters_.size(), values.diameters.size()),
                values.diameters.begin());
    return StoreCurveValues(values, ChartMode);
}

void CKFCurve::GetProjectKey(int& projectIndex, std::string& projectNumber) const {
    projectIndex = projectIndex_;
    projectNumber = projectNumber_;
}

Acad::ErrorStatus CKFCurve::setColorIndex(Adesk::UInt16 index, Adesk::Boolean) {
    assertWriteEnabled();
    labelColorIndex_ = index;
    return AcDbEntity::setColorIndex(index, true);
}

Acad::ErrorStatus CKFCurve::setLayer(AcDbObjectId layer, Adesk::Boolean) {
    return AcDbEntity::setLayer(layer, true);
}
