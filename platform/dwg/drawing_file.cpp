// Drawings from and to files.
#include <filesystem>
#include <map>
#include <new>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcRxEventReactor.h"
#include "platform/dwg/DwgBlockCopier.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace {

// The file for a message: as the file system has it, which is UTF-8.
std::string fault(const std::string& path, const std::string& reason) {
    return path + ": " + reason;
}

bool isSameFile(const std::string& path, const std::string& other) {
    std::error_code missing;
    return std::filesystem::equivalent(path, other, missing);
}

// A block with holes must not pass for the drawing it was made of.
void tellOfMissing(AcDbDatabase& target, const AcDbDatabase& source,
                   const std::map<std::string, std::size_t>& leftOut) {
    if (!source.damage().empty()) {
        acrxTellInsertIncomplete(&target,
                                 fault(source.damage().file,
                                       "the drawing is damaged; what is missing of it is missing "
                                       "wherever it is inserted"));
    }
    for (const auto& [className, count] : leftOut) {
        acrxTellInsertIncomplete(
            &target, fault(win32::FileSystemPath(source.getFilename()),
                           "cannot be inserted into another drawing and is left out: " + className +
                               " (" + std::to_string(count) + ")"));
    }
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::saveAs(const char* fileName) {
    return save(fileName, false);
}

Acad::ErrorStatus AcDbDatabase::saveToDisk(const char* fileName) {
    return save(fileName, true);
}

Acad::ErrorStatus AcDbDatabase::save(const char* fileName, bool toDisk) {
    if (fileName == nullptr || *fileName == '\0') {
        return Acad::eInvalidInput;
    }
    const std::string path = win32::FileSystemPath(fileName);
    std::string error;
    if (header_->BLOCK_CONTROL_OBJECT.isNull()) {
        error = fault(path, "the drawing is empty and cannot be saved");
    } else if (!damage_->empty() && isSameFile(path, damage_->file)) {
        error = fault(path,
                      "the file is damaged and holds more than could be read of it; save the "
                      "drawing under another name");
    } else {
        try {
            win32::ReplaceFileWhole(
                path, DwgFileWriter(*this).write(), error,
                toDisk ? win32::Durability::kOnDisk : win32::Durability::kWithSystem);
        } catch (const DwgFault& reason) {
            error = fault(path, reason.what());
        }
    }
    lastFileError_ = error;
    if (!error.empty()) {
        acrxTellAbortSave(this);
        return Acad::eFileAccessErr;
    }
    fileName_ = fileName;
    modified_ = false;
    acrxTellSaveComplete(this, fileName_.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const char* fileName, int /*shareMode*/) {
    if (fileName == nullptr || *fileName == '\0') {
        return Acad::eInvalidInput;
    }
    if (!entries().empty()) {
        return Acad::eNotApplicable;
    }
    const std::string path = win32::FileSystemPath(fileName);
    const Acad::ErrorStatus status = readFileAt(path);
    if (status != Acad::eOk) {
        clear();
        acrxTellAbortRead(this);
        return status;
    }
    fileName_ = fileName;
    modified_ = false;
    lastFileError_.clear();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::readFileAt(const std::string& path) {
    std::string content;
    bool missing = false;
    if (!win32::ReadFileWhole(path, content, lastFileError_, &missing)) {
        return missing ? Acad::eFileNotFound : Acad::eFileAccessErr;
    }
    try {
        DwgFileReader reader(*this, std::move(content));
        reader.read();
        remains_ = reader.takeRemains();
        *damage_ = reader.takeDamage();
        damage_->file = path;
        forgetHandles();
        return Acad::eOk;
    } catch (const DwgFault& reason) {
        lastFileError_ = fault(path, reason.what());
        return reason.status();
    } catch (const std::bad_alloc&) {
        lastFileError_ = fault(path, "there is not enough memory to read the drawing");
        return Acad::eFileInternalErr;
    }
}

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const char* blockName,
                                       AcDbDatabase* source, bool /*preserveSourceDatabase*/) {
    blockId.setNull();
    if (source == nullptr || objectOf(source->header().BLOCK_RECORD_MODEL_SPACE) == nullptr) {
        return Acad::eNoDatabase;
    }
    if (blockName == nullptr || *blockName == '\0' || source == this) {
        return Acad::eInvalidInput;
    }
    AcDbBlockTable* table = nullptr;
    const Acad::ErrorStatus status = getSymbolTable(table, AcDb::kForRead);
    if (status != Acad::eOk) {
        return status;
    }
    table->getAt(blockName, blockId);
    table->close();
    if (!blockId.isNull()) {
        return Acad::eOk;
    }
    DwgBlockCopier copier(*this, *source);
    const Acad::ErrorStatus copied = copier.copyModelSpace(blockName, blockId);
    tellOfMissing(*this, *source, copier.leftOut());
    return copied;
}
