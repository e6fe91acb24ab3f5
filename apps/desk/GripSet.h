#pragma once

#include <string>
#include <vector>

#include "host/picture/plane.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/ge/AcGePoint3d.h"

namespace desk {

/// The grips of the selected entities: which are hot, and where a drag has them. Nothing of the
/// drawing changes by it.
class GripSet {
public:
    struct Grip {
        AcDbObjectId entity;
        int index = 0;  ///< among the grips of its entity
        AcGePoint3d point;
        bool hot = false;
    };

    /// Takes the grips of these entities anew; none is hot and nothing is dragged afterwards.
    void Load(const std::vector<AcDbObjectId>& entities);
    const std::vector<Grip>& Grips() const { return grips_; }
    /// Index of the grip nearest to a point of the plane and no farther off than `reach`; -1 for
    /// none.
    int At(picture::Point point, double reach) const;

    /// Makes a grip hot, or a hot one cool again.
    void Toggle(int grip);
    void CoolAll();
    bool AnyHot() const;

    /// Begins to drag all hot grips by one of them, which becomes hot.
    void StartDrag(int grip);
    void DragTo(picture::Point point) { target_ = point; }
    void EndDrag() { base_ = -1; }
    bool IsDragging() const { return base_ >= 0; }
    /// Where the grip was that is dragged.
    picture::Point Base() const;
    picture::Point Offset() const { return target_ - Base(); }

    /// One smooth line for every entity with a hot grip: through its grips where the drag has them.
    std::vector<std::vector<AcGePoint3d>> RubberLines(double chordError) const;
    /// What brings the drag about, one for every entity with a hot grip: handle, indexes and
    /// offset as the command GRIP takes them.
    std::vector<std::string> MoveArguments() const;

private:
    /// Calls `visit` with the first grip and the end of every entity that has a hot one.
    template <class Visit>
    void ForEachHotEntity(Visit visit) const;

    std::vector<Grip> grips_;  ///< those of an entity together, by index
    int base_ = -1;            ///< the grip that is dragged, -1 for none
    picture::Point target_;
};

}  // namespace desk
