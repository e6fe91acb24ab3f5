// The fuzzer's target: reads a drawing from any bytes, draws it, inserts it into a new drawing as a
// sheet's template is, and writes both. What was written must read again, without anything missing.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "fuzz/DrawingMutator.h"
#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/DrawingDamage.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "src/entity/CKFCurve.h"
#include "src/entity/append_entity.h"

// The fuzzer's own changes of bytes.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

// A curve that cannot be read off says so in a box while its graphics are made.
mfc::ScriptedWindowSystem windows;

[[noreturn]] void Stop(const std::string& reason) {
    std::fprintf(stderr, "%s\n", reason.c_str());
    std::abort();
}

/// Files of this process's own, through which drawings go as they do for users.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "fuzz_drawing.XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            Stop("there is no folder for files");
        }
        path_ = name;
    }
    ~ScratchFolder() {
        std::error_code gone;
        std::filesystem::remove_all(path_, gone);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string File(const char* name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

const ScratchFolder& Folder() {
    static const ScratchFolder folder;
    return folder;
}

void WriteBytes(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size))) {
        Stop("the input cannot be put into a file");
    }
}

std::uintmax_t SizeOf(const std::string& path) {
    std::error_code missing;
    return std::filesystem::file_size(path, missing);
}

void Draw(AcDbDatabase& database) {
    static picture::FontLibrary fonts;
    (void)picture::PictureOf(database, fonts);
}

void WriteAndReadAgain(AcDbDatabase& database) {
    const std::string path = Folder().File("written.dwg");
    if (database.saveAs(path.c_str()) != Acad::eOk) {
        if (database.lastFileError().empty()) {
            Stop("a drawing that cannot be saved does not say why");
        }
        return;
    }
    AcDbDatabase again(false);
    if (again.readDwgFile(path.c_str()) != Acad::eOk) {
        Stop("what was written cannot be read: " + again.lastFileError());
    }
    if (!again.damage().empty()) {
        Stop("what was written is damaged: " + again.damage().reasons.front());
    }
}

/// What could be read of a damaged file is less than the file, so it must not take its place.
void SaveOverDamagedFile(AcDbDatabase& database, const std::string& path) {
    const std::uintmax_t size = SizeOf(path);
    if (!database.damage().empty() &&
        (database.saveAs(path.c_str()) == Acad::eOk || SizeOf(path) != size)) {
        Stop("a damaged file was replaced by what is left of it");
    }
}

void InsertIntoSheet(AcDbDatabase& drawing) {
    AcDbDatabase sheet;
    AcDbObjectId block;
    if (sheet.insert(block, "inserted", &drawing) != Acad::eOk) {
        Stop("a drawing that was read cannot be inserted");
    }
    auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(), block);
    reference->setScaleFactors({1000, 1000, 1000});
    if (AppendOrDrop(&sheet, std::move(reference)).isNull()) {
        Stop("an inserted drawing cannot be referred to");
    }
    WriteAndReadAgain(sheet);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    CKFCurve::rxInit();
    mfc::SetWindowSystem(&windows);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    windows.Reset();
    const std::string path = Folder().File("input.dwg");
    WriteBytes(path, data, size);
    AcDbDatabase database(false);
    if (database.readDwgFile(path.c_str()) != Acad::eOk) {
        if (database.lastFileError().empty()) {
            Stop("a drawing that cannot be read does not say why");
        }
        return 0;
    }
    SaveOverDamagedFile(database, path);
    Draw(database);
    InsertIntoSheet(database);
    WriteAndReadAgain(database);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
    DrawingMutator mutator(std::string(reinterpret_cast<const char*>(data), size), LLVMFuzzerMutate,
                           seed);
    mutator.mutate(most);
    const std::string& file = mutator.file();
    if (file.size() > most) {
        return size;
    }
    std::copy(file.begin(), file.end(), data);
    return file.size();
}
