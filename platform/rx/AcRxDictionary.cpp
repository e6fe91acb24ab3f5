#include "platform/rx/AcRxDictionary.h"

#include "platform/rx/AcRxClass.h"

ACRX_DEFINE_MEMBERS(AcRxDictionary, AcRxObject, nullptr);

AcRxObject* AcRxDictionary::at(const char* key) const {
    const auto found = entries_.find(key);
    return found != entries_.end() ? found->second : nullptr;
}

AcRxObject* AcRxDictionary::atPut(const char* key, AcRxObject* object) {
    AcRxObject*& entry = entries_[key];
    AcRxObject* const previous = entry;
    entry = object;
    return previous;
}

AcRxObject* AcRxDictionary::remove(const char* key) {
    const auto found = entries_.find(key);
    if (found == entries_.end()) {
        return nullptr;
    }
    AcRxObject* const object = found->second;
    entries_.erase(found);
    return object;
}

AcRxDictionary* acrxSysRegistry() {
    // Made on first use, since classes register themselves while statics are still being made, and
    // never destroyed, since objects may ask for their class while statics are being destroyed.
    static AcRxDictionary* const registry = [] {
        auto* made = new AcRxDictionary;
        made->atPut("ClassDictionary", new AcRxDictionary);
        return made;
    }();
    return registry;
}
