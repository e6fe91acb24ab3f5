#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/Sample.h"
#include "lab/hydrometer/hydrometer.h"

namespace lab {

/// What a reading tells of its sample.
struct HydrometerPoint {
    double size = 0.0;    ///< mm, to four digits
    double finer = 0.0;   ///< percent of the dry mass
    bool joined = false;  ///< became an item: the grains are smaller than the finest sieve
};

/// A sample with its fine part from a hydrometer.
struct Joint {
    std::vector<SieveItem> items;         ///< the sieves', then those of the hydrometer
    std::vector<HydrometerPoint> points;  ///< one for each reading
    /// Percent of the sample between what passes the finest sieve and the first joined point;
    /// nothing without sieves.
    std::optional<double> jump;
};

/// Sieves and hydrometer that are further apart at their joint, in percent, disagree.
inline constexpr double kGreatestJump = 5.0;

/// The points of a test, not joined yet.
std::vector<HydrometerPoint> PointsOf(const HydrometerTest& test);

/// Joins a test with the items of its sample: what passes the finest sieve is divided as the
/// hydrometer says, a point above 100 % counting as 100. The sieves' items stay as they are; an
/// item of size 0 goes, as the grains in it are those of the hydrometer. Failure when the sieves
/// have no room for it.
Joint Join(const Sample& sieves, const HydrometerTest& test);

}  // namespace lab
