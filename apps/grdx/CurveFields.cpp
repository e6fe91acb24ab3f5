#include "apps/grdx/CurveFields.h"

namespace console {

namespace {
/// Reads values of any kind one after another; lists carry their length in front.
class FieldReader {
public:
    FieldReader(AcDbDwgFiler& filer, std::size_t valueLimit) : filer_(filer), limit_(valueLimit) {}

    template <class... Values>
    void operator()(Values&... values) {
        (Read(values), ...);
    }
    bool Good() const { return !tooLong_ && filer_.filerStatus() == Acad::eOk; }

private:
    void Read(bool& value) { filer_.readBoolean(&value); }
    void Read(Adesk::Int16& value) { filer_.readInt16(&value); }
    void Read(Adesk::UInt16& value) { filer_.readUInt16(&value); }
    void Read(Adesk::Int32& value) { filer_.readInt32(&value); }
    void Read(double& value) { filer_.readDouble(&value); }
    void Read(AcGePoint3d& value) { filer_.readPoint3d(&value); }
    void Read(AcDbObjectId& value) { filer_.readHardPointerId(&value); }

    void Read(std::string& value) {
        char* text = nullptr;
        filer_.readString(&text);
        value = text != nullptr ? text : "";
        acutDelString(text);
    }

    template <class Value>
    void Read(std::vector<Value>& values) {
        Adesk::Int32 count = 0;
        Read(count);
        if (count < 0 || static_cast<std::size_t>(count) > limit_) {
            tooLong_ = true;
            return;
        }
        values.resize(static_cast<std::size_t>(count));
        for (Value& value : values) {
            Read(value);
        }
    }

    AcDbDwgFiler& filer_;
    std::size_t limit_;
    bool tooLong_ = false;
};
}  // namespace

bool CurveFields::Read(AcDbDwgFiler& filer, bool ofLayer, std::size_t valueLimit) {
    FieldReader read(filer, valueLimit);
    read(gridOrigin, curvePoints, labelPoints, chartType, projectIndex, projectNumber, borehole,
         sample, wideAxis, decadeLength, gridWidth, gridHeight, textHeight, diameters, modified,
         colorIndex, savingAs, textStyle);
    const bool good = read.Good();
    if (ofLayer) {
        LayerKey key;
        read(key.main, key.sub);
        layer = read.Good() ? std::optional(key) : std::nullopt;
    }
    return good;
}

}  // namespace console
