#pragma once

#include <vector>

#include "host/picture/DisplayList.h"

namespace desk {

/// Whether a module has brought the entity's class along, as the plug-in has its curve's.
bool IsCustomEntity(AcDbObjectId entity);

/// What a click at the cursor takes: of what is drawn within its reach custom entities first, as
/// curves lie among the lines of their grids, then the nearest. Clicks at one place take one entity
/// after the other.
class ClickTarget {
public:
    /// The cursor is at `point`, the reach of a click around it in drawing units.
    void Look(const picture::DisplayList& list, picture::Point point, double reach);
    /// The cursor has gone, or a click would take nothing.
    void LookAway() { *this = ClickTarget(); }

    /// What the next click takes; null for nothing.
    AcDbObjectId Offered() const { return offered_; }
    /// All that a click here may take, in that order.
    const std::vector<AcDbObjectId>& Within() const { return within_; }
    /// What the last click here took; null when there was none.
    AcDbObjectId TakenLast() const { return taken_.empty() ? AcDbObjectId() : taken_.back(); }
    /// A click: gives what was offered; the one after it is offered from now on.
    AcDbObjectId Take();

private:
    void OfferNext();

    picture::Point place_;
    std::vector<AcDbObjectId> within_;
    std::vector<AcDbObjectId> taken_;  ///< by clicks at this place
    AcDbObjectId offered_;
};

}  // namespace desk
