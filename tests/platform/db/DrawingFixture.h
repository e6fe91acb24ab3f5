#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/db/AcDbDatabase.h"
#include "tests/platform/db/RecordingWorldDraw.h"

/// A new drawing with short ways to put something in it.
class DrawingFixture : public testing::Test {
protected:
    /// Appends to model space and closes; the entity stays reachable through the pointer.
    template <class T>
    T* append(std::unique_ptr<T> entity, const char* block = ACDB_MODEL_SPACE) {
        AcDbBlockTable* blocks = nullptr;
        EXPECT_EQ(database_.getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
        AcDbBlockTableRecord* record = nullptr;
        EXPECT_EQ(blocks->getAt(block, record, AcDb::kForWrite), Acad::eOk);
        blocks->close();
        T* const appended = entity.release();
        EXPECT_EQ(record->appendAcDbEntity(appended), Acad::eOk);
        record->close();
        appended->close();
        return appended;
    }

    AcDbObjectId addLayer(const char* name, Adesk::UInt16 colorIndex = 7, bool off = false) {
        auto* const layer = new AcDbLayerTableRecord;
        AcCmColor color;
        color.setColorIndex(colorIndex);
        layer->setName(name);
        layer->setColor(color);
        layer->setIsOff(off);
        return add<AcDbLayerTable>(layer);
    }

    AcDbObjectId addTextStyle(const char* name, const char* font, const char* bigFont) {
        auto* const style = new AcDbTextStyleTableRecord;
        style->setName(name);
        style->setFileName(font);
        style->setBigFontFileName(bigFont);
        return add<AcDbTextStyleTable>(style);
    }

    AcDbObjectId addBlock(const char* name) {
        auto* const block = new AcDbBlockTableRecord;
        block->setName(name);
        return add<AcDbBlockTable>(block);
    }

    /// What an object of the drawing draws.
    static std::vector<std::string> drawn(AcDbEntity* entity) {
        RecordingWorldDraw context;
        AcDbEntity* opened = nullptr;
        EXPECT_EQ(acdbOpenObject(opened, entity->objectId(), AcDb::kForRead), Acad::eOk);
        opened->worldDraw(&context);
        opened->close();
        return context.lines();
    }

    AcDbDatabase database_;

private:
    template <class Table>
    AcDbObjectId add(AcDbSymbolTableRecord* record) {
        Table* table = nullptr;
        EXPECT_EQ(database_.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        record->close();
        table->close();
        return id;
    }
};
