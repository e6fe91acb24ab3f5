#include "platform/db/AcDbKeptObject.h"

#include "platform/db/AcDbKeptEntity.h"

ACRX_DEFINE_MEMBERS(AcDbKeptObject, AcDbObject, nullptr);
ACRX_DEFINE_MEMBERS(AcDbKeptEntity, AcDbEntity, nullptr);

std::unique_ptr<AcDbObject> AcDbKeptObject::clone() const {
    return std::make_unique<AcDbKeptObject>(*this);
}

std::unique_ptr<AcDbObject> AcDbKeptEntity::clone() const {
    return std::make_unique<AcDbKeptEntity>(*this);
}
