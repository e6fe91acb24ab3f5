#include "platform/db/AcDbObject.h"

#include <algorithm>

#include "platform/db/AcDbCopyFiler.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbDwgFiler.h"
#include "platform/db/AcDbStub.h"
#include "platform/rx/AcRxDynamicLinker.h"

ACRX_DEFINE_MEMBERS(AcDbObject, AcRxObject, nullptr);

AcDbObject::AcDbObject(const AcDbObject& other) : AcRxObject(other) {
    AcDbObject::copyCommonData(other);
}

void AcDbObject::copyCommonData(const AcDbObject& other) {
    fileData_.reset();
    if (other.fileData_ != nullptr) {
        fileData_ = std::make_unique<AcDbObjectFileData>(*other.fileData_);
        fileData_->extensionDictionary.setNull();
    }
}

AcDbObjectFileData& AcDbObject::fileData() {
    if (fileData_ == nullptr) {
        fileData_ = std::make_unique<AcDbObjectFileData>();
    }
    return *fileData_;
}

const AcDbObjectFileData& AcDbObject::fileData() const {
    static const AcDbObjectFileData none;
    return fileData_ != nullptr ? *fileData_ : none;
}

AcDbObjectId AcDbObject::objectId() const {
    return AcDbObjectId(stub_);
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
    handle = objectId().handle();
}

AcDbDatabase* AcDbObject::database() const {
    return objectId().database();
}

Acad::ErrorStatus AcDbObject::close() {
    if (stub_ == nullptr) {
        return Acad::eNotInDatabase;
    }
    if (stub_->writer) {
        stub_->writer = false;
        return Acad::eOk;
    }
    if (stub_->readers == 0) {
        return Acad::eNotOpenForRead;
    }
    --stub_->readers;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
    if (stub_ == nullptr) {
        return Acad::eNotInDatabase;
    }
    if (!isWriteEnabled()) {
        return Acad::eNotOpenForWrite;
    }
    assertWriteEnabled();
    stub_->erased = erasing;
    return Acad::eOk;
}

bool AcDbObject::isErased() const {
    return stub_ != nullptr && stub_->erased;
}

bool AcDbObject::isReadEnabled() const {
    return stub_ == nullptr || stub_->writer || stub_->readers > 0;
}

bool AcDbObject::isWriteEnabled() const {
    return stub_ == nullptr || stub_->writer;
}

void AcDbObject::assertReadEnabled() const {
    if (!isReadEnabled()) {
        acrx_abort("%s %llX is used without being open", isA()->name(),
                   static_cast<unsigned long long>(stub_->handle));
    }
}

void AcDbObject::assertWriteEnabled() {
    if (!isWriteEnabled()) {
        acrx_abort("%s %llX is changed without being open for write", isA()->name(),
                   static_cast<unsigned long long>(stub_->handle));
    }
    if (stub_ != nullptr) {
        stub_->database->noteChange(*this);
    }
    changed_ = true;
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor) {
    if (reactor.isNull()) {
        return Acad::eNullObjectId;
    }
    assertWriteEnabled();
    AcDbObjectIdArray& reactors = fileData().reactors;
    if (std::find(reactors.begin(), reactors.end(), reactor) != reactors.end()) {
        return Acad::eDuplicateKey;
    }
    reactors.append(reactor);
    return Acad::eOk;
}

void AcDbObject::setPersistentReactors(AcDbObjectIdArray reactors) {
    if (fileData_ != nullptr || !reactors.isEmpty()) {
        fileData().reactors = std::move(reactors);
    }
}

Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    return filer->filerStatus();
}

std::unique_ptr<AcDbObject> AcDbObject::clone() const {
    std::unique_ptr<AcRxObject> made(isA()->create());
    if (made == nullptr || made->isA() != isA()) {
        return nullptr;
    }
    std::unique_ptr<AcDbObject> copy(static_cast<AcDbObject*>(made.release()));
    copy->copyCommonData(*this);
    AcDbCopyFiler filer;
    dwgOutFields(&filer);
    copy->dwgInFields(&filer);
    return filer.filerStatus() == Acad::eOk ? std::move(copy) : nullptr;
}

void AcDbObject::modifyUndone(const AcDbObject* /*object*/) {}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased) {
    object = nullptr;
    AcDbStub* const stub = id.stub();
    if (stub == nullptr || stub->object == nullptr) {
        return Acad::eNullObjectId;
    }
    if (stub->erased && !openErased) {
        return Acad::eWasErased;
    }
    if (stub->writer) {
        return Acad::eWasOpenForWrite;
    }
    switch (mode) {
        case AcDb::kForRead:
        case AcDb::kForNotify:
            ++stub->readers;
            break;
        case AcDb::kForWrite:
            if (stub->readers > 0) {
                return Acad::eWasOpenForRead;
            }
            stub->writer = true;
            break;
        default:
            return Acad::eInvalidOpenState;
    }
    object = stub->object.get();
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    return acdbOpenObject(object, id, mode, openErased);
}
