#include "apps/grdx/drawing_info.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include <nlohmann/json.hpp>

#include "apps/grdx/Failure.h"
#include "host/model_entities.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/DrawingDamage.h"
#include "platform/db/HeaderVariables.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"
#include "src/facts/curve_form.h"

namespace console {

using Json = nlohmann::ordered_json;

namespace {
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

/// Centre of an entity that looks like the dot of a measured point.
std::optional<AcGePoint3d> DotCenter(const AcDbEntity& entity) {
    if (!entity.isKindOf(AcDbCircle::desc())) {
        return std::nullopt;
    }
    const auto& circle = static_cast<const AcDbCircle&>(entity);
    return circle.radius() == kDotRadius ? std::optional(circle.center()) : std::nullopt;
}

/// Whether a dot is of the curve: it lies in its grid, or at one of its points beside the grid. A
/// point that was moved leaves its dot where it was.
bool IsOfCurve(const AcGePoint3d& dot, const CurveFields& curve) {
    const AcGePoint3d& corner = curve.gridOrigin;
    const bool inGrid = dot.x >= corner.x && dot.x <= corner.x + curve.gridWidth &&
                        dot.y <= corner.y && dot.y >= corner.y - curve.gridHeight;
    return inGrid || std::any_of(curve.curvePoints.begin(), curve.curvePoints.end(),
                                 [&](const AcGePoint3d& point) { return point.isEqualTo(dot); });
}

/// All points of a curve are measured where a sheet has none of its dots.
int CountMeasured(const CurveFields& curve, const std::vector<AcGePoint3d>& dots) {
    const auto own = std::count_if(dots.begin(), dots.end(),
                                   [&](const AcGePoint3d& dot) { return IsOfCurve(dot, curve); });
    const int points = curve.curvePoints.length();
    return own == 0 ? points : static_cast<int>(std::min<std::ptrdiff_t>(own, points));
}

/// Adds the fields that it is called for.
class JsonFields {
public:
    JsonFields(Json& json, const std::string& textStyle) : json_(json), textStyle_(textStyle) {}

    template <class Value>
    void operator()(const char* name, const Value& value) {
        json_[name] = ValueOf(value);
    }

private:
    template <class Value>
    static Json ValueOf(const Value& value) {
        return value;
    }
    static Json ValueOf(const std::string& gbk) { return win32::Utf8FromGbk(gbk); }
    static Json ValueOf(const AcGePoint3d& point) {
        return Json::array({point.x, point.y, point.z});
    }
    static Json ValueOf(const AcGePoint3dArray& points) {
        Json list = Json::array();
        for (const AcGePoint3d& point : points) {
            list.push_back(ValueOf(point));
        }
        return list;
    }
    Json ValueOf(const AcDbHardPointerId& /*of the style*/) const {
        return win32::Utf8FromGbk(textStyle_);
    }

    Json& json_;
    const std::string& textStyle_;
};

void AddCurve(const AcDbEntity& entity, DrawingInfo& info) {
    const AcDbHandle handle = entity.objectId().handle();
    try {
        if (std::optional<lab::KeptCurve> curve = lab::ReadKeptCurve(entity, info.ofLayers)) {
            std::string style = StyleName(curve->fields.textStyleId);
            info.curves.push_back({handle, std::move(*curve), 0, std::move(style)});
        }
    } catch (const Failure& failure) {
        throw Failure(info.file + ": the curve " + HandleText(handle) + ": " + failure.what());
    }
}

Json CurveAsJson(const DrawingInfo::Curve& curve, bool ofLayers) {
    Json json = {{"handle", HandleText(curve.handle)}};
    CurveFields::ForEach(curve.kept.fields, JsonFields(json, curve.textStyle));
    json["measuredPoints"] = curve.measuredPoints;
    json["addedPoints"] = curve.kept.fields.curvePoints.length() - curve.measuredPoints;
    if (ofLayers) {
        CurveFields::ForEachLayerNumber(
            curve.kept.fields, [&](const char* name, Adesk::Int32 number) {
                json[name] = curve.kept.hasLayerNumbers ? Json(number) : Json();
            });
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
    std::vector<AcGePoint3d> dots;
    host::ForEachModelSpaceEntity(database, [&](AcDbEntity& entity) {
        ++info.entities[ClassName(entity)];
        AddCurve(entity, info);
        if (const std::optional<AcGePoint3d> center = DotCenter(entity)) {
            dots.push_back(*center);
        }
    });
    for (DrawingInfo::Curve& curve : info.curves) {
        curve.measuredPoints = CountMeasured(curve.kept.fields, dots);
    }
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
