#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "host/undo/RecordedStep.h"

namespace host {

/// The steps of one drawing that can be taken back, and those that were. A command that changes
/// nothing in the drawing is none.
///
/// It also knows in which of its states the drawing was saved: back in that state the drawing is
/// not changed any more.
class DrawingHistory {
public:
    /// The oldest step beyond so many is forgotten.
    static constexpr std::size_t kMostSteps = 1000;

    /// The drawing must outlive its history.
    explicit DrawingHistory(AcDbDatabase& database) : database_(database) {}
    ~DrawingHistory();
    DrawingHistory(const DrawingHistory&) = delete;
    DrawingHistory& operator=(const DrawingHistory&) = delete;

    /// Records what the drawing goes through from now on as the step of a command.
    void Begin(const std::string& command);
    /// Ends what was begun; without that it only looks whether the drawing was saved.
    void End();

    /// The command (global name) that would be taken back next; empty for none.
    std::string NextUndo() const { return done_.empty() ? "" : done_.back().step->Command(); }
    std::string NextRedo() const { return undone_.empty() ? "" : undone_.back().step->Command(); }

    enum class Outcome { kDone, kNothingThere, kInUse };
    /// Moves the drawing one step back or forth. What is being recorded is dropped.
    Outcome Undo();
    Outcome Redo();

private:
    using State = std::uint64_t;  ///< a number of its own for each state the drawing was ever in
    struct Entry {
        std::unique_ptr<RecordedStep> step;
        State after = 0;
    };

    State Present() const { return done_.empty() ? oldest_ : done_.back().after; }
    void Keep(std::unique_ptr<RecordedStep> step);
    void StopRecording();
    void LookWhetherSaved();
    void Arrive(const RecordedStep& step);

    AcDbDatabase& database_;
    std::unique_ptr<RecordedStep> recording_;
    std::deque<Entry> done_;
    std::deque<Entry> undone_;  ///< the next one last
    State oldest_ = 1;
    State newest_ = 1;
    State saved_ = 0;  ///< 0 for none that can be reached
};

}  // namespace host
