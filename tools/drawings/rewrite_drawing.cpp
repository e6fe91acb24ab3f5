// Reads a drawing and writes it to another file, so that readers that are not ours can compare the
// two. Says what it found: one JSON object a line, {"file", "objects", "understood", "kept",
// "keptClasses": {class: n}}, kept being the objects of classes that nothing here decodes.
//
//   rewrite_drawing IN OUT            objects keep the bits they have in the file
//   rewrite_drawing --anew IN OUT     every object that is understood is filed again field by field

#include <cstdio>
#include <cstring>
#include <map>
#include <nlohmann/json.hpp>
#include <span>
#include <string>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbStub.h"
#include "platform/win32/windows_path.h"

namespace {

/// The name of an object's class when it is only kept; empty for what is understood.
std::string keptName(const AcDbObject& object) {
    if (object.isA() == AcDbKeptEntity::desc()) {
        return static_cast<const AcDbKeptEntity&>(object).keptClass().name;
    }
    return object.isA() == AcDbKeptObject::desc()
               ? static_cast<const AcDbKeptObject&>(object).keptClass().name
               : "";
}

nlohmann::ordered_json describe(const char* file, const AcDbDatabase& database) {
    std::map<std::string, int> classes;
    int objects = 0;
    int kept = 0;
    for (const AcDbStub& stub : database.entries()) {
        if (stub.object == nullptr) {
            continue;
        }
        ++objects;
        if (const std::string name = keptName(*stub.object); !name.empty()) {
            ++kept;
            ++classes[name];
        }
    }
    return {{"file", file},
            {"objects", objects},
            {"understood", objects - kept},
            {"kept", kept},
            {"keptClasses", classes}};
}

bool windowsPath(const char* path, std::string& result) {
    return win32::WindowsPath(path, result);
}

void touchAll(AcDbDatabase& database) {
    for (const AcDbStub& stub : database.entries()) {
        AcDbObject* object = nullptr;
        if (stub.object && keptName(*stub.object).empty() &&
            acdbOpenObject(object, stub.object->objectId(), AcDb::kForWrite) == Acad::eOk) {
            object->assertWriteEnabled();
            object->close();
        }
    }
}

int rewrite(bool anew, const char* from, const char* to) {
    std::string source;
    std::string target;
    if (!windowsPath(from, source) || !windowsPath(to, target)) {
        std::fprintf(stderr, "%s: not a path\n", from);
        return 1;
    }
    AcDbDatabase database(false);
    if (database.readDwgFile(source.c_str()) != Acad::eOk) {
        std::fprintf(stderr, "%s\n", database.lastFileError().c_str());
        return 1;
    }
    std::printf("%s\n", describe(from, database).dump().c_str());
    if (anew) {
        touchAll(database);
    }
    if (database.saveAs(target.c_str()) != Acad::eOk) {
        std::fprintf(stderr, "%s\n", database.lastFileError().c_str());
        return 1;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const bool anew = argc == 4 && std::strcmp(argv[1], "--anew") == 0;
    if (argc != 3 && !anew) {
        std::fprintf(stderr, "usage: rewrite_drawing [--anew] IN OUT\n");
        return 2;
    }
    return rewrite(anew, argv[argc - 2], argv[argc - 1]);
}
