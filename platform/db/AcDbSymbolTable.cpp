#include "platform/db/AcDbSymbolTable.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"
#include "platform/win32/code_page.h"

ACRX_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject, nullptr);
ACRX_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject, nullptr);

namespace {

/// The name in capitals. A trail byte may look like a letter and is none.
std::string FoldedName(std::string_view name) {
    std::string folded(name);
    for (std::size_t pos = 0; pos < folded.size();) {
        const std::size_t length = win32::CharLength(folded, pos);
        char& c = folded[pos];
        if (length == 1 && c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
        pos += length;
    }
    return folded;
}

const AcDbSymbolTableRecord* RecordOf(AcDbObjectId id) {
    const AcDbObject* const object = AcDbDatabase::objectOf(id);
    return object != nullptr && object->isKindOf(AcDbSymbolTableRecord::desc())
               ? static_cast<const AcDbSymbolTableRecord*>(object)
               : nullptr;
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const char* name) {
    if (!objectId().isNull()) {
        return Acad::eAlreadyInDb;
    }
    if (name == nullptr || *name == '\0') {
        return Acad::eInvalidInput;
    }
    name_ = name;
    return Acad::eOk;
}

void AcDbSymbolTableRecord::takeDefaults(const AcDbDatabase& /*database*/) {}

void AcDbSymbolTable::bringIndexUpToDate() const {
    for (; indexed_ < records_.size(); ++indexed_) {
        const AcDbObjectId id = records_[indexed_];
        if (const AcDbSymbolTableRecord* const record = RecordOf(id)) {
            AcDbObjectId& entry = byFoldedName_[FoldedName(record->name())];
            if (entry.isNull() || entry.isErased()) {
                entry = id;
            }
        }
    }
}

AcDbObjectId AcDbSymbolTable::find(const char* name) const {
    if (name == nullptr) {
        return {};
    }
    bringIndexUpToDate();
    const auto found = byFoldedName_.find(FoldedName(name));
    return found != byFoldedName_.end() ? found->second : AcDbObjectId::kNull;
}

bool AcDbSymbolTable::has(const char* name) const {
    AcDbObjectId ignored;
    return getAt(name, ignored) == Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const char* name, AcDbObjectId& id, bool getErased) const {
    assertReadEnabled();
    id = find(name);
    if (id.isErased() && !getErased) {
        id.setNull();
    }
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    assertWriteEnabled();
    if (record == nullptr) {
        return Acad::eNullObjectPtr;
    }
    if (!record->objectId().isNull()) {
        return Acad::eAlreadyInDb;
    }
    if (*record->name() == '\0') {
        return Acad::eInvalidInput;
    }
    if (has(record->name())) {
        return Acad::eDuplicateRecordName;
    }
    AcDbDatabase* const owner = database();
    if (owner == nullptr) {
        return Acad::eNotInDatabase;
    }
    id = owner->addObject(std::unique_ptr<AcDbObject>(record), objectId());
    id.stub()->writer = true;
    records_.push_back(id);
    record->takeDefaults(*owner);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId ignored;
    return add(ignored, record);
}

// Whoever asks is going to change the list: names are looked up anew afterwards.
std::vector<AcDbObjectId>* AcDbSymbolTable::growingList() {
    byFoldedName_.clear();
    indexed_ = 0;
    return &records_;
}

std::unique_ptr<AcDbObject> AcDbSymbolTable::clone() const {
    return nullptr;
}
