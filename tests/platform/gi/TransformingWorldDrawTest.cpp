#include "platform/gi/TransformingWorldDraw.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "platform/gi/ExtentsWorldDraw.h"

namespace {

constexpr double kQuarter = std::numbers::pi / 2;

class MockGeometry : public AcGiWorldGeometry {
public:
    MOCK_METHOD(Adesk::Boolean, polyline, (Adesk::UInt32, const AcGePoint3d*), (override));
    MOCK_METHOD(Adesk::Boolean, polygon, (Adesk::UInt32, const AcGePoint3d*), (override));
    MOCK_METHOD(Adesk::Boolean, circle, (const AcGePoint3d&, double, const AcGeVector3d&),
                (override));
    MOCK_METHOD(Adesk::Boolean, circularArc, (const AcGePoint3d&, double, double, double),
                (override));
    MOCK_METHOD(Adesk::Boolean, wideLine, (const AcGePoint3d&, const AcGePoint3d&, double, double),
                (override));
    MOCK_METHOD(Adesk::Boolean, text,
                (const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, const char*,
                 Adesk::Int32, Adesk::Boolean, const AcGiTextStyle&),
                (override));
};

class Target : public AcGiWorldDraw {
public:
    AcGiWorldGeometry& geometry() const override { return geometry_; }
    AcGiSubEntityTraits& subEntityTraits() const override { return unused_.subEntityTraits(); }

    mutable MockGeometry geometry_;
    ExtentsWorldDraw unused_;
};

MATCHER_P3(IsAt, x, y, z, "") {
    return arg.isEqualTo({double(x), double(y), double(z)}, 1e-9);
}

AcGeMatrix3d uneven(double x, double y) {
    AcGeMatrix3d m;
    m.entry[0][0] = x;
    m.entry[1][1] = y;
    return m;
}

TEST(TransformingWorldDrawTest, EvenMapsKeepArcsAndWidths) {
    Target target;
    const AcGeMatrix3d turned = AcGeMatrix3d::translation({10, 0, 0}) *
                                AcGeMatrix3d::rotation(kQuarter, AcGeVector3d::kZAxis) *
                                AcGeMatrix3d::scaling(2);
    TransformingWorldDraw draw(target, turned);
    EXPECT_CALL(target.geometry_,
                circularArc(IsAt(10, 2, 0), 6.0, testing::DoubleEq(kQuarter + 0.5), 1.25));
    EXPECT_CALL(target.geometry_, circle(IsAt(10, 2, 0), 6.0, IsAt(0, 0, 1)));
    EXPECT_CALL(target.geometry_, wideLine(IsAt(10, 0, 0), IsAt(10, 8, 0), 1.0, 2.0));
    draw.geometry().circularArc({1, 0, 0}, 3.0, 0.5, 1.25);
    draw.geometry().circle({1, 0, 0}, 3.0, AcGeVector3d::kZAxis);
    draw.geometry().wideLine({0, 0, 0}, {4, 0, 0}, 0.5, 1.0);
}

TEST(TransformingWorldDrawTest, AMirrorRunsArcsFromTheirOtherEnd) {
    Target target;
    TransformingWorldDraw draw(target, AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0}));
    // From 0.5 over 1.0 to 1.5; its image runs from pi - 1.5 to pi - 0.5.
    EXPECT_CALL(target.geometry_,
                circularArc(IsAt(-1, 0, 0), 3.0, testing::DoubleEq(std::numbers::pi - 1.5), 1.0));
    draw.geometry().circularArc({1, 0, 0}, 3.0, 0.5, 1.0);
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
    Target target;
    AcGiTextStyle style;
    style.setTextSize(2.0);
    style.setXScale(0.5);
    AcGiTextStyle seen;
    EXPECT_CALL(target.geometry_, text(IsAt(6, 5, 0), IsAt(0, 0, 1), IsAt(1, 0, 0),
                                       testing::StrEq("d60"), -1, false, testing::_))
        .WillOnce(testing::DoAll(testing::SaveArg<6>(&seen), testing::Return(true)));
    TransformingWorldDraw draw(target, uneven(3, 5));
    draw.geometry().text({2, 1, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, "d60", -1, false,
                         style);
    EXPECT_DOUBLE_EQ(seen.textSize(), 10.0);
    EXPECT_DOUBLE_EQ(seen.xScale(), 0.3);
    EXPECT_DOUBLE_EQ(seen.obliquingAngle(), 0.0);

    AcGeMatrix3d shear;
    shear.entry[0][1] = 1.0;
    EXPECT_CALL(target.geometry_, text)
        .WillOnce(testing::DoAll(testing::SaveArg<6>(&seen), testing::Return(true)));
    TransformingWorldDraw sheared(target, shear);
    sheared.geometry().text({}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, "d60", -1, false,
                            style);
    EXPECT_DOUBLE_EQ(seen.obliquingAngle(), kQuarter / 2);
    EXPECT_DOUBLE_EQ(seen.textSize(), 2.0);

    EXPECT_CALL(target.geometry_, text).Times(0);
    TransformingWorldDraw flat(target, uneven(1, 0));
    flat.geometry().text({}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, "d60", -1, false, style);
}

TEST(ExtentsWorldDrawTest, ArcsReachTheirOutermostPointsOnly) {
    struct Case {
        double start;
        double sweep;
        AcGePoint3d low;
        AcGePoint3d high;
    };
    const double half = std::sqrt(0.5);
    for (const Case& c : {Case{kQuarter / 2, kQuarter, {-half, half, 0}, {half, 1, 0}},
                          Case{-kQuarter / 2, kQuarter, {half, -half, 0}, {1, half, 0}},
                          Case{3 * kQuarter / 2, -kQuarter, {-half, half, 0}, {half, 1, 0}},
                          Case{1.0, 8 * kQuarter, {-1, -1, 0}, {1, 1, 0}}}) {
        ExtentsWorldDraw box;
        EXPECT_TRUE(box.isEmpty());
        box.geometry().circularArc({}, 1.0, c.start, c.sweep);
        EXPECT_TRUE(box.minPoint().isEqualTo(c.low, 1e-9)) << c.start;
        EXPECT_TRUE(box.maxPoint().isEqualTo(c.high, 1e-9)) << c.start;
    }
}

}  // namespace
