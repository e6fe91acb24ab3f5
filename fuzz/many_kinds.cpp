#include "fuzz/many_kinds.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbKeptObject.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbText.h"
#include "platform/db/drawing_support_classes.h"
#include "src/entity/append_entity.h"
#include "tests/platform/db/Opened.h"
#include "tests/platform/dwg/KeptEntities.h"

namespace {

template <class Record>
AcDbObjectId AddRecord(AcDbObjectId tableId, const char* name) {
    auto* const record = new Record;
    AcDbObjectId id;
    record->setName(name);
    if (Opened<AcDbSymbolTable>(tableId)->add(id, record) != Acad::eOk) {
        throw std::runtime_error(std::string("no record ") + name);
    }
    record->close();
    return id;
}

void AppendToBlock(AcDbObjectId block, std::unique_ptr<AcDbEntity> entity) {
    const Opened<AcDbBlockTableRecord> record(block);
    if (record->appendAcDbEntity(entity.get()) != Acad::eOk) {
        throw std::runtime_error("an entity cannot be appended");
    }
    entity.release()->close();
}

AcDbKeptFields SomeFields(std::vector<AcDbKeptReference> references) {
    AcDbKeptFields fields;
    for (unsigned i = 0; i < 24; ++i) {
        fields.bits.push_back(static_cast<std::uint8_t>(41 * i));
    }
    fields.bitCount = 8 * fields.bits.size() - 5;
    fields.references = std::move(references);
    return fields;
}

AcDbObjectId AddObject(AcDbDatabase& drawing, AcDbObjectId owner, std::uint16_t type,
                       std::vector<AcDbKeptReference> references) {
    return drawing.addObject(std::make_unique<AcDbKeptObject>(AcDbKeptClass{type, nullptr, "kept"},
                                                              SomeFields(std::move(references))),
                             owner);
}

void AddRecords(const HeaderVariables& header) {
    AddRecord<AcDbUCSTableRecord>(header.UCS_CONTROL_OBJECT, "SITE");
    AddRecord<AcDbViewTableRecord>(header.VIEW_CONTROL_OBJECT, "WHOLE");
    AddRecord<AcDbViewportTableRecord>(header.VPORT_CONTROL_OBJECT, "PLAN");
    AddRecord<AcDbVXTableRecord>(header.VX_CONTROL_OBJECT, "SHEET");
    AddRecord<AcDbRegAppTableRecord>(header.APPID_CONTROL_OBJECT, "LABORATORY");
    AddRecord<AcDbDimStyleTableRecord>(header.DIMSTYLE_CONTROL_OBJECT, "THIN");
    Opened<AcDbLinetypeTableRecord>(
        AddRecord<AcDbLinetypeTableRecord>(header.LTYPE_CONTROL_OBJECT, "HIDDEN"))
        ->setDashLengths({2.0, -1.0});
}

/// Three blocks, one within the other, and a reference to the outermost.
AcDbObjectId AddBlocks(AcDbDatabase& drawing) {
    const AcDbObjectId blocks = drawing.header().BLOCK_CONTROL_OBJECT;
    AcDbObjectId inner = AddRecord<AcDbBlockTableRecord>(blocks, "*D1");
    AppendToBlock(inner, std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(1, 0, 0)));
    for (const char* name : {"SYMBOL", "LEGEND"}) {
        const AcDbObjectId outer = AddRecord<AcDbBlockTableRecord>(blocks, name);
        AppendToBlock(outer, std::make_unique<AcDbBlockReference>(AcGePoint3d(1, 1, 0), inner));
        AppendToBlock(outer,
                      std::make_unique<AcDbText>(AcGePoint3d(), name, drawing.textstyle(), 2.0));
        inner = outer;
    }
    AppendOrDrop(&drawing, std::make_unique<AcDbBlockReference>(AcGePoint3d(5, 5, 0), inner));
    return inner;
}

/// Values of an application, an extension dictionary with a record, and who hears of changes.
void Attach(AcDbDatabase& drawing, AcDbObjectId entity, AcDbObjectId listener) {
    DwgBitWriter values;
    values.bitShort(6);
    values.handle(5, drawing.header().APPID_CONTROL_OBJECT.handle());
    values.bytes(std::vector<std::uint8_t>{0, 3, 0, 'Z', 'K', '1'});
    values.bitShort(0);
    const AcDbObjectId dictionary = drawing.addObject(std::make_unique<AcDbDictionary>(), entity);
    Opened<AcDbDictionary>(dictionary)->setAt("NOTE", AddObject(drawing, dictionary, 79, {}));
    const Opened object(entity);
    object->addPersistentReactor(listener);
    AcDbObjectFileData& data = object->fileData();
    data.extendedDataBits = values.bitPosition();
    data.extendedData.assign(values.view().begin(), values.view().end());
    data.extensionDictionary = dictionary;
}

}  // namespace

void DrawManyKinds(AcDbDatabase& drawing) {
    const HeaderVariables& header = drawing.header();
    AddRecords(header);
    const AcDbObjectId block = AddBlocks(drawing);
    const AcDbObjectId circle = AppendOrDrop(
        &drawing, std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, 3.0));
    const AcDbObjectId group = AddObject(drawing, header.DICTIONARY_ACAD_GROUP, 72, {{5, circle}});
    Opened<AcDbDictionary>(header.DICTIONARY_ACAD_GROUP)->setAt("PAIR", group);
    Attach(drawing, circle, group);
    for (const std::uint16_t type : {79, 81, 499}) {
        AddObject(drawing, header.DICTIONARY_NAMED_OBJECTS, type, {{4, group}, {3, circle}});
    }
    // Meshes and their vertices, bodies, rays, shapes, viewports, embedded objects, tolerances.
    for (const std::uint16_t type : {12, 13, 14, 21, 23, 24, 25, 26, 29, 30, 32, 33,
                                     34, 37, 38, 39, 40, 41, 43, 46, 47, 74, 498}) {
        AppendOrDrop(&drawing,
                     std::make_unique<AcDbKeptEntity>(
                         AcDbKeptClass{type, nullptr, "kept"},
                         SomeFields({{5, header.DIMSTYLE}, {5, block}, {4, circle}, {12, group}})));
    }
}
