#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbSymbolTable.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/HeaderVariables.h"
#include "tests/platform/db/Opened.h"
#include "tests/platform/db/RecordingWorldDraw.h"

/// A new drawing with short ways to put something in it.
class DrawingFixture : public testing::Test {
protected:
    /// Appends to model space and closes; the entity stays reachable through the pointer.
    template <class T>
    T* append(std::unique_ptr<T> entity, const char* block = ACDB_MODEL_SPACE) {
        AcDbObjectId record;
        EXPECT_EQ(Opened<AcDbBlockTable>(database_.header().BLOCK_CONTROL_OBJECT, AcDb::kForRead)
                      ->getAt(block, record),
                  Acad::eOk);
        T* const appended = entity.release();
        EXPECT_EQ(Opened<AcDbBlockTableRecord>(record)->appendAcDbEntity(appended), Acad::eOk);
        appended->close();
        return appended;
    }
    AcDbLine* appendLine(const AcGePoint3d& start, const AcGePoint3d& end,
                         const char* block = ACDB_MODEL_SPACE) {
        return append(std::make_unique<AcDbLine>(start, end), block);
    }

    AcDbObjectId addLayer(const char* name, Adesk::UInt16 colorIndex = 7, bool off = false) {
        return addLayerTo(database_, name, colorIndex, off);
    }
    static AcDbObjectId addLayerTo(AcDbDatabase& database, const char* name,
                                   Adesk::UInt16 colorIndex = 7, bool off = false) {
        auto* const layer = new AcDbLayerTableRecord;
        AcCmColor color;
        color.setColorIndex(colorIndex);
        layer->setName(name);
        layer->setColor(color);
        layer->setIsOff(off);
        return add<AcDbLayerTable>(database.header().LAYER_CONTROL_OBJECT, layer);
    }

    AcDbObjectId addTextStyle(const char* name, const char* font, const char* bigFont) {
        auto* const style = new AcDbTextStyleTableRecord;
        style->setName(name);
        style->setFileName(font);
        style->setBigFontFileName(bigFont);
        return add<AcDbTextStyleTable>(database_.header().STYLE_CONTROL_OBJECT, style);
    }

    AcDbObjectId addBlock(const char* name) {
        auto* const block = new AcDbBlockTableRecord;
        block->setName(name);
        return add<AcDbBlockTable>(database_.header().BLOCK_CONTROL_OBJECT, block);
    }

    /// What an object of the drawing draws.
    static std::vector<std::string> drawn(AcDbEntity* entity) {
        RecordingWorldDraw context;
        Opened(entity->objectId(), AcDb::kForRead)->worldDraw(&context);
        return context.lines();
    }

    AcDbDatabase database_;

private:
    template <class Table>
    static AcDbObjectId add(AcDbObjectId table, AcDbSymbolTableRecord* record) {
        AcDbObjectId id;
        EXPECT_EQ(Opened<Table>(table)->add(id, record), Acad::eOk);
        record->close();
        return id;
    }
};
