// The fuzzer's target: reads a drawing from any bytes, draws it, inserts it into a new drawing as a
// sheet's template is, and writes both. What was written must read again, without anything missing.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "fuzz/DrawingMutator.h"
#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "platform/db/AcDbBlockReference.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/mfc/ScriptedWindowSystem.h"
#include "src/entity/CKFCurve.h"
#include "src/entity/append_entity.h"

// The fuzzer's own changes of bytes.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

// A curve that cannot be read off says so in a box while its graphics are made.
mfc::ScriptedWindowSystem windows;

/// What is wrong with the file; none when it was read. Damaged parts of it are the database's
/// damage().
std::optional<std::string> Read(AcDbDatabase& database, std::string file) {
    try {
        DwgFileReader reader(database, std::move(file));
        reader.read();
        database.setFileRemains(reader.takeRemains());
        database.setDamage(reader.takeDamage());
        return std::nullopt;
    } catch (const DwgFault& fault) {
        return fault.what();
    }
}

[[noreturn]] void Stop(const std::string& reason) {
    std::fprintf(stderr, "%s\n", reason.c_str());
    std::abort();
}

std::optional<std::string> Write(AcDbDatabase& database) {
    try {
        return DwgFileWriter(database).write();
    } catch (const DwgFault&) {
        return std::nullopt;
    }
}

void Draw(AcDbDatabase& database) {
    static picture::FontLibrary fonts;
    (void)picture::PictureOf(database, fonts);
}

void WriteAndReadAgain(AcDbDatabase& database) {
    const std::optional<std::string> written = Write(database);
    if (!written) {
        return;
    }
    AcDbDatabase again(false);
    if (const std::optional<std::string> fault = Read(again, *written)) {
        Stop("what was written cannot be read: " + *fault);
    }
    if (!again.damage().empty()) {
        Stop("what was written is damaged: " + again.damage().reasons.front());
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
    AcDbDatabase database(false);
    if (Read(database, std::string(reinterpret_cast<const char*>(data), size))) {
        return 0;
    }
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
