#include "platform/db/AcDbDwgFiler.h"
#include "src/common/module_state.h"
#include "src/entity/CKFCurve.h"

// Saved sheets depend on the order of the fields; it has no version of its own. The layer numbers
// stand at the end, and only in drawings filed while layer charts are in work.

namespace {

void WritePoints(AcDbDwgFiler& filer, const AcGePoint3dArray& points) {
    filer.writeInt32(points.length());
    for (const AcGePoint3d& point : points) {
        filer.writePoint3d(point);
    }
}

/// Calls `readOne` as often as the count says that is read first, or until the data end: a damaged
/// count must not make a list of billions.
template <class ReadOne>
void ReadList(AcDbDwgFiler& filer, ReadOne readOne) {
    Adesk::Int32 count = 0;
    filer.readInt32(&count);
    for (Adesk::Int32 i = 0; i < count && filer.filerStatus() == Acad::eOk; ++i) {
        readOne();
    }
}

AcGePoint3dArray ReadPoints(AcDbDwgFiler& filer) {
    AcGePoint3dArray points;
    ReadList(filer, [&] {
        AcGePoint3d point;
        filer.readPoint3d(&point);
        points.append(point);
    });
    return points;
}

std::string ReadText(AcDbDwgFiler& filer) {
    char* bytes = nullptr;
    filer.readString(&bytes);
    std::string text = bytes == nullptr ? "" : bytes;
    acutDelString(bytes);
    return text;
}

}  // namespace

Acad::ErrorStatus CKFCurve::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    AcDbEntity::dwgOutFields(filer);
    filer->writePoint3d(grid_.gridOrigin);
    WritePoints(*filer, curvePoints_);
    WritePoints(*filer, labelPoints_);
    filer->writeInt16(chartType_);
    filer->writeInt16(projectIndex_);
    filer->writeString(projectNumber_.c_str());
    filer->writeString(borehole_.c_str());
    filer->writeString(sample_.c_str());
    filer->writeInt16(grid_.wideAxis);
    filer->writeDouble(grid_.decadeLength);
    filer->writeDouble(grid_.gridWidth);
    filer->writeDouble(grid_.gridHeight);
    filer->writeDouble(textHeight_);
    filer->writeInt32(static_cast<Adesk::Int32>(diameters_.size()));
    for (double diameter : diameters_) {
        filer->writeDouble(diameter);
    }
    filer->writeBoolean(modified_);
    filer->writeUInt16(labelColorIndex_);
    filer->writeInt16(savingAs_);
    filer->writeHardPointerId(textStyleId_);
    if (ChartMode == kLayerCharts) {
        filer->writeInt32(mainLayer_);
        filer->writeInt32(subLayer_);
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKFCurve::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    AcDbEntity::dwgInFields(filer);
    filer->readPoint3d(&grid_.gridOrigin);
    curvePoints_ = ReadPoints(*filer);
    labelPoints_ = ReadPoints(*filer);
    filer->readInt16(&chartType_);
    filer->readInt16(&projectIndex_);
    projectNumber_ = ReadText(*filer);
    borehole_ = ReadText(*filer);
    sample_ = ReadText(*filer);
    filer->readInt16(&grid_.wideAxis);
    filer->readDouble(&grid_.decadeLength);
    filer->readDouble(&grid_.gridWidth);
    filer->readDouble(&grid_.gridHeight);
    filer->readDouble(&textHeight_);
    diameters_.clear();
    ReadList(*filer, [&] { filer->readDouble(&diameters_.emplace_back()); });
    filer->readBoolean(&modified_);
    filer->readUInt16(&labelColorIndex_);
    filer->readInt16(&savingAs_);
    filer->readHardPointerId(&textStyleId_);
    if (ChartMode == kLayerCharts) {
        filer->readInt32(&mainLayer_);
        filer->readInt32(&subLayer_);
    }
    return Acad::eOk;
}
