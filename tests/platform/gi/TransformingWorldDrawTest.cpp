#include "platform/gi/TransformingWorldDraw.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "platform/gi/ExtentsWorldDraw.h"
#include "tests/platform/db/RecordingWorldDraw.h"

namespace {

constexpr double kQuarter = std::numbers::pi / 2;

using testing::ElementsAre;

AcGeMatrix3d uneven(double x, double y) {
    AcGeMatrix3d m;
    m.entry[0][0] = x;
    m.entry[1][1] = y;
    return m;
}

TEST(TransformingWorldDrawTest, EvenMapsKeepArcsAndWidths) {
    RecordingWorldDraw target;
    const AcGeMatrix3d turned = AcGeMatrix3d::translation({10, 0, 0}) *
                                AcGeMatrix3d::rotation(kQuarter, AcGeVector3d::kZAxis) *
                                AcGeMatrix3d::scaling(2);
    TransformingWorldDraw draw(target, turned);
    draw.geometry().circularArc({1, 0, 0}, 3.0, kQuarter / 9, kQuarter / 3);
    draw.geometry().circle({1, 0, 0}, 3.0, AcGeVector3d::kZAxis);
    draw.geometry().wideLine({0, 0, 0}, {4, 0, 0}, 0.5, 1.0);
    EXPECT_THAT(target.lines(), ElementsAre("arc 10,2 r 6 from 100 by 30", "circle 10,2 r 6",
                                            "wide 10,0 10,8 w 1 2"));
}

TEST(TransformingWorldDrawTest, AMirrorRunsArcsFromTheirOtherEnd) {
    RecordingWorldDraw target;
    TransformingWorldDraw draw(target, AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0}));
    // From 10 over 40 to 70 degrees; its image runs from 110 to 170.
    draw.geometry().circularArc({1, 0, 0}, 3.0, kQuarter / 9, 2 * kQuarter / 3);
    EXPECT_THAT(target.lines(), ElementsAre("arc -1,0 r 3 from 110 by 60"));
}

TEST(TransformingWorldDrawTest, UnevenMapsDrawOutlines) {
    ExtentsWorldDraw box;
    TransformingWorldDraw draw(box, uneven(3, 1));
    draw.geometry().circle({0, 0, 0}, 2.0, AcGeVector3d::kZAxis);
    EXPECT_NEAR(box.maxPoint().x, 6.0, 1e-9);
    EXPECT_NEAR(box.maxPoint().y, 2.0, 1e-9);
    draw.geometry().wideLine({0, 0, 0}, {0, 8, 0}, 4.0, 2.0);
    EXPECT_NEAR(box.minPoint().x, -6.0, 1e-9);
    EXPECT_NEAR(box.maxPoint().y, 8.0, 1e-9);
    draw.geometry().circularArc({0, 20, 0}, 1.0, 0.0, kQuarter);
    EXPECT_NEAR(box.maxPoint().y, 21.0, 1e-9);
}

TEST(TransformingWorldDrawTest, TextsTakeHeightWidthAndSlantFromTheMap) {
    RecordingWorldDraw target;
    AcGiTextStyle style;
    style.setTextSize(2.0);
    style.setXScale(0.5);
    AcGeMatrix3d shear;
    shear.entry[0][1] = 1.0;
    for (const AcGeMatrix3d& map : {uneven(3, 5), shear, uneven(1, 0)}) {
        TransformingWorldDraw draw(target, map);
        draw.geometry().text({2, 1, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, "d60", -1,
                             false, style);
    }
    EXPECT_THAT(target.lines(), ElementsAre("text d60 at 6,5 towards 0 h 10 w 0.3 txt,",
                                            "text d60 at 3,1 towards 0 h 2 w 0.5 slant 45 txt,"))
        << "and nothing of a text without height";
}

TEST(ExtentsWorldDrawTest, ArcsReachTheirOutermostPointsOnly) {
    const double half = std::sqrt(0.5);
    const std::tuple<double, double, AcGePoint3d, AcGePoint3d> cases[] = {
        {kQuarter / 2, kQuarter, {-half, half, 0}, {half, 1, 0}},
        {-kQuarter / 2, kQuarter, {half, -half, 0}, {1, half, 0}},
        {3 * kQuarter / 2, -kQuarter, {-half, half, 0}, {half, 1, 0}},
        {1.0, 8 * kQuarter, {-1, -1, 0}, {1, 1, 0}}};
    for (const auto& [start, sweep, low, high] : cases) {
        ExtentsWorldDraw box;
        EXPECT_TRUE(box.isEmpty());
        box.geometry().circularArc({}, 1.0, start, sweep);
        EXPECT_TRUE(box.minPoint().isEqualTo(low, 1e-9)) << start;
        EXPECT_TRUE(box.maxPoint().isEqualTo(high, 1e-9)) << start;
    }
}

}  // namespace
