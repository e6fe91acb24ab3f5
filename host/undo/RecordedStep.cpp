#include "host/undo/RecordedStep.h"

#include <algorithm>
#include <utility>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/object_image.h"

namespace host {

namespace {
bool IsOpen(AcDbObjectId id) {
    return id.stub()->writer || id.stub()->readers > 0;
}
}  // namespace

RecordedStep::Variables::Variables(const AcDbDatabase& database)
    : seed(database.header().HANDSEED),
      layer(database.header().CLAYER),
      textStyle(database.header().TEXTSTYLE),
      version(database.header().VERSIONGUID),
      extentsLow(database.header().EXTMIN),
      extentsHigh(database.header().EXTMAX) {}

RecordedStep::RecordedStep(std::string command, AcDbDatabase& database)
    : command_(std::move(command)),
      database_(database),
      firstMade_(database.header().HANDSEED),
      variables_(database) {}

void RecordedStep::willChange(AcDbObject& object) {
    const AcDbObjectId id = object.objectId();
    if (id.handle() >= firstMade_ || changed_.contains(id)) {
        return;
    }
    if (const auto* list = object.growingList()) {
        return NoteContainer(object, list->size());
    }
    ObjectState& state = changed_[id];
    state.modified = object.isModified();
    state.erased = object.isErased();
    state.object = ImageOf(object);
    whole_ = whole_ && state.object != nullptr;
}

void RecordedStep::NoteContainer(AcDbObject& container, std::size_t listed) {
    ObjectState& state = changed_[container.objectId()];
    state.modified = container.isModified();
    state.erased = container.isErased();
    state.listed = listed;
    state.reactors = container.persistentReactors();
}

bool RecordedStep::Finish() {
    // What a container refused has opened it for a change, and no more.
    std::erase_if(changed_, [](const auto& entry) {
        AcDbObject* const object = AcDbDatabase::objectOf(entry.first);
        const auto* list = object->growingList();
        const ObjectState& before = entry.second;
        return list != nullptr && list->size() == before.listed &&
               object->isErased() == before.erased &&
               object->persistentReactors().length() == before.reactors.length();
    });
    return !changed_.empty() || database_.clayer() != variables_.layer ||
           database_.textstyle() != variables_.textStyle;
}

bool RecordedStep::IsInUse() const {
    return std::any_of(changed_.begin(), changed_.end(),
                       [](const auto& entry) { return IsOpen(entry.first); });
}

bool RecordedStep::CanComeBack() const {
    return database_.header().HANDSEED == firstMade_;
}

void RecordedStep::TakeBack() {
    FindMade();
    for (auto& [id, state] : changed_) {
        Exchange(id, state);
    }
    TakeOutMade();
    ExchangeVariables();
    takenBack_ = true;
}

void RecordedStep::BringBack() {
    PutInMade();
    for (auto& [id, state] : changed_) {
        Exchange(id, state);
    }
    ExchangeVariables();
    takenBack_ = false;
}

void RecordedStep::Exchange(AcDbObjectId id, ObjectState& state) {
    std::swap(id.stub()->erased, state.erased);
    const bool modified = AcDbDatabase::objectOf(id)->isModified();
    if (state.object != nullptr) {
        state.object = database_.exchangeObject(id, std::move(state.object), state.modified);
    } else {
        ExchangeContainer(*AcDbDatabase::objectOf(id), state);
        std::unique_ptr<AcDbObject> container = database_.exchangeObject(id, nullptr, false);
        database_.exchangeObject(id, std::move(container), state.modified);
    }
    state.modified = modified;
}

void RecordedStep::ExchangeContainer(AcDbObject& container, ObjectState& state) {
    std::vector<AcDbObjectId>& list = *container.growingList();
    if (takenBack_) {
        list.insert(list.end(), state.added.begin(), state.added.end());
        state.added.clear();
    } else {
        const auto first = list.begin() + static_cast<std::ptrdiff_t>(state.listed);
        state.added.assign(first, list.end());
        list.erase(first, list.end());
    }
    AcDbObjectIdArray reactors = container.persistentReactors();
    container.setPersistentReactors(std::move(state.reactors));
    state.reactors = std::move(reactors);
}

void RecordedStep::ExchangeVariables() {
    const Variables present(database_);
    HeaderVariables& header = database_.header();
    header.CLAYER = variables_.layer;
    header.TEXTSTYLE = variables_.textStyle;
    header.VERSIONGUID = variables_.version;
    header.EXTMIN = variables_.extentsLow;
    header.EXTMAX = variables_.extentsHigh;
    database_.rewindHandles(variables_.seed);
    variables_ = present;
}

// Their entries are the last ones. A file may have handles beyond all that are ever given. What
// came to a container without a command counts as added to it by this one.
void RecordedStep::FindMade() {
    made_.clear();
    const AcDbHandle end = database_.header().HANDSEED;
    auto& entries = database_.entries();
    for (auto stub = entries.rbegin(); stub != entries.rend() && stub->handle >= firstMade_;
         ++stub) {
        if (stub->object == nullptr || stub->handle >= end) {
            continue;
        }
        made_.emplace_back().id = AcDbObjectId(&*stub);
        const AcDbObjectId owner = stub->object->ownerId();
        AcDbObject* const container = AcDbDatabase::objectOf(owner);
        const auto* list = container != nullptr ? container->growingList() : nullptr;
        if (list != nullptr && owner.handle() < firstMade_ && !changed_.contains(owner)) {
            const auto isMade = [this](AcDbObjectId id) { return id.handle() >= firstMade_; };
            const auto first = std::find_if(list->begin(), list->end(), isMade);
            NoteContainer(*container, static_cast<std::size_t>(first - list->begin()));
        }
    }
}

void RecordedStep::TakeOutMade() {
    for (MadeObject& made : made_) {
        AcDbStub& stub = *made.id.stub();
        made.state.modified = stub.object->isModified();
        made.state.erased = std::exchange(stub.erased, false);
        made.state.object = database_.exchangeObject(made.id, nullptr, false);
    }
}

void RecordedStep::PutInMade() {
    for (MadeObject& made : made_) {
        made.id.stub()->erased = made.state.erased;
        database_.exchangeObject(made.id, std::move(made.state.object), made.state.modified);
    }
}

void RecordedStep::TellObjects() const {
    const auto tell = [](AcDbObjectId id) {
        AcDbObject* object = nullptr;
        if (acdbOpenObject(object, id, AcDb::kForWrite, true) == Acad::eOk) {
            object->modifyUndone(object);
            object->close();
        }
    };
    for (const auto& [id, state] : changed_) {
        tell(id);
    }
    for (const MadeObject& made : made_) {
        tell(made.id);
    }
}

}  // namespace host
