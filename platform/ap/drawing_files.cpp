#include <filesystem>

#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/DrawingDamage.h"
#include "platform/ed/command_line.h"
#include "platform/win32/code_page.h"
#include "platform/win32/gbk_case.h"
#include "platform/win32/windows_path.h"

namespace {
constexpr const char* kExtension = ".dwg";

bool HasDrawingExtension(const std::string& path) {
    constexpr std::size_t kLength = 4;
    return path.size() > kLength &&
           win32::EqualNoCase(path.substr(path.size() - kLength), kExtension);
}

/// Drawings may be named without their extension. Names have points of their own (a borehole
/// "ZK3.5"), so only the extension itself counts as one.
std::string WithExtension(const std::string& path) {
    return HasDrawingExtension(path) ? path : path + kExtension;
}

/// The drawing of a file, alone in memory; null, with the reason on the command line, when it
/// cannot be read. What was damaged and is missing is told there, too.
std::unique_ptr<AcDbDatabase> ReadDrawing(const std::string& path) {
    auto database = std::make_unique<AcDbDatabase>(false, true);
    if (database->readDwgFile(path.c_str()) != Acad::eOk) {
        acutPrintf("\n%s", win32::GbkFromUtf8(database->lastFileError()).c_str());
        return nullptr;
    }
    for (const std::string& line : database->damage().report()) {
        acutPrintf("\n%s", win32::GbkFromUtf8(line).c_str());
    }
    return database;
}

bool IsFileOf(const AcApDocument& document, const std::string& path) {
    std::error_code missing;
    return !document.isUntitled() &&
           std::filesystem::equivalent(win32::FileSystemPath(document.fileName()),
                                       win32::FileSystemPath(path), missing);
}
}  // namespace

AcApDocument* AcApDocManager::documentOfFile(const std::string& path) const {
    for (const auto& document : documents_) {
        if (IsFileOf(*document, path)) {
            return document.get();
        }
    }
    return nullptr;
}

void AcApDocManager::adoptFile(std::unique_ptr<AcDbDatabase> database, const std::string& path) {
    AcApDocument& document = adopt(std::move(database));
    document.setFileName(path.c_str());
    document.setUntitled(false);
    document.noteFile();
}

Acad::ErrorStatus AcApDocManager::appContextOpenDocument(const char* path) {
    if (!isApplicationContext() || path == nullptr) {
        return Acad::eInvalidInput;
    }
    const std::string file = WithExtension(path);
    if (AcApDocument* open = documentOfFile(file)) {
        makeCurrent(open);
        return Acad::eOk;
    }
    std::unique_ptr<AcDbDatabase> database = ReadDrawing(file);
    if (database == nullptr) {
        return Acad::eDrawingNotOpened;
    }
    adoptFile(std::move(database), file);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::saveDocument(AcApDocument* document, const char* path) {
    if (!owns(document)) {
        return Acad::eNoDocument;
    }
    if (path == nullptr ? document->isUntitled() : *path == '\0') {
        return Acad::eInvalidInput;
    }
    const std::string file = path != nullptr ? WithExtension(path) : document->fileName();
    const Acad::ErrorStatus status = document->database()->saveToDisk(file.c_str());
    if (status == Acad::eOk) {
        document->setFileName(file.c_str());
        document->setUntitled(false);
        document->noteFile();
    }
    return status;
}

Acad::ErrorStatus acedSyncFileOpen(const char* path) {
    if (path == nullptr) {
        return Acad::eInvalidInput;
    }
    AcApDocManager& manager = *acDocManager;
    AcApDocument* const replaced = manager.curDocument();
    // Before the file is read, which may be the one that the changes are saved to.
    if (replaced != nullptr && replaced->database()->isModified() && manager.mayLeave_ &&
        !manager.mayLeave_(*replaced)) {
        return Acad::eDrawingNotOpened;
    }
    const std::string file = WithExtension(path);
    std::unique_ptr<AcDbDatabase> database = ReadDrawing(file);
    if (database == nullptr) {
        return Acad::eDrawingNotOpened;
    }
    manager.adoptFile(std::move(database), file);
    if (replaced != nullptr) {
        manager.drop(replaced);
    }
    return Acad::eOk;
}
