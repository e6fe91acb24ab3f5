#include "platform/ed/AcEditor.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcEditorReactor, AcRxObject, nullptr);
ACRX_DEFINE_MEMBERS(AcEditor, AcRxObject, nullptr);

void AcEditorReactor::commandWillStart(const char* /*commandName*/) {}
void AcEditorReactor::commandEnded(const char* /*commandName*/) {}

namespace {
using Reactors = std::vector<AcEditorReactor*>;

bool Contains(const Reactors& reactors, const AcEditorReactor* reactor) {
    return std::find(reactors.begin(), reactors.end(), reactor) != reactors.end();
}

/// Walks a copy, since a reactor may remove itself or others while it is told.
template <class Tell>
void TellAll(const Reactors& reactors, const Tell& tell) {
    const Reactors toldNow(reactors.begin(), reactors.end());
    for (AcEditorReactor* reactor : toldNow) {
        if (Contains(reactors, reactor)) {
            tell(*reactor);
        }
    }
}
}  // namespace

void AcEditor::addReactor(AcEditorReactor* reactor) {
    if (reactor != nullptr && !Contains(reactors_, reactor)) {
        reactors_.push_back(reactor);
    }
}

void AcEditor::removeReactor(AcEditorReactor* reactor) {
    std::erase(reactors_, reactor);
}

void AcEditor::tellCommandWillStart(const char* commandName) const {
    TellAll(reactors_, [&](AcEditorReactor& reactor) { reactor.commandWillStart(commandName); });
}

void AcEditor::tellCommandEnded(const char* commandName) const {
    TellAll(reactors_, [&](AcEditorReactor& reactor) { reactor.commandEnded(commandName); });
}

AcEditor* acedEditorInstance() {
    static AcEditor editor;
    return &editor;
}
