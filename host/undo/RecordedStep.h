#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/db/AcDbChangeRecorder.h"
#include "platform/db/AcDbObject.h"
#include "platform/ge/AcGePoint3d.h"

namespace host {

/// What one command changes in one drawing, recorded while it runs, and put back and forth
/// afterwards. It takes memory by the objects changed: a container counts with what was added.
///
/// Objects made meanwhile are known by their handles, which are those from the drawing's seed on:
/// also what a save adds to a new block goes and comes with it.
class RecordedStep : public AcDbChangeRecorder {
public:
    /// Records from the drawing's present state on, once it is the drawing's recorder.
    RecordedStep(std::string command, AcDbDatabase& database);

    void willChange(AcDbObject& object) override;
    /// Ends the recording. False when nothing was changed.
    bool Finish();
    /// False when an object of a module's class gave no copy of itself: the step cannot be moved.
    bool IsWhole() const { return whole_; }

    /// The command's global name.
    const std::string& Command() const { return command_; }
    /// Some of its objects is open, so that the step cannot be moved now.
    bool IsInUse() const;
    /// Puts the drawing into the state before the command; it must be in the one after it.
    void TakeBack();
    /// The other way round; the drawing must be in the state before, with nothing added since.
    void BringBack();
    /// False when objects were made since the step was taken back.
    bool CanComeBack() const;
    /// Tells the objects which it has put into another state.
    void TellObjects() const;

private:
    /// The other state of an object: that before the command, or after it once taken back.
    struct ObjectState {
        std::unique_ptr<AcDbObject> object;  ///< null for a container, which stays where it is
        bool modified = false;
        bool erased = false;
        std::size_t listed = 0;           ///< of a container: the ids listed before the command
        std::vector<AcDbObjectId> added;  ///< of one taken back: what it listed besides
        AcDbObjectIdArray reactors;       ///< of a container
    };
    struct MadeObject {
        AcDbObjectId id;
        ObjectState state;
    };
    /// Header variables that commands, or saves in between, change.
    struct Variables {
        explicit Variables(const AcDbDatabase& database);
        AcDbHandle seed = 0;
        AcDbObjectId layer;
        AcDbObjectId textStyle;
        std::string version;
        AcGePoint3d extentsLow;
        AcGePoint3d extentsHigh;
    };

    void Exchange(AcDbObjectId id, ObjectState& state);
    void ExchangeContainer(AcDbObject& container, ObjectState& state);
    void ExchangeVariables();
    void NoteContainer(AcDbObject& container, std::size_t listed);
    void FindMade();
    void TakeOutMade();
    void PutInMade();

    std::string command_;
    AcDbDatabase& database_;
    const AcDbHandle firstMade_;  ///< handles from here on are of objects made by the command
    Variables variables_;         ///< the other state's
    std::unordered_map<AcDbObjectId, ObjectState> changed_;
    std::vector<MadeObject> made_;  ///< known once taken back
    bool takenBack_ = false;
    bool whole_ = true;
};

}  // namespace host
