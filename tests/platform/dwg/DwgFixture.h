#pragma once

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/AcDbSymbolTable.h"
#include "platform/dwg/file_layout.h"
#include "platform/dwg/object_map.h"
#include "platform/win32/clock.h"
#include "tests/platform/db/DrawingFixture.h"
#include "tests/platform/win32/ScratchFolder.h"

/// A new drawing, a folder to save it in, and a date that stays.
class DwgFixture : public DrawingFixture {
protected:
    static constexpr std::time_t kNoonOf2024May31 = 1717156800;

    DwgFixture() {
        win32::SetClock([] { return kNoonOf2024May31; });
    }
    ~DwgFixture() override { win32::SetClock({}); }

    /// Saves under that name and gives the file's content.
    std::string save(AcDbDatabase& database, const std::string& name = "drawing.dwg") {
        EXPECT_EQ(database.saveAs(folder_.Windows(name).c_str()), Acad::eOk)
            << database.lastFileError();
        return folder_.Read(name);
    }
    std::string save() { return save(database_); }

    /// The drawing in the folder's file of that name.
    std::unique_ptr<AcDbDatabase> read(const std::string& name = "drawing.dwg") {
        auto database = std::make_unique<AcDbDatabase>(false);
        EXPECT_EQ(database->readDwgFile(folder_.Windows(name).c_str()), Acad::eOk)
            << database->lastFileError();
        return database;
    }
    std::unique_ptr<AcDbDatabase> readContent(const std::string& content) {
        folder_.Write("content.dwg", content);
        return read("content.dwg");
    }
    /// What reading that content answers.
    Acad::ErrorStatus statusOf(const std::string& content, std::string* error = nullptr) {
        folder_.Write("content.dwg", content);
        AcDbDatabase database(false);
        const Acad::ErrorStatus status =
            database.readDwgFile(folder_.Windows("content.dwg").c_str());
        EXPECT_TRUE(status == Acad::eOk || database.entries().empty());
        EXPECT_EQ(status == Acad::eOk, database.lastFileError().empty());
        if (error != nullptr) {
            *error = database.lastFileError();
        }
        return status;
    }

    /// The record of a block's name; null for none.
    static AcDbBlockTableRecord* block(AcDbDatabase& database, const char* name) {
        AcDbObjectId id;
        Opened<AcDbBlockTable>(database.header().BLOCK_CONTROL_OBJECT, AcDb::kForRead)
            ->getAt(name, id);
        return static_cast<AcDbBlockTableRecord*>(AcDbDatabase::objectOf(id));
    }
    static bool hasLayer(AcDbDatabase& database, const char* name) {
        return Opened<AcDbLayerTable>(database.header().LAYER_CONTROL_OBJECT, AcDb::kForRead)
            ->has(name);
    }

    /// The living entities of a block, all of class T.
    template <class T = AcDbEntity>
    static std::vector<T*> entities(AcDbDatabase& database, const char* name = ACDB_MODEL_SPACE) {
        std::vector<T*> found;
        for (const AcDbObjectId id : block(database, name)->entityIds()) {
            if (!id.isErased()) {
                found.push_back(static_cast<T*>(AcDbDatabase::objectOf(id)));
            }
        }
        return found;
    }

    static std::string nameOf(AcDbObjectId record) {
        const AcDbObject* object = AcDbDatabase::objectOf(record);
        return object == nullptr ? "none"
                                 : static_cast<const AcDbSymbolTableRecord*>(object)->name();
    }

    /// A block's entities as lines of text: class, handle, layer, and what is drawn.
    static std::vector<std::string> describe(AcDbDatabase& database,
                                             const char* name = ACDB_MODEL_SPACE) {
        std::vector<std::string> lines;
        for (AcDbEntity* entity : entities(database, name)) {
            lines.push_back(std::string(entity->isA()->name()) + " " +
                            std::to_string(entity->objectId().handle()) + " on " +
                            nameOf(entity->layerId()) + " like " + nameOf(entity->linetypeId()) +
                            " hears " + std::to_string(entity->persistentReactors().length()));
            for (const std::string& line : drawn(entity)) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    /// A dot as charts draw it: a circle filled by an associative hatch that hears of its changes.
    void addDot(const AcGePoint3d& center, double radius) {
        const AcDbObjectId circle =
            append(std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius))->objectId();
        auto hatch = std::make_unique<AcDbHatch>();
        hatch->setAssociative(true);
        hatch->setPattern(AcDbHatch::kPreDefined, "SOLID");
        hatch->appendLoop(AcDbHatch::kDefault, {circle});
        hatch->evaluateHatch(false);
        Opened(circle)->addPersistentReactor(append(std::move(hatch))->objectId());
    }

    /// Where a section of a file begins.
    static std::size_t sectionStart(const std::string& file, std::size_t number) {
        return dwg::LongAt(file, dwg::kLocatorsPosition + number * dwg::kLocatorSize + 1);
    }
    /// The bytes of a section of a file.
    static std::string section(const std::string& file, std::size_t number) {
        const std::size_t locator = dwg::kLocatorsPosition + number * dwg::kLocatorSize;
        EXPECT_EQ(file[locator], static_cast<char>(number));
        return file.substr(sectionStart(file, number), dwg::LongAt(file, locator + 5));
    }
    /// The content of every object of a file.
    static std::map<AcDbHandle, std::string> objects(const std::string& file) {
        std::map<AcDbHandle, std::string> found;
        for (const dwg::MapEntry& entry : dwg::ReadObjectMap(section(file, dwg::kObjectMap))) {
            const dwg::ObjectFrame frame = dwg::FrameAt(file, entry.position);
            found[entry.handle] = file.substr(frame.contentPosition, frame.contentSize);
        }
        return found;
    }

    ScratchFolder folder_;
};
