#include "lab/hydrometer/joint.h"

#include <algorithm>
#include <cmath>

#include "lab/Failure.h"
#include "lab/numbers.h"
#include "lab/tables/SampleBuilder.h"

namespace lab {

namespace {
double FourDigits(double number) {
    const double scale = std::pow(10.0, 3.0 - std::floor(std::log10(number)));
    return StoredNumber(std::round(number * scale) / scale).value_or(0.0);
}

[[noreturn]] void Refuse(const HydrometerTest& test, const std::string& reason) {
    throw Failure("sample " + test.sample + " of " + test.borehole + ": " + reason);
}

/// What is left for the hydrometer, and below which size.
struct Fine {
    double mass;
    double below;  ///< mm; infinite without sieves
};

Fine FineOf(const Sample& sieves, const HydrometerTest& test) {
    Fine fine{sieves.total.value_or(0.0), HUGE_VAL};
    for (const SieveItem& item : sieves.items) {
        if (!item.size || !item.mass) {
            Refuse(test, "a sieve item has no size or no mass");
        }
        if (*item.size > 0.0) {
            fine.mass -= *item.mass;
            fine.below = std::min(fine.below, *item.size);
        }
    }
    constexpr double kNothing = 1e-5;  // of the total's unit, as for the sum of the masses
    if (!(fine.mass > kNothing)) {
        Refuse(test, "nothing passes the finest sieve, or there is no total");
    }
    return fine;
}
}  // namespace

std::vector<HydrometerPoint> PointsOf(const HydrometerTest& test) {
    std::vector<HydrometerPoint> points;
    for (const HydrometerReading& reading : test.readings) {
        points.push_back(
            {FourDigits(GrainSize(test, reading)), PercentFiner(test, reading), false});
    }
    return points;
}

Joint Join(const Sample& sieves, const HydrometerTest& test) {
    constexpr double kAll = 100.0;
    const Fine fine = FineOf(sieves, test);
    Joint joint;
    joint.points = PointsOf(test);
    std::copy_if(sieves.items.begin(), sieves.items.end(), std::back_inserter(joint.items),
                 [](const SieveItem& item) { return *item.size > 0.0; });
    const bool hasSieves = !joint.items.empty();
    std::vector<double> sizes;
    std::vector<double> finer;
    for (HydrometerPoint& point : joint.points) {
        point.joined = point.size < fine.below;
        if (!point.joined) {
            continue;
        }
        if (sizes.empty() && hasSieves) {
            joint.jump = fine.mass / *sieves.total * (kAll - point.finer);
        }
        sizes.push_back(point.size);
        finer.push_back(std::min(point.finer, kAll));
    }
    if (sizes.empty()) {
        Refuse(test, "every size of the hydrometer is at or above the finest sieve of " +
                         ShortestText(fine.below) + " mm");
    }
    const std::vector<SieveItem> items = ItemsOfPassing(sizes, finer, fine.mass);
    joint.items.insert(joint.items.end(), items.begin(), items.end());
    return joint;
}

}  // namespace lab
