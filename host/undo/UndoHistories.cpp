#include "host/undo/UndoHistories.h"

#include "host/phrase.h"

namespace host {

DrawingHistory& UndoHistories::Of(const AcApDocument& document) {
    std::unique_ptr<DrawingHistory>& history = histories_[&document];
    if (history == nullptr) {
        history = std::make_unique<DrawingHistory>(*document.database());
    }
    return *history;
}

UndoHistories::Recording::Recording(UndoHistories& histories, const std::string& command)
    : histories_(histories) {
    if (histories_.recordings_++ > 0) {
        return;
    }
    const std::unique_ptr<AcApDocumentIterator> documents(acDocManager->newAcApDocumentIterator());
    for (; !documents->done(); documents->step()) {
        histories_.Of(*documents->document()).Begin(command);
    }
}

UndoHistories::Recording::~Recording() {
    if (--histories_.recordings_ > 0) {
        return;
    }
    for (const auto& [document, history] : histories_.histories_) {
        history->End();
    }
}

std::string StepTitle(const std::string& command) {
    struct Title {
        const char* command;
        Phrase title;
    };
    static constexpr Title titles[] = {
        {"GRIP", "grip"},   {"MOVE", "move"},       {"COPY", "copy"},
        {"ERASE", "erase"}, {"MIRROR", "mirror"},   {"ROTATE", "rotate"},
        {"SCALE", "scale"}, {"EXPLODE", "explode"}, {"SGRDX", "store curve"},
    };
    for (const auto& [name, title] : titles) {
        if (command == name) {
            return title.Text();
        }
    }
    return command;
}

}  // namespace host
