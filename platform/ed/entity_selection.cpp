#include "platform/ed/entity_selection.h"

#include <unordered_map>
#include <utility>

#include "platform/db/AcDbDatabase.h"

namespace {
ed::PickSource& Source() {
    static ed::PickSource source;
    return source;
}

/// Ids handed out as entity names: a name is only believed when it came from here.
std::unordered_map<long, AcDbObjectId>& PickedIds() {
    static std::unordered_map<long, AcDbObjectId> ids;
    return ids;
}

long NameOf(AcDbObjectId id) {
    return reinterpret_cast<long>(id.stub());
}
}  // namespace

int acedEntSel(const char* prompt, ads_name entityName, ads_point point) {
    AcDbObjectId id;
    if (!Source() || !Source()(prompt != nullptr ? prompt : "", id, point) || id.isNull()) {
        return RTERROR;
    }
    entityName[0] = NameOf(id);
    entityName[1] = static_cast<long>(id.handle());
    PickedIds()[entityName[0]] = id;
    return RTNORM;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entityName) {
    id.setNull();
    const auto found = PickedIds().find(entityName[0]);
    if (found == PickedIds().end()) {
        return Acad::eInvalidInput;
    }
    if (AcDbDatabase::objectOf(found->second) == nullptr) {
        return Acad::eNullObjectId;
    }
    id = found->second;
    return Acad::eOk;
}

ed::PickSource ed::SetPickSource(PickSource source) {
    return std::exchange(Source(), std::move(source));
}
