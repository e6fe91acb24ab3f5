// Prints what the drawing database reads of a drawing's model space, for comparison with other
// readers:
//
//   list_entities DRAWING                       an array of JSON, an entity an object
//   list_entities --without-curves DRAWING COPY also writes a copy without the plug-in's curves
//
// Kinds are named as in drawing files, a curve is CKFCURVE. Splines have a course: points so close
// to each other that a line through them is the spline to the eye.
#include <cstdio>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/db/HeaderVariables.h"
#include "platform/ge/AcGeCubicSplineCurve3d.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace {

using Json = nlohmann::json;

Json Point(const AcGePoint3d& p) {
    return {p.x, p.y, p.z};
}

Json Course(const AcGePoint3dArray& fitPoints) {
    constexpr int kSteps = 2000;
    const AcGeCubicSplineCurve3d curve(fitPoints);
    Json points = Json::array();
    for (int i = 0; i <= kSteps; ++i) {
        points.push_back(Point(curve.evalPoint(curve.endParam() * i / kSteps)));
    }
    return points;
}

Json Described(AcDbObjectId id, const AcGeMatrix3d& map, const std::string& layerOfReference);

/// What stands on layer "0" of a block appears on the layer of the reference.
Json Content(const AcDbBlockReference& reference, const AcGeMatrix3d& map,
             const std::string& layer) {
    const auto& block = static_cast<const AcDbBlockTableRecord&>(
        *AcDbDatabase::objectOf(reference.blockTableRecord()));
    Json content = Json::array();
    for (const AcDbObjectId id : block.entityIds()) {
        content.push_back(Described(id, map * reference.blockTransform(), layer));
    }
    return content;
}

std::string Hexadecimal(const std::vector<std::uint8_t>& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

/// The kind, and what is particular to it.
Json Shape(const AcDbEntity& entity, const AcGeMatrix3d& map, const std::string& layer) {
    const auto at = [&](AcGePoint3d p) { return Point(p.transformBy(map)); };
    if (const auto* line = dynamic_cast<const AcDbLine*>(&entity)) {
        return {{"kind", "LINE"}, {"points", {at(line->startPoint()), at(line->endPoint())}}};
    }
    if (const auto* text = dynamic_cast<const AcDbText*>(&entity)) {
        return {{"kind", "TEXT"},
                {"points", Json::array({at(text->position())})},
                {"text", win32::Utf8FromGbk(text->textString())},
                {"height", text->height()}};
    }
    if (const auto* polyline = dynamic_cast<const AcDbPolyline*>(&entity)) {
        Json points = Json::array();
        for (unsigned i = 0; i < polyline->numVerts(); ++i) {
            const AcGePoint2d& p = polyline->vertexAt(i).point;
            points.push_back(at({p.x, p.y, 0.0}));
        }
        return {{"kind", "LWPOLYLINE"}, {"points", points}};
    }
    if (const auto* spline = dynamic_cast<const AcDbSpline*>(&entity)) {
        Json points = Json::array();
        AcGePoint3dArray places;
        for (int i = 0; i < spline->numFitPoints(); ++i) {
            places.append(spline->fitPointAt(i));
            points.push_back(at(spline->fitPointAt(i)));
        }
        return {{"kind", "SPLINE"}, {"points", points}, {"course", Course(places)}};
    }
    if (const auto* circle = dynamic_cast<const AcDbCircle*>(&entity)) {
        return {{"kind", "CIRCLE"},
                {"points", Json::array({at(circle->center())})},
                {"radius", circle->radius()}};
    }
    if (const auto* hatch = dynamic_cast<const AcDbHatch*>(&entity)) {
        const auto& arc = std::get<AcDbHatch::CircularArcEdge>(hatch->loopAt(0).edges.at(0));
        return {{"kind", "HATCH"},
                {"points", Json::array({at({arc.center.x, arc.center.y, 0.0})})},
                {"radius", arc.radius}};
    }
    if (const auto* reference = dynamic_cast<const AcDbBlockReference*>(&entity)) {
        return {{"kind", "INSERT"},
                {"points", Json::array({at(reference->position())})},
                {"content", Content(*reference, map, layer)}};
    }
    if (const auto* kept = dynamic_cast<const AcDbKeptEntity*>(&entity)) {
        return {{"kind", "CKFCURVE"}, {"graphics", Hexadecimal(kept->graphics())}};
    }
    return {{"kind", entity.isA()->name()}};
}

Json Described(AcDbObjectId id, const AcGeMatrix3d& map, const std::string& layerOfReference) {
    const auto& entity = static_cast<const AcDbEntity&>(*AcDbDatabase::objectOf(id));
    std::string layer = win32::Utf8FromGbk(
        static_cast<const AcDbLayerTableRecord&>(*AcDbDatabase::objectOf(entity.layerId())).name());
    layer = layer == "0" && !layerOfReference.empty() ? layerOfReference : layer;
    Json described = Shape(entity, map, layer);
    described["handle"] = id.handle();
    described["layer"] = layer;
    described["color"] = entity.colorIndex();
    return described;
}

std::vector<AcDbObjectId> ModelSpace(const AcDbDatabase& drawing) {
    return static_cast<const AcDbBlockTableRecord&>(
               *AcDbDatabase::objectOf(drawing.header().BLOCK_RECORD_MODEL_SPACE))
        .entityIds();
}

bool WriteWithoutCurves(AcDbDatabase& drawing, const std::string& path) {
    for (const AcDbObjectId id : ModelSpace(drawing)) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, id, AcDb::kForWrite) == Acad::eOk) {
            if (entity->isKindOf(AcDbKeptEntity::desc())) {
                entity->erase();
            }
            entity->close();
        }
    }
    return drawing.saveAs(path.c_str()) == Acad::eOk;
}

std::string WindowsPathOf(const char* path) {
    std::string windowsPath;
    win32::WindowsPath(path, windowsPath);
    return windowsPath;
}

}  // namespace

int main(int count, char** words) try {
    const bool copies = count == 4 && std::strcmp(words[1], "--without-curves") == 0;
    if (!copies && count != 2) {
        std::fprintf(stderr, "usage: list_entities [--without-curves] DRAWING [COPY]\n");
        return 2;
    }
    AcDbDatabase drawing(false);
    if (drawing.readDwgFile(WindowsPathOf(words[copies ? 2 : 1]).c_str()) != Acad::eOk) {
        std::fprintf(stderr, "%s\n", drawing.lastFileError().c_str());
        return 1;
    }
    Json entities = Json::array();
    for (const AcDbObjectId id : ModelSpace(drawing)) {
        entities.push_back(Described(id, AcGeMatrix3d(), ""));
    }
    std::puts(entities.dump().c_str());
    return copies && !WriteWithoutCurves(drawing, WindowsPathOf(words[3])) ? 1 : 0;
} catch (const std::exception& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
}
