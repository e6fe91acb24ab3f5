#include "platform/db/AcRxEventReactor.h"

#include <algorithm>
#include <vector>

ACRX_DEFINE_MEMBERS(AcRxEventReactor, AcRxObject, nullptr);

namespace {

std::vector<AcRxEventReactor*>& reactors() {
    static std::vector<AcRxEventReactor*> registered;
    return registered;
}

bool isRegistered(const AcRxEventReactor* reactor) {
    return std::find(reactors().begin(), reactors().end(), reactor) != reactors().end();
}

template <class Notification>
void tellAll(const Notification& notification) {
    // A copy: what a reactor does may add or remove others.
    for (AcRxEventReactor* const reactor : std::vector(reactors())) {
        if (isRegistered(reactor)) {
            notification(*reactor);
        }
    }
}

}  // namespace

void AcRxEventReactor::saveComplete(AcDbDatabase* /*database*/, const char* /*path*/) {}
void AcRxEventReactor::abortSave(AcDbDatabase* /*database*/) {}
void AcRxEventReactor::abortRead(AcDbDatabase* /*database*/) {}
void AcRxEventReactor::insertIncomplete(AcDbDatabase* /*target*/, const std::string& /*finding*/) {}

void acrxAddEventReactor(AcRxEventReactor* reactor) {
    if (reactor != nullptr && !isRegistered(reactor)) {
        reactors().push_back(reactor);
    }
}

void acrxRemoveEventReactor(AcRxEventReactor* reactor) {
    std::erase(reactors(), reactor);
}

void acrxTellSaveComplete(AcDbDatabase* database, const char* path) {
    tellAll([&](AcRxEventReactor& reactor) { reactor.saveComplete(database, path); });
}

void acrxTellAbortSave(AcDbDatabase* database) {
    tellAll([&](AcRxEventReactor& reactor) { reactor.abortSave(database); });
}

void acrxTellAbortRead(AcDbDatabase* database) {
    tellAll([&](AcRxEventReactor& reactor) { reactor.abortRead(database); });
}

void acrxTellInsertIncomplete(AcDbDatabase* target, const std::string& finding) {
    tellAll([&](AcRxEventReactor& reactor) { reactor.insertIncomplete(target, finding); });
}
