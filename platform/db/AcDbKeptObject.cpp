#include "platform/db/AcDbKeptObject.h"

ACRX_DEFINE_MEMBERS(AcDbKeptObject, AcDbObject, nullptr);

std::unique_ptr<AcDbObject> AcDbKeptObject::clone() const {
    return std::make_unique<AcDbKeptObject>(*this);
}
