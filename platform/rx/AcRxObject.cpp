#include "platform/rx/AcRxObject.h"

#include "platform/rx/AcRxClass.h"

ACRX_DEFINE_MEMBERS(AcRxObject, , nullptr);

bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
    const AcRxClass* own = isA();
    return own != nullptr && own->isDerivedFrom(aClass);
}
