#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "host/undo/DrawingHistory.h"
#include "platform/ap/AcApDocManager.h"

namespace host {

/// The histories of the open drawings; each goes with its document.
class UndoHistories : private AcApDocManagerReactor {
public:
    UndoHistories() { acDocManager->addReactor(this); }
    ~UndoHistories() override { acDocManager->removeReactor(this); }
    UndoHistories(const UndoHistories&) = delete;
    UndoHistories& operator=(const UndoHistories&) = delete;

    DrawingHistory& Of(const AcApDocument& document);

    /// While it lives, what a command does to the drawings that are open already is recorded, in
    /// each as a step of its own. Around several commands it makes one step of them.
    class Recording {
    public:
        Recording(UndoHistories& histories, const std::string& command);
        ~Recording();
        Recording(const Recording&) = delete;
        Recording& operator=(const Recording&) = delete;

    private:
        UndoHistories& histories_;
    };

private:
    void documentToBeDestroyed(AcApDocument* document) override { histories_.erase(document); }

    std::unordered_map<const AcApDocument*, std::unique_ptr<DrawingHistory>> histories_;
    int recordings_ = 0;
};

/// What a step of that command (global name) is called in the language set, GBK: "grip" for GRIP,
/// the command's name where there is no other.
std::string StepTitle(const std::string& command);

}  // namespace host
