#include "host/undo/DrawingHistory.h"

#include <utility>

#include "platform/db/AcDbDatabase.h"

namespace host {

DrawingHistory::~DrawingHistory() {
    StopRecording();
}

void DrawingHistory::Begin(const std::string& command) {
    LookWhetherSaved();
    recording_ = std::make_unique<RecordedStep>(command, database_);
    database_.setRecorder(recording_.get());
}

void DrawingHistory::End() {
    database_.setRecorder(nullptr);
    if (recording_ != nullptr && recording_->Finish()) {
        Keep(std::move(recording_));
    }
    recording_.reset();
    LookWhetherSaved();
}

void DrawingHistory::Keep(std::unique_ptr<RecordedStep> step) {
    undone_.clear();
    const bool whole = step->IsWhole();
    done_.push_back({std::move(step), ++newest_});
    // Nothing can be taken back beyond a step that cannot be.
    while (done_.size() > kMostSteps || (!whole && !done_.empty())) {
        oldest_ = done_.front().after;
        done_.pop_front();
    }
}

void DrawingHistory::StopRecording() {
    database_.setRecorder(nullptr);
    recording_.reset();
}

/// Saves are seen by what they leave; so are changes that no command made.
void DrawingHistory::LookWhetherSaved() {
    if (!database_.isModified()) {
        saved_ = Present();
    } else if (saved_ == Present()) {
        saved_ = 0;
    }
}

/// An object that does not suit the present any more makes the drawing a changed one.
void DrawingHistory::Arrive(const RecordedStep& step) {
    database_.setModified(Present() != saved_);
    step.TellObjects();
    LookWhetherSaved();
}

DrawingHistory::Outcome DrawingHistory::Undo() {
    StopRecording();
    LookWhetherSaved();
    if (done_.empty()) {
        return Outcome::kNothingThere;
    }
    if (done_.back().step->IsInUse()) {
        return Outcome::kInUse;
    }
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    undone_.back().step->TakeBack();
    Arrive(*undone_.back().step);
    return Outcome::kDone;
}

DrawingHistory::Outcome DrawingHistory::Redo() {
    StopRecording();
    LookWhetherSaved();
    if (!undone_.empty() && !undone_.back().step->CanComeBack()) {
        undone_.clear();
    }
    if (undone_.empty()) {
        return Outcome::kNothingThere;
    }
    if (undone_.back().step->IsInUse()) {
        return Outcome::kInUse;
    }
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    done_.back().step->BringBack();
    Arrive(*done_.back().step);
    return Outcome::kDone;
}

}  // namespace host
