#include "apps/desk/GripSet.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGeCubicSplineCurve3d.h"
#include "platform/win32/number_text.h"

namespace desk {

void GripSet::Load(const std::vector<AcDbObjectId>& entities) {
    grips_.clear();
    base_ = -1;
    for (const AcDbObjectId id : entities) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) {
            continue;
        }
        AcGePoint3dArray points;
        AcDbIntArray snapModes;
        AcDbIntArray geometryIds;
        entity->getGripPoints(points, snapModes, geometryIds);
        entity->close();
        for (int i = 0; i < points.length(); ++i) {
            grips_.push_back({id, i, points[i]});
        }
    }
}

int GripSet::At(picture::Point point, double reach) const {
    int found = -1;
    double nearest = reach;
    for (std::size_t i = 0; i < grips_.size(); ++i) {
        const AcGePoint3d& grip = grips_[i].point;
        const double distance = std::hypot(grip.x - point.x, grip.y - point.y);
        if (distance <= nearest) {
            nearest = distance;
            found = static_cast<int>(i);
        }
    }
    return found;
}

void GripSet::Toggle(int grip) {
    Grip& toggled = grips_.at(static_cast<std::size_t>(grip));
    toggled.hot = !toggled.hot;
}

void GripSet::CoolAll() {
    base_ = -1;
    for (Grip& grip : grips_) {
        grip.hot = false;
    }
}

bool GripSet::AnyHot() const {
    return std::any_of(grips_.begin(), grips_.end(), [](const Grip& grip) { return grip.hot; });
}

void GripSet::StartDrag(int grip) {
    grips_.at(static_cast<std::size_t>(grip)).hot = true;
    base_ = grip;
    target_ = Base();
}

picture::Point GripSet::Base() const {
    const AcGePoint3d& base = grips_.at(static_cast<std::size_t>(base_)).point;
    return {base.x, base.y};
}

template <class Visit>
void GripSet::ForEachHotEntity(Visit visit) const {
    for (auto first = grips_.begin(); first != grips_.end();) {
        const auto last = std::find_if(
            first, grips_.end(), [&](const Grip& grip) { return grip.entity != first->entity; });
        if (std::any_of(first, last, [](const Grip& grip) { return grip.hot; })) {
            visit(first, last);
        }
        first = last;
    }
}

std::vector<std::vector<AcGePoint3d>> GripSet::RubberLines(double chordError) const {
    std::vector<std::vector<AcGePoint3d>> lines;
    const picture::Point offset = Offset();
    ForEachHotEntity([&](auto first, auto last) {
        std::vector<AcGePoint3d> points;
        for (auto grip = first; grip != last; ++grip) {
            points.push_back(grip->hot ? grip->point + AcGeVector3d(offset.x, offset.y, 0.0)
                                       : grip->point);
        }
        lines.push_back(AcGeCubicSplineCurve3d(points).samplePoints(chordError));
    });
    return lines;
}

std::vector<std::string> GripSet::MoveArguments() const {
    std::vector<std::string> arguments;
    const picture::Point offset = Offset();
    ForEachHotEntity([&](auto first, auto last) {
        std::string indexes;
        for (auto grip = first; grip != last; ++grip) {
            if (grip->hot) {
                indexes += (indexes.empty() ? "" : ",") + std::to_string(grip->index);
            }
        }
        char handle[24];
        std::snprintf(handle, sizeof handle, "#%llX ",
                      static_cast<unsigned long long>(first->entity.handle()));
        arguments.push_back(handle + indexes + " " + win32::ShortestText(offset.x) + "," +
                            win32::ShortestText(offset.y));
    });
    return arguments;
}

}  // namespace desk
