#include "apps/desk/ClickTarget.h"

#include <algorithm>
#include <cmath>

#include "host/picture/shape_hits.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbObject.h"

namespace desk {

namespace {
constexpr double kSamePlace = 0.5;  ///< of the reach, for an unsteady hand
}

bool IsCustomEntity(AcDbObjectId entity) {
    const AcDbObject* const object = AcDbDatabase::objectOf(entity);
    return object != nullptr && object->isA()->appName() != nullptr;
}

void ClickTarget::Look(const picture::DisplayList& list, picture::Point point, double reach) {
    const picture::Point way = point - place_;
    if (taken_.empty() || std::hypot(way.x, way.y) > kSamePlace * reach) {
        taken_.clear();
        place_ = point;
    }
    within_.clear();
    for (const picture::Hit& hit : picture::EntitiesAt(list, place_, reach)) {
        within_.push_back(hit.entity);
    }
    std::stable_partition(within_.begin(), within_.end(), IsCustomEntity);
    OfferNext();
}

AcDbObjectId ClickTarget::Take() {
    const AcDbObjectId taken = offered_;
    if (std::find(taken_.begin(), taken_.end(), taken) != taken_.end()) {  // once around
        taken_.clear();
    }
    taken_.push_back(taken);
    OfferNext();
    return taken;
}

void ClickTarget::OfferNext() {
    const auto next = std::find_if(within_.begin(), within_.end(), [this](AcDbObjectId id) {
        return std::find(taken_.begin(), taken_.end(), id) == taken_.end();
    });
    offered_ = next != within_.end() ? *next : within_.empty() ? AcDbObjectId() : within_.front();
}

}  // namespace desk
