// Writes the small drawings that fuzzing starts from into a folder: an empty one, a sheet template,
// a sheet with curves and the template inserted, three with objects that only other programs make,
// and one with many objects.
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

#include "fuzz/foreign_entities.h"
#include "fuzz/many_kinds.h"
#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbSpline.h"
#include "platform/db/AcDbText.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"
#include "src/entity/CKFCurve.h"
#include "src/entity/append_entity.h"

namespace {

template <class T>
AcDbObjectId Add(AcDbDatabase& drawing, std::unique_ptr<T> entity) {
    const AcDbObjectId id = AppendOrDrop(&drawing, std::move(entity));
    if (id.isNull()) {
        throw std::runtime_error("an entity cannot be appended");
    }
    return id;
}

template <class T, class... Argument>
AcDbObjectId Make(AcDbDatabase& drawing, Argument... arguments) {
    return Add(drawing, std::make_unique<T>(arguments...));
}

AcDbObjectId MakeLinetype(const AcDbDatabase& drawing) {
    AcDbLinetypeTable* linetypes = nullptr;
    if (acdbOpenObject(linetypes, drawing.header().LTYPE_CONTROL_OBJECT, AcDb::kForWrite) !=
        Acad::eOk) {
        throw std::runtime_error("a drawing has no line types");
    }
    auto* const linetype = new AcDbLinetypeTableRecord;
    AcDbObjectId id;
    linetype->setName("DASHDOT");
    linetype->setDashLengths({0.01, -0.005, 0.0, -0.005});
    linetypes->add(id, linetype);
    linetype->close();
    linetypes->close();
    return id;
}

void MakeCurrentLayer(AcDbDatabase& drawing, const char* name,
                      AcDbObjectId linetype = AcDbObjectId::kNull) {
    AcDbLayerTable* layers = nullptr;
    if (drawing.getSymbolTable(layers, AcDb::kForWrite) != Acad::eOk) {
        throw std::runtime_error("a drawing has no layers");
    }
    auto* const layer = new AcDbLayerTableRecord;
    AcDbObjectId id;
    layer->setName(name);
    layer->setLinetypeObjectId(linetype);
    layers->add(id, layer);
    layer->close();
    layers->close();
    drawing.setClayer(id);
}

void DrawTemplate(AcDbDatabase& drawing) {
    MakeCurrentLayer(drawing, "FRAME", MakeLinetype(drawing));
    auto frame = std::make_unique<AcDbPolyline>();
    frame->addVertexAt(0, {0, 0}, 0.0, 0.0007, 0.0007);
    frame->addVertexAt(1, {0.42, 0}, 0.25);
    frame->addVertexAt(2, {0.42, 0.297});
    frame->setClosed(true);
    Add(drawing, std::move(frame));
    Make<AcDbLine>(drawing, AcGePoint3d(0, 0.1, 0), AcGePoint3d(0.42, 0.1, 0));
    Make<AcDbText>(drawing, AcGePoint3d(0.01, 0.01, 0), "颗粒分析"_gbk, AcDbObjectId::kNull, 0.003);
}

/// A circle filled by a hatch that belongs to it.
void DrawDot(AcDbDatabase& drawing, const AcGePoint3d& center) {
    const AcDbObjectId circle =
        Make<AcDbCircle>(drawing, center, AcGeVector3d(AcGeVector3d::kZAxis), 0.8);
    auto hatch = std::make_unique<AcDbHatch>();
    hatch->setAssociative(true);
    hatch->setPattern(AcDbHatch::kPreDefined, "SOLID");
    AcDbObjectIdArray boundary;
    boundary.append(circle);
    hatch->appendLoop(AcDbHatch::kDefault, boundary);
    Add(drawing, std::move(hatch));
}

void DrawCurve(AcDbDatabase& drawing, Adesk::Int16 chartType) {
    AcGePoint3dArray points;
    AcGePoint3dArray labels;
    for (int i = 0; i < 7; ++i) {
        points.append({20.0 * i, -12.5 * i - i % 2, 0});
        labels.append({20.0 * i, 10, 0});
    }
    Make<AcDbSpline>(drawing, points);
    auto curve = std::make_unique<CKFCurve>();
    curve->SetIdentity(chartType, 1, "2026-017", "ZK1", "3-1");
    const CurveGrid grid = CurveGrid::For({0, 0, 0}, 120, 80, 60);
    curve->SetGrid(grid.gridOrigin, grid.wideAxis, grid.decadeLength, grid.gridWidth,
                   grid.gridHeight, 2.5);
    curve->SetPoints(points, labels);
    curve->SetLayerKey("2", "1");
    Add(drawing, std::move(curve));
}

void DrawSheet(AcDbDatabase& drawing) {
    AcDbDatabase sheetTemplate;
    DrawTemplate(sheetTemplate);
    AcDbObjectId block;
    if (drawing.insert(block, "gltka3", &sheetTemplate) != Acad::eOk) {
        throw std::runtime_error("the template cannot be inserted");
    }
    MakeCurrentLayer(drawing, "ZZT_TC");
    auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(), block);
    reference->setScaleFactors({1000, 1000, 1000});
    Add(drawing, std::move(reference));
    DrawDot(drawing, {50, -40, 0});
    DrawCurve(drawing, 0);
    ChartMode = kLayerCharts;  // files the layer's numbers, too
    DrawCurve(drawing, 2);
}

