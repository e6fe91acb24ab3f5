#include "platform/db/AcDbDatabase.h"

#include <algorithm>
#include <random>
#include <unordered_map>
#include <utility>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbChangeRecorder.h"
#include "platform/db/AcDbHostApplicationServices.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/DrawingDamage.h"
#include "platform/db/HeaderVariables.h"

namespace {

/// Handles that follow each other stay together. Where each run of them goes nobody knows before,
/// so that no file can have them all meet in one place.
struct HandleHash {
    std::size_t operator()(AcDbHandle handle) const noexcept {
        constexpr unsigned kRunBits = 12;
        static const std::uint64_t secret =
            std::uint64_t{std::random_device()()} << 32U | std::random_device()();
        std::uint64_t run = (handle >> kRunBits ^ secret) * 0x9E3779B97F4A7C15U;
        run = (run ^ run >> 32U) * 0xD6E8FEB86659FD93U;
        return (run ^ run >> 32U) + (handle & ((1U << kRunBits) - 1));
    }
};

}  // namespace

struct AcDbDatabase::Entries {
    std::deque<AcDbStub> stubs;  ///< a deque: ids point at its entries
    /// Of as many entries from the start; the rest is entered when a handle is next asked for.
    std::unordered_map<AcDbHandle, AcDbStub*, HandleHash> byHandle;
};

ACRX_DEFINE_MEMBERS(AcDbDatabase, AcRxObject, nullptr);

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool /*noDocument*/)
    : entries_(std::make_unique<Entries>()),
      header_(std::make_unique<HeaderVariables>()),
      damage_(std::make_unique<DrawingDamage>()) {
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
    return acdbOpenObject(table, header_->BLOCK_CONTROL_OBJECT, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, header_->LAYER_CONTROL_OBJECT, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, header_->STYLE_CONTROL_OBJECT, mode);
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
    return makeCurrent(header_->CLAYER, layer, AcDbLayerTableRecord::desc());
}

Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId style) {
    return makeCurrent(header_->TEXTSTYLE, style, AcDbTextStyleTableRecord::desc());
}

AcDbObjectId AcDbDatabase::clayer() const {
    return header_->CLAYER;
}

AcDbObjectId AcDbDatabase::textstyle() const {
    return header_->TEXTSTYLE;
}

AcDbObjectId AcDbDatabase::continuousLinetype() const {
    return header_->LTYPE_CONTINUOUS;
}

AcDbObjectId AcDbDatabase::byLayerLinetype() const {
    return header_->LTYPE_BYLAYER;
}

AcDbObjectId AcDbDatabase::byBlockLinetype() const {
    return header_->LTYPE_BYBLOCK;
}

void AcDbDatabase::setDamage(DrawingDamage damage) {
    *damage_ = std::move(damage);
}

void AcDbDatabase::clear() {
    entries_->stubs.clear();
    entries_->byHandle.clear();
    *header_ = {};
    *damage_ = {};
}

void AcDbDatabase::forgetHandles() {
    entries_->byHandle = {};
}

const std::deque<AcDbStub>& AcDbDatabase::entries() const {
    return entries_->stubs;
}

std::deque<AcDbStub>& AcDbDatabase::entries() {
    return entries_->stubs;
}

AcDbObject* AcDbDatabase::objectOf(AcDbObjectId id) {
    return id.isNull() ? nullptr : id.stub()->object.get();
}

AcDbStub* AcDbDatabase::find(AcDbHandle handle) const {
    auto& [stubs, byHandle] = *entries_;
    for (std::size_t i = byHandle.size(); i < stubs.size(); ++i) {
        byHandle.emplace(stubs[i].handle, &stubs[i]);
    }
    const auto found = byHandle.find(handle);
    return found != byHandle.end() ? found->second : nullptr;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, AcDbHandle handle) const {
    id = AcDbObjectId(find(handle));
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

AcDbObjectId AcDbDatabase::nextEntry() {
    if (header_->HANDSEED < rewoundFrom_) {
        return idOfHandle(header_->HANDSEED);
    }
    AcDbStub& stub = entries_->stubs.emplace_back();
    stub.database = this;
    stub.handle = header_->HANDSEED++;
    return AcDbObjectId(&stub);
}

AcDbObjectId AcDbDatabase::addObject(std::unique_ptr<AcDbObject> object, AcDbObjectId owner) {
    const AcDbObjectId id = nextEntry();
    placeObject(id, std::move(object));
    id.stub()->object->ownerId_ = owner;
    return id;
}

AcDbObjectId AcDbDatabase::idOfHandle(AcDbHandle handle) {
    if (handle == 0) {
        return {};
    }
    AcDbStub* stub = find(handle);
    if (stub == nullptr) {
        stub = &entries_->stubs.emplace_back();
        stub->database = this;
        stub->handle = handle;
    }
    // A handle is never given twice, not even one that only a reference to nothing has.
    if (handle < kHighestHandle) {
        header_->HANDSEED = std::max(header_->HANDSEED, handle + 1);
    }
    return AcDbObjectId(stub);
}

void AcDbDatabase::placeObject(AcDbObjectId id, std::unique_ptr<AcDbObject> object) {
    object->stub_ = id.stub();
    object->changed_ = false;
    id.stub()->object = std::move(object);
}

void AcDbDatabase::noteChange(AcDbObject& object) {
    if (recorder_ != nullptr) {
        recorder_->willChange(object);
    }
    modified_ = true;
}

std::unique_ptr<AcDbObject> AcDbDatabase::exchangeObject(AcDbObjectId id,
                                                         std::unique_ptr<AcDbObject> object,
                                                         bool modified) {
    std::unique_ptr<AcDbObject> before = std::move(id.stub()->object);
    if (before != nullptr) {
        before->stub_ = nullptr;
    }
    if (object != nullptr) {
        object->stub_ = id.stub();
        object->changed_ = modified;
    }
    id.stub()->object = std::move(object);
    return before;
}

void AcDbDatabase::rewindHandles(AcDbHandle seed) {
    rewoundFrom_ = std::max(rewoundFrom_, header_->HANDSEED);
    header_->HANDSEED = seed;
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}
