#pragma once

#include <algorithm>
#include <limits>

#include "platform/ge/AcGePoint3d.h"

/// Axis-parallel box. Empty until a point was added: then minPoint is above maxPoint.
class AcDbExtents {
public:
    const AcGePoint3d& minPoint() const { return min_; }
    const AcGePoint3d& maxPoint() const { return max_; }
    bool isEmpty() const { return min_.x > max_.x; }
    void addPoint(const AcGePoint3d& p) {
        min_.set(std::min(min_.x, p.x), std::min(min_.y, p.y), std::min(min_.z, p.z));
        max_.set(std::max(max_.x, p.x), std::max(max_.y, p.y), std::max(max_.z, p.z));
    }
    void addExt(const AcDbExtents& other) {
        if (!other.isEmpty()) {
            addPoint(other.min_);
            addPoint(other.max_);
        }
    }

private:
    static constexpr double kFar = std::numeric_limits<double>::infinity();
    AcGePoint3d min_{kFar, kFar, kFar};
    AcGePoint3d max_{-kFar, -kFar, -kFar};
};
