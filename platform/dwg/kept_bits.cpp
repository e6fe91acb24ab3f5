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
    // Coming back to a part that was remembered on the way is going in a circle.
    AcDbObjectId remembered;
    std::size_t stepToRemember = 1;
    for (std::size_t step = 1; id != remembered; ++step) {
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
        if (step == stepToRemember) {
            remembered = id;
            stepToRemember *= 2;
        }
        id = DwgFields<AcDbKeptEntity>::links(*part).next;
    }
    return parts;
}
