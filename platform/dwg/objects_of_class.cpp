#include "platform/dwg/objects_of_class.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/win32/file_replace.h"

std::vector<AcDbObjectId> dwg::ReadObjectsOfClass(AcDbDatabase& database, const std::string& path,
                                                  std::string_view className) {
    std::string content;
    std::string fault;
    if (!win32::ReadFileWhole(path, content, fault)) {
        return {};
    }
    try {
        DwgFileReader(database, std::move(content)).readObjectsOf(className);
    } catch (const DwgFault&) {
        return {};
    }
    std::vector<AcDbObjectId> ids;
    for (const AcDbStub& stub : database.entries()) {
        if (stub.object != nullptr &&
            stub.object->ownerId() == database.header().BLOCK_RECORD_MODEL_SPACE) {
            ids.push_back(stub.object->objectId());
        }
    }
    return ids;
}
