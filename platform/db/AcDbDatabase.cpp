#include "platform/db/AcDbDatabase.h"

#include <algorithm>
#include <random>

#include "platform/db/AcDbHostApplicationServices.h"

ACRX_DEFINE_MEMBERS(AcDbDatabase, AcRxObject, nullptr);

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool /*noDocument*/) {
    if (buildDefaultDrawing) {
        this->buildDefaultDrawing();
    }
}

AcDbDatabase::~AcDbDatabase() {
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    if (services->workingDatabase() == this) {
        services->setWorkingDatabase(nullptr);
    }
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, header_.BLOCK_CONTROL_OBJECT, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, header_.LAYER_CONTROL_OBJECT, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, header_.STYLE_CONTROL_OBJECT, mode);
}

Acad::ErrorStatus AcDbDatabase::makeCurrent(AcDbObjectId& current, AcDbObjectId id,
                                            const AcRxClass* kind) {
    const AcDbObject* const object = objectOf(id);
    if (object == nullptr) {
        return Acad::eNullObjectId;
    }
    if (id.database() != this) {
        return Acad::eWrongDatabase;
    }
    if (!object->isKindOf(kind)) {
        return Acad::eNotApplicable;
    }
    if (id.isErased()) {
        return Acad::eWasErased;
    }
    current = id;
    modified_ = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
    return makeCurrent(header_.CLAYER, layer, AcDbLayerTableRecord::desc());
}

Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId style) {
    return makeCurrent(header_.TEXTSTYLE, style, AcDbTextStyleTableRecord::desc());
}

std::size_t AcDbDatabase::HandleHash::operator()(AcDbHandle handle) const noexcept {
    constexpr unsigned kRunBits = 12;
    static const std::uint64_t secret =
        std::uint64_t{std::random_device()()} << 32U | std::random_device()();
    std::uint64_t run = (handle >> kRunBits ^ secret) * 0x9E3779B97F4A7C15U;
    run = (run ^ run >> 32U) * 0xD6E8FEB86659FD93U;
    return (run ^ run >> 32U) + (handle & ((1U << kRunBits) - 1));
}

AcDbStub* AcDbDatabase::find(AcDbHandle handle) const {
    for (std::size_t i = byHandle_.size(); i < stubs_.size(); ++i) {
        byHandle_.emplace(stubs_[i].handle, &stubs_[i]);
    }
    const auto found = byHandle_.find(handle);
    return found != byHandle_.end() ? found->second : nullptr;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, AcDbHandle handle) const {
    id = AcDbObjectId(find(handle));
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

AcDbObjectId AcDbDatabase::addObject(std::unique_ptr<AcDbObject> object, AcDbObjectId owner) {
    AcDbStub& stub = stubs_.emplace_back();
    stub.database = this;
    stub.handle = header_.HANDSEED++;
    const AcDbObjectId id(&stub);
    placeObject(id, std::move(object));
    stub.object->ownerId_ = owner;
    return id;
}

AcDbObjectId AcDbDatabase::idOfHandle(AcDbHandle handle) {
    if (handle == 0) {
        return {};
    }
    AcDbStub* stub = find(handle);
    if (stub == nullptr) {
        stub = &stubs_.emplace_back();
        stub->database = this;
        stub->handle = handle;
        // A handle is never given twice, not even one that only a reference to nothing has.
        if (handle < kHighestHandle) {
            header_.HANDSEED = std::max(header_.HANDSEED, handle + 1);
        }
    }
    return AcDbObjectId(stub);
}

void AcDbDatabase::placeObject(AcDbObjectId id, std::unique_ptr<AcDbObject> object) {
    object->stub_ = id.stub();
    object->changed_ = false;
    id.stub()->object = std::move(object);
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}
