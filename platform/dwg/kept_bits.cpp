#include "platform/dwg/kept_bits.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/dwg/codec/kept_fields.h"

AcDbObjectId ReferenceAt(const AcDbKeptEntity& entity, std::size_t index) {
    const auto& references = entity.keptFields().references;
    return index < references.size() ? references[index].id : AcDbObjectId::kNull;
}

std::vector<AcDbKeptEntity*> PartsOf(const AcDbKeptEntity& entity, std::size_t first) {
    std::vector<AcDbKeptEntity*> parts;
    const AcDbObjectId last = ReferenceAt(entity, first + 1);
    AcDbObjectId id = ReferenceAt(entity, first);
    const std::size_t most = entity.database() == nullptr ? 0 : entity.database()->entries().size();
    for (std::size_t steps = 0; steps < most; ++steps) {
        AcDbObject* const object = AcDbDatabase::objectOf(id);
        if (object == nullptr || object->isA() != AcDbKeptEntity::desc()) {
            break;
        }
        auto* const part = static_cast<AcDbKeptEntity*>(object);
        if (part->ownerId() != entity.objectId()) {
            break;
        }
        if (!id.isErased()) {
            parts.push_back(part);
        }
        if (id == last) {
            break;
        }
        id = DwgFields<AcDbKeptEntity>::links(*part).next;
    }
    return parts;
}
