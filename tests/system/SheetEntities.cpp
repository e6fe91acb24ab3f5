#include "tests/system/SheetEntities.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"
#include "tests/platform/db/Opened.h"

namespace {

std::string WindowsPathOf(const std::filesystem::path& path) {
    std::string result;
    EXPECT_TRUE(win32::WindowsPath(path.string(), result)) << path;
    return result;
}

std::unique_ptr<AcDbDatabase> Read(const std::filesystem::path& sheet) {
    auto database = std::make_unique<AcDbDatabase>(false);
    EXPECT_EQ(database->readDwgFile(WindowsPathOf(sheet).c_str()), Acad::eOk)
        << database->lastFileError();
    return database;
}

void ReadContent(const AcDbBlockReference& reference, SheetEntity& result);

void ReadShape(const AcDbEntity& entity, SheetEntity& result) {
    if (entity.isKindOf(AcDbLine::desc())) {
        const auto& line = static_cast<const AcDbLine&>(entity);
        result.kind = "LINE";
        result.points = {line.startPoint(), line.endPoint()};
    } else if (entity.isKindOf(AcDbText::desc())) {
        const auto& text = static_cast<const AcDbText&>(entity);
        result.kind = "TEXT";
        result.points = {text.position()};
        result.text = win32::Utf8FromGbk(text.textString());
        result.height = text.height();
    } else if (entity.isKindOf(AcDbPolyline::desc())) {
        const auto& polyline = static_cast<const AcDbPolyline&>(entity);
        result.kind = "LWPOLYLINE";
        for (unsigned i = 0; i < polyline.numVerts(); ++i) {
            const AcGePoint2d& point = polyline.vertexAt(i).point;
            result.points.emplace_back(point.x, point.y, 0.0);
        }
    } else if (entity.isKindOf(AcDbSpline::desc())) {
        const auto& spline = static_cast<const AcDbSpline&>(entity);
        result.kind = "SPLINE";
        for (int i = 0; i < spline.numFitPoints(); ++i) {
            result.points.push_back(spline.fitPointAt(i));
        }
    } else if (entity.isKindOf(AcDbCircle::desc())) {
        const auto& circle = static_cast<const AcDbCircle&>(entity);
        result.kind = "CIRCLE";
        result.points = {circle.center()};
        result.radius = circle.radius();
    } else if (entity.isKindOf(AcDbHatch::desc())) {
        const auto& hatch = static_cast<const AcDbHatch&>(entity);
        const auto& arc = std::get<AcDbHatch::CircularArcEdge>(hatch.loopAt(0).edges.at(0));
        result.kind = "HATCH";
        result.points = {AcGePoint3d(arc.center.x, arc.center.y, 0.0)};
        result.radius = arc.radius;
    } else if (entity.isKindOf(AcDbBlockReference::desc())) {
        result.kind = "INSERT";
        result.points = {static_cast<const AcDbBlockReference&>(entity).position()};
        ReadContent(static_cast<const AcDbBlockReference&>(entity), result);
    } else {
        result.kind = "CKFCURVE";
        EXPECT_TRUE(entity.isKindOf(AcDbKeptEntity::desc()));
    }
}

SheetEntity ReadEntity(const AcDbEntity& entity) {
    SheetEntity result;
    result.handle = entity.objectId().handle();
    result.layer =
        win32::Utf8FromGbk(Opened<AcDbLayerTableRecord>(entity.layerId(), AcDb::kForRead)->name());
    result.color = entity.colorIndex();
    ReadShape(entity, result);
    return result;
}

/// What stands on layer "0" of a block appears on the layer of the reference.
void ReadContent(const AcDbBlockReference& reference, SheetEntity& result) {
    const Opened<AcDbBlockTableRecord> block(reference.blockTableRecord(), AcDb::kForRead);
    for (const AcDbObjectId id : block->entityIds()) {
        SheetEntity part = ReadEntity(*Opened(id, AcDb::kForRead));
        for (AcGePoint3d& point : part.points) {
            point.transformBy(reference.blockTransform());
        }
        part.layer = part.layer == "0" ? result.layer : part.layer;
        result.content.push_back(std::move(part));
    }
}

}  // namespace

std::vector<SheetEntity> ReadSheet(const std::filesystem::path& sheet) {
    const auto database = Read(sheet);
    std::vector<SheetEntity> result;
    VisitModelSpace(*database,
                    [&](const AcDbEntity& entity) { result.push_back(ReadEntity(entity)); });
    return result;
}

std::vector<std::vector<std::uint8_t>> ReadCurveGraphics(const std::filesystem::path& sheet) {
    const auto database = Read(sheet);
    std::vector<std::vector<std::uint8_t>> result;
    VisitModelSpace(*database, [&](const AcDbEntity& entity) {
        if (entity.isKindOf(AcDbKeptEntity::desc())) {
            result.push_back(static_cast<const AcDbKeptEntity&>(entity).graphics());
        }
    });
    return result;
}

void CopyWithoutCurves(const std::filesystem::path& sheet, const std::filesystem::path& copy) {
    const auto database = Read(sheet);
    VisitModelSpace(
        *database,
        [](AcDbEntity& entity) {
            if (entity.isKindOf(AcDbKeptEntity::desc())) {
                EXPECT_EQ(entity.erase(), Acad::eOk);
            }
        },
        AcDb::kForWrite);
    ASSERT_EQ(database->saveAs(WindowsPathOf(copy).c_str()), Acad::eOk)
        << database->lastFileError();
}
