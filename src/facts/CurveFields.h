#pragma once

#include <string>
#include <vector>

#include "platform/db/AcDbDwgFiler.h"
#include "platform/ge/AcGePoint3d.h"

/// What a drawing keeps of a grading curve (class CKFCurve): the one list of its fields, for the
/// class itself and for whoever looks into a drawing without the plug-in. Saved sheets depend on
/// the order of the list; it has no version of its own. Lengths are drawing units, texts GBK.
struct CurveFields {
    AcGePoint3d gridOrigin;        ///< top left corner of the grid
    AcGePoint3dArray curvePoints;  ///< plotted points, from the coarsest sieve to the finest
    AcGePoint3dArray labelPoints;  ///< where the values are written, in the order of the labels
    Adesk::Int16 chartType = 0;    ///< the project's standard code; 2 has labels of its own
    Adesk::Int16 projectIndex = 0;
    std::string projectNumber;
    std::string borehole;
    std::string sample;         ///< sample number, or the layer's label
    Adesk::Int16 wideAxis = 0;  ///< 1: sizes from 2000 mm, 0: from 200 mm
    double decadeLength = 0.0;
    double gridWidth = 0.0;
    double gridHeight = 0.0;
    double textHeight = 0.0;
    std::vector<double> diameters;  ///< mm, as in DiameterIndex; -1 where the level is missed
    bool modified = true;           ///< the database does not have the diameters
    Adesk::UInt16 colorIndex = 0;   ///< of the labels
    Adesk::Int16 savingAs = 0;      ///< 1 while proxy graphics are made
    AcDbHardPointerId textStyleId;
    Adesk::Int32 mainLayer = 0;  ///< of layer charts; filed only while these are in work
    Adesk::Int32 subLayer = 0;

    /// Calls `visit(name, field)` for every field in filing order, but for the layer numbers, which
    /// come after all others where they are filed. The names are those of the console program.
    template <class Fields, class Visit>
    static void ForEach(Fields& fields, Visit&& visit) {
        visit("gridOrigin", fields.gridOrigin);
        visit("curvePoints", fields.curvePoints);
        visit("labelPoints", fields.labelPoints);
        visit("chartType", fields.chartType);
        visit("projectIndex", fields.projectIndex);
        visit("projectNumber", fields.projectNumber);
        visit("borehole", fields.borehole);
        visit("sample", fields.sample);
        visit("wideAxis", fields.wideAxis);
        visit("decadeLength", fields.decadeLength);
        visit("gridWidth", fields.gridWidth);
        visit("gridHeight", fields.gridHeight);
        visit("textHeight", fields.textHeight);
        visit("diameters", fields.diameters);
        visit("modified", fields.modified);
        visit("colorIndex", fields.colorIndex);
        visit("savingAs", fields.savingAs);
        visit("textStyle", fields.textStyleId);
    }
    template <class Fields, class Visit>
    static void ForEachLayerNumber(Fields& fields, Visit&& visit) {
        visit("mainLayer", fields.mainLayer);
        visit("subLayer", fields.subLayer);
    }
};

/// Writes the fields that it is called for, lists with their length in front.
class CurveFieldWriter {
public:
    explicit CurveFieldWriter(AcDbDwgFiler& filer) : filer_(filer) {}

    template <class Value>
    void operator()(const char* /*name*/, const Value& value) {
        Write(value);
    }

private:
    void Write(bool value) { filer_.writeBoolean(value); }
    void Write(Adesk::Int16 value) { filer_.writeInt16(value); }
    void Write(Adesk::UInt16 value) { filer_.writeUInt16(value); }
    void Write(Adesk::Int32 value) { filer_.writeInt32(value); }
    void Write(double value) { filer_.writeDouble(value); }
    void Write(const AcGePoint3d& value) { filer_.writePoint3d(value); }
    void Write(const std::string& value) { filer_.writeString(value.c_str()); }
    void Write(const AcDbHardPointerId& value) { filer_.writeHardPointerId(value); }
    void Write(const AcGePoint3dArray& values) { WriteList(values, values.length()); }
    void Write(const std::vector<double>& values) {
        WriteList(values, static_cast<Adesk::Int32>(values.size()));
    }
    template <class List>
    void WriteList(const List& values, Adesk::Int32 count) {
        Write(count);
        for (const auto& value : values) {
            Write(value);
        }
    }

    AcDbDwgFiler& filer_;
};

/// Reads the fields that it is called for.
class CurveFieldReader {
public:
    explicit CurveFieldReader(AcDbDwgFiler& filer) : filer_(filer) {}

    template <class Value>
    void operator()(const char* /*name*/, Value& value) {
        Read(value);
    }
    /// False when the data ended before the fields, or cannot be those of a curve.
    bool Good() const { return !badCount_ && filer_.filerStatus() == Acad::eOk; }

private:
    void Read(bool& value) { filer_.readBoolean(&value); }
    void Read(Adesk::Int16& value) { filer_.readInt16(&value); }
    void Read(Adesk::UInt16& value) { filer_.readUInt16(&value); }
    void Read(Adesk::Int32& value) { filer_.readInt32(&value); }
    void Read(double& value) { filer_.readDouble(&value); }
    void Read(AcGePoint3d& value) { filer_.readPoint3d(&value); }
    void Read(AcDbHardPointerId& value) { filer_.readHardPointerId(&value); }
    void Read(std::string& value) {
        char* bytes = nullptr;
        filer_.readString(&bytes);
        value = bytes == nullptr ? "" : bytes;
        acutDelString(bytes);
    }
    void Read(AcGePoint3dArray& values) {
        values.setLogicalLength(0);
        ReadList<AcGePoint3d>([&](const AcGePoint3d& value) { values.append(value); });
    }
    void Read(std::vector<double>& values) {
        values.clear();
        ReadList<double>([&](double value) { values.push_back(value); });
    }
    /// As many values as the count says that is read first, or until the data end: a damaged count
    /// must not make a list of billions.
    template <class Value, class Append>
    void ReadList(Append append) {
        Adesk::Int32 count = 0;
        Read(count);
        badCount_ = badCount_ || count < 0;
        for (Adesk::Int32 i = 0; i < count && filer_.filerStatus() == Acad::eOk; ++i) {
            Value value{};
            Read(value);
            append(value);
        }
    }

    AcDbDwgFiler& filer_;
    bool badCount_ = false;
};
