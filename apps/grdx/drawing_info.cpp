#include "apps/grdx/drawing_info.h"

#include <cstdio>
#include <iterator>

#include <nlohmann/json.hpp>

#include "apps/grdx/Failure.h"
#include "host/model_space.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgInFiler.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace console {

using Json = nlohmann::ordered_json;

namespace {
constexpr const char* kCurveClass = "CKFCurve";
constexpr const char* kVersion = "AC1015";  // the only one that is read

/// Code pages by their number in drawing files, from 11 on; 0 for one without a number elsewhere.
constexpr int kCodePages[] = {437,  850,  852,  855,  857,  860, 861,  863,  864,  865, 869,
                              932,  0,    950,  949,  1361, 866, 1250, 1251, 1252, 936, 1253,
                              1254, 1255, 1256, 1257, 874,  932, 936,  949,  950,  1361};
constexpr int kFirstCodePage = 11;

std::optional<int> CodePageOf(int number) {
    const int index = number - kFirstCodePage;
    if (index < 0 || index >= static_cast<int>(std::size(kCodePages)) || kCodePages[index] == 0) {
        return std::nullopt;
    }
    return kCodePages[index];
}

/// Gives the fields of an entity that was kept as it stood in the file.
class KeptFieldsFiler : public DwgInFiler {
public:
    KeptFieldsFiler(const AcDbKeptFields& fields, AcDbDatabase& database, AcDbHandle holder)
        : DwgInFiler(reader_),
          references_(fields.references),
          bits_(fields.bits.data(), 0, fields.bitCount),
          reader_(bits_, noHandles_, database, holder) {}

    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override {
        *value = next_ < references_.size() ? references_[next_++].id : AcDbObjectId::kNull;
        return filerStatus();
    }

private:
    const std::vector<AcDbKeptReference>& references_;
    std::size_t next_ = 0;
    DwgBitReader bits_;
    DwgBitReader noHandles_;  // the references were taken apart when the file was read
    DwgFieldReader reader_;
};

std::string ClassName(const AcDbEntity& entity) {
    if (!entity.isKindOf(AcDbKeptEntity::desc())) {
        return entity.isA()->name();
    }
    const AcDbKeptClass& kept = static_cast<const AcDbKeptEntity&>(entity).keptClass();
    if (kept.record == nullptr) {
        return kept.name;
    }
    return kept.record->className;
}

std::string StyleName(AcDbObjectId id) {
    AcDbTextStyleTableRecord* style = nullptr;
    if (acdbOpenObject(style, id, AcDb::kForRead) != Acad::eOk) {
        return {};
    }
    std::string name = style->name();
    style->close();
    return name;
}

std::string HandleText(AcDbHandle handle) {
    char text[20];
    std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(handle));
    return text;
}

DrawingInfo::Curve ReadCurve(const AcDbKeptEntity& entity, const DrawingInfo& info) {
    constexpr std::size_t kFewestBitsPerValue = 2;
    const AcDbKeptFields& kept = entity.keptFields();
    DrawingInfo::Curve curve;
    curve.handle = entity.objectId().handle();
    KeptFieldsFiler filer(kept, *entity.database(), curve.handle);
    if (!curve.fields.Read(filer, info.ofLayers, kept.bitCount / kFewestBitsPerValue)) {
        throw Failure(info.file + ": the curve " + HandleText(curve.handle) +
                      " has not the fields of a grain-size curve");
    }
    curve.textStyle = StyleName(curve.fields.textStyle);
    return curve;
}

Json PointAsJson(const AcGePoint3d& point) {
    return Json::array({point.x, point.y, point.z});
}

Json PointsAsJson(const std::vector<AcGePoint3d>& points) {
    Json list = Json::array();
    for (const AcGePoint3d& point : points) {
        list.push_back(PointAsJson(point));
    }
    return list;
}

Json CurveAsJson(const DrawingInfo::Curve& curve, bool ofLayers) {
    const CurveFields& fields = curve.fields;
    Json json = {{"handle", HandleText(curve.handle)},
                 {"gridOrigin", PointAsJson(fields.gridOrigin)},
                 {"curvePoints", PointsAsJson(fields.curvePoints)},
                 {"labelPoints", PointsAsJson(fields.labelPoints)},
                 {"chartType", fields.chartType},
                 {"projectIndex", fields.projectIndex},
                 {"projectNumber", win32::Utf8FromGbk(fields.projectNumber)},
                 {"borehole", win32::Utf8FromGbk(fields.borehole)},
                 {"sample", win32::Utf8FromGbk(fields.sample)},
                 {"wideAxis", fields.wideAxis},
                 {"decadeLength", fields.decadeLength},
                 {"gridWidth", fields.gridWidth},
                 {"gridHeight", fields.gridHeight},
                 {"textHeight", fields.textHeight},
                 {"diameters", fields.diameters},
                 {"modified", fields.modified},
                 {"colorIndex", fields.colorIndex},
                 {"savingAs", fields.savingAs},
                 {"textStyle", win32::Utf8FromGbk(curve.textStyle)}};
    if (ofLayers) {
        json["mainLayer"] = fields.layer ? Json(fields.layer->main) : Json();
        json["subLayer"] = fields.layer ? Json(fields.layer->sub) : Json();
    }
    return json;
}
}  // namespace

DrawingInfo ReadDrawingInfo(const std::string& file, bool ofLayers) {
    std::string windowsPath;
    if (!win32::WindowsPath(file, windowsPath)) {
        throw Failure(file + ": the path has a character that GBK does not have");
    }
    AcDbDatabase database(false, true);
    if (database.readDwgFile(windowsPath.c_str()) != Acad::eOk) {
        throw Failure(database.lastFileError());
    }
    DrawingInfo info;
    info.file = file;
    info.codePage = CodePageOf(database.header().DWGCODEPAGE);
    info.ofLayers = ofLayers;
    info.damage = database.damage().report();
    host::ForEachModelSpaceEntity(database, [&info](AcDbEntity& entity) {
        const std::string className = ClassName(entity);
        ++info.entities[className];
        if (className == kCurveClass && entity.isKindOf(AcDbKeptEntity::desc())) {
            info.curves.push_back(ReadCurve(static_cast<const AcDbKeptEntity&>(entity), info));
        }
    });
    return info;
}

nlohmann::ordered_json DrawingAsJson(const DrawingInfo& info) {
    Json curves = Json::array();
    for (const DrawingInfo::Curve& curve : info.curves) {
        curves.push_back(CurveAsJson(curve, info.ofLayers));
    }
    return {{"file", info.file},
            {"version", kVersion},
            {"codepage", info.codePage ? Json(*info.codePage) : Json()},
            {"entities", info.entities},
            {"curves", std::move(curves)}};
}

std::string DescribeDrawing(const DrawingInfo& info) {
    std::string text = info.file + ": " + kVersion + ", code page " +
                       (info.codePage ? std::to_string(*info.codePage) : "unknown") + "\n";
    for (const auto& [className, count] : info.entities) {
        text += "  " + className + " " + std::to_string(count) + "\n";
    }
    for (const DrawingInfo::Curve& curve : info.curves) {
        const Json fields = CurveAsJson(curve, info.ofLayers);
        text += "  curve " + HandleText(curve.handle) + "\n";
        for (const auto& [name, value] : fields.items()) {
            if (name != "handle") {
                text += "    " + name + " " +
                        (value.is_string() ? value.get<std::string>() : value.dump()) + "\n";
            }
        }
    }
    return text;
}

}  // namespace console
