#include "platform/db/AcDbObjectId.h"

#include "platform/db/AcDbObject.h"
#include "platform/db/AcDbStub.h"

AcDbHandle AcDbObjectId::handle() const {
    return stub_ != nullptr ? stub_->handle : 0;
}

AcDbDatabase* AcDbObjectId::database() const {
    return stub_ != nullptr ? stub_->database : nullptr;
}

bool AcDbObjectId::isErased() const {
    return stub_ != nullptr && stub_->erased;
}
