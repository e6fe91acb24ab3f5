#include "src/entity/CKFCurve.h"

#include <cstdlib>

#include "platform/rx/AcRxDictionary.h"
#include "src/common/module_state.h"
#include "src/db/result_stores.h"
#include "src/entity/stored_values.h"

namespace {

constexpr const char* kClassName = "CKFCurve";
constexpr int kBirthDwgVersion = 23;
constexpr int kBirthMaintenanceRelease = 6;
constexpr int kEveryProxyOperation = 255;

AcRxClass* classRecord = nullptr;  // looked up on first use after loading

AcRxObject* MakeCurve() {
    return new CKFCurve;
}

/// What is to be undone is the whole curve.
bool FilesLayerNumbers(const AcDbDwgFiler& filer) {
    return ChartMode == kLayerCharts || filer.filerType() == AcDb::kUndoFiler;
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
    fields_.chartType = chartType;
    fields_.projectIndex = projectIndex;
    fields_.projectNumber = projectNumber;
    fields_.borehole = borehole;
    fields_.sample = sample;
}

void CKFCurve::SetGrid(const AcGePoint3d& gridOrigin, Adesk::Int16 wideAxis, double decadeLength,
                       double gridWidth, double gridHeight, double textHeight) {
    assertWriteEnabled();
    fields_.gridOrigin = gridOrigin;
    fields_.wideAxis = wideAxis;
    fields_.decadeLength = decadeLength;
    fields_.gridWidth = gridWidth;
    fields_.gridHeight = gridHeight;
    fields_.textHeight = textHeight;
}

void CKFCurve::SetPoints(const AcGePoint3dArray& curvePoints, const AcGePoint3dArray& labelPoints) {
    assertWriteEnabled();
    fields_.curvePoints = curvePoints;
    fields_.labelPoints = labelPoints;
}

void CKFCurve::SetTextStyleId(AcDbObjectId textStyle) {
    assertWriteEnabled();
    fields_.textStyleId = textStyle;
}

void CKFCurve::SetLayerKey(const std::string& mainLayer, const std::string& subLayer) {
    assertWriteEnabled();
    fields_.mainLayer = LeadingInteger(mainLayer);
    fields_.subLayer = LeadingInteger(subLayer);
}

GrainSizeRecord CKFCurve::Record() const {
    GrainSizeRecord record;
    record.projectIndex = fields_.projectIndex;
    record.borehole = fields_.borehole;
    record.sample = fields_.sample;
    record.mainLayer = fields_.mainLayer;
    record.subLayer = fields_.subLayer;
    record.diameters = fields_.diameters;
    record.uniformity = Uniformity(record.diameters);
    record.curvature = Curvature(record.diameters);
    return record;
}

int CKFCurve::StoreToDatabase() {
    if (!fields_.modified) {
        return 2;
    }
    assertWriteEnabled();
    fields_.modified = false;
    const GrainSizeRecord record = Record();
    const int result = StoreCurveValues(record, ChartMode);
    // A curve that is in no drawing yet has no earlier state to be taken back to.
    if (result == 1 && !objectId().isNull()) {
        NoteStoredValues(record);
    }
    return result;
}

void CKFCurve::modifyUndone(const AcDbObject* /*object*/) {
    if (!fields_.modified && AreOtherValuesStored(Record())) {
        assertWriteEnabled();
        fields_.modified = true;
    }
    if (fields_.modified) {
        CurveDataChanged = 1;
    }
}

void CKFCurve::GetProjectKey(int& projectIndex, std::string& projectNumber) const {
    projectIndex = fields_.projectIndex;
    projectNumber = fields_.projectNumber;
}

Acad::ErrorStatus CKFCurve::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    AcDbEntity::dwgOutFields(filer);
    CurveFieldWriter write(*filer);
    CurveFields::ForEach(fields_, write);
    if (FilesLayerNumbers(*filer)) {
        CurveFields::ForEachLayerNumber(fields_, write);
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    AcDbEntity::dwgInFields(filer);
    CurveFieldReader read(*filer);
    CurveFields::ForEach(fields_, read);
    if (FilesLayerNumbers(*filer)) {
        CurveFields::ForEachLayerNumber(fields_, read);
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::setColorIndex(Adesk::UInt16 index, Adesk::Boolean) {
    assertWriteEnabled();
    fields_.colorIndex = index;
    return AcDbEntity::setColorIndex(index, true);
}

Acad::ErrorStatus CKFCurve::setLayer(AcDbObjectId layer, Adesk::Boolean) {
    return AcDbEntity::setLayer(layer, true);
}
