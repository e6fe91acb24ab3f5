#include "src/core/curve_faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/core/curve_shape.h"

namespace {

/// "back 0.5 from 2 to 2.1; above 1.2 from 0.5 to 0.4", by the curve through sizes and percent
/// finer.
std::string FaultsOf(const std::vector<std::pair<double, double>>& percentages) {
    static const char* const kNames[] = {"back", "rises", "above", "below"};
    const CurveGrid grid = CurveGrid::For({57.5, 240, 0}, 120, 50, percentages.front().first);
    AcGePoint3dArray points;
    for (const auto& [size, percent] : percentages) {
        points.append({grid.XOfSize(size), grid.YOfPassing(percent / 100), 0.0});
    }
    std::string text;
    for (const CurveFault& fault : FindCurveFaults(CurveThrough(points), grid)) {
        text += std::string(text.empty() ? "" : ", ") + kNames[static_cast<int>(fault.kind)];
        EXPECT_GT(fault.amount, 0.05);
        EXPECT_TRUE(fault.kind == CurveFault::Kind::kRunsBack ? fault.to > fault.from
                                                              : fault.to <= fault.from);
    }
    return text;
}

TEST(CurveFaults, AreWhatAGradingCannotDo) {
    const std::tuple<const char*, std::vector<std::pair<double, double>>, const char*> cases[] = {
        {"a straight line", {{20, 90}, {2, 50}, {0.2, 10}}, ""},
        {"two points", {{20, 100}, {2, 0}}, ""},
        {"one point, which has no curve", {{20, 100}}, ""},
        {"an even curve", {{20, 100}, {5, 85}, {2, 60}, {0.5, 35}, {0.25, 18}, {0.075, 5}}, ""},
        {"flat ends within the tolerance", {{20, 99.9}, {5, 99.8}, {2, 99.6}}, ""},
        {"one class with 90 % of the mass",
         {{20, 100}, {5, 98}, {2, 96}, {1.5, 6}, {0.25, 4}, {0.075, 2}},
         "back, rises"},
        {"the same within two close sieves",
         {{20, 100}, {5, 98}, {2.1, 96}, {2, 6}, {0.25, 4}, {0.075, 2}},
         "back, rises"},
        {"a measured rise", {{20, 50}, {2, 40}, {0.2, 45}}, "rises"},
        {"measured below 0", {{20, 50}, {2, 10}, {0.2, -5}}, "below"},
        {"a size twice", {{20, 100}, {2, 60}, {2, 30}, {0.2, 10}}, "back"},
    };
    for (const auto& [why, percentages, faults] : cases) {
        EXPECT_EQ(FaultsOf(percentages), faults) << why;
    }
}

}  // namespace
