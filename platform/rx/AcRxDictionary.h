#pragma once

#include <string>
#include <unordered_map>

#include "platform/rx/AcRxObject.h"

/// Runtime dictionary from names (case-sensitive) to objects. It does not own its entries.
class AcRxDictionary : public AcRxObject {
public:
    static AcRxClass* desc();
    AcRxClass* isA() const override;

    /// The entry of that name, or null.
    AcRxObject* at(const char* key) const;
    /// Enters `object`, replacing an entry of the same name, which is returned (null if none).
    AcRxObject* atPut(const char* key, AcRxObject* object);
    /// Takes the entry out and returns it; null when there is none.
    AcRxObject* remove(const char* key);

private:
    friend void deleteAcRxClass(AcRxClass*);
    std::unordered_map<std::string, AcRxObject*> entries_;
};

/// The runtime registry; "ClassDictionary" in it is the dictionary of class records.
AcRxDictionary* acrxSysRegistry();
