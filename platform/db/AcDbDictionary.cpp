#include "platform/db/AcDbDictionary.h"

#include <algorithm>

namespace {
AcRxObject* makeDictionary() {
    return new AcDbDictionary;
}
AcRxObject* makeDictionaryWithDefault() {
    return new AcDbDictionaryWithDefault;
}

template <class Entries>
auto findEntry(Entries& entries, const char* name) {
    return std::find_if(entries.begin(), entries.end(),
                        [name](const AcDbDictionary::Entry& entry) { return entry.first == name; });
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, makeDictionary);
ACRX_DEFINE_MEMBERS(AcDbDictionaryWithDefault, AcDbDictionary, makeDictionaryWithDefault);

Acad::ErrorStatus AcDbDictionary::getAt(const char* name, AcDbObjectId& id) const {
    assertReadEnabled();
    const auto found = findEntry(entries_, name);
    id = found == entries_.end() || found->second.isErased() ? AcDbObjectId::kNull : found->second;
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const char* name, AcDbObjectId id) {
    assertWriteEnabled();
    if (name == nullptr || *name == '\0') {
        return Acad::eInvalidInput;
    }
    const auto found = findEntry(entries_, name);
    if (found != entries_.end()) {
        found->second = id;
    } else {
        entries_.emplace_back(name, id);
    }
    return Acad::eOk;
}