/// An arc and a record of a type that is only kept, and objects of a class of another program.
void DrawUnknown(AcDbDatabase& drawing) {
    AcDbKeptFields fields;
    for (unsigned i = 0; i < 40; ++i) {
        fields.bits.push_back(static_cast<std::uint8_t>(37 * i));
    }
    fields.bitCount = 8 * fields.bits.size() - 3;
    const AcDbObjectId line = Make<AcDbLine>(drawing, AcGePoint3d(), AcGePoint3d(1, 0, 0));
    fields.references = {{5, line}, {4, drawing.clayer()}, {12, line}};
    Make<AcDbKeptEntity>(drawing, AcDbKeptClass{17, nullptr, "AcDbArc"}, fields);
    drawing.addObject(
        std::make_unique<AcDbKeptObject>(AcDbKeptClass{79, nullptr, "AcDbXrecord"}, fields),
        drawing.header().DICTIONARY_NAMED_OBJECTS);
    AcDbFileClass other;
    other.appName = "OTHER";
    other.className = "OtherEntity";
    other.dxfName = "OTHER_ENTITY";
    other.isEntity = true;
    Make<AcDbKeptEntity>(
        drawing, AcDbKeptClass{0, std::make_shared<const AcDbFileClass>(other), "OtherEntity"},
        fields);
}

/// More objects than one page of the object map tells of.
void DrawMany(AcDbDatabase& drawing) {
    for (int i = 0; i < 800; ++i) {
        Make<AcDbLine>(drawing, AcGePoint3d(0.1 * i, 0, 0), AcGePoint3d(0.3 * i, i, 0));
    }
}

void Save(AcDbDatabase& drawing, const std::string& path) {
    std::string error;
    if (!win32::ReplaceFileWhole(path, DwgFileWriter(drawing).write(), error)) {
        throw std::runtime_error(error);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    const struct {
        const char* name;
        void (*draw)(AcDbDatabase&);
    } seeds[] = {{"blank", [](AcDbDatabase&) {}},
                 {"template", DrawTemplate},
                 {"sheet", DrawSheet},
                 {"unknown", DrawUnknown},
                 {"foreign", DrawForeignEntities},
                 {"kinds", DrawManyKinds},
                 {"many", DrawMany}};
    try {
        CKFCurve::rxInit();
        for (const auto& seed : seeds) {
            AcDbDatabase drawing;
            seed.draw(drawing);
            Save(drawing, folder + "/" + seed.name + ".dwg");
        }
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
    return 0;
}
