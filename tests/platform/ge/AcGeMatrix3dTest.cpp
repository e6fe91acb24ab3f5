#include "platform/ge/AcGeMatrix3d.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

AcGePoint3d image(const AcGeMatrix3d& m, AcGePoint3d p) {
    return p.transformBy(m);
}

void expectPoint(const AcGePoint3d& actual, const AcGePoint3d& expected) {
    EXPECT_TRUE(actual.isEqualTo(expected))
        << actual.x << ", " << actual.y << ", " << actual.z << " instead of " << expected.x << ", "
        << expected.y << ", " << expected.z;
}

TEST(AcGeMatrix3dTest, MapsPointsAboutTheirCentres) {
    constexpr double quarter = std::numbers::pi / 2;
    expectPoint(image(AcGeMatrix3d::translation({1, 2, 3}), {10, 20, 30}), {11, 22, 33});
    expectPoint(image(AcGeMatrix3d::rotation(quarter, {0, 0, 2}, {1, 1, 0}), {3, 1, 5}), {1, 3, 5});
    expectPoint(image(AcGeMatrix3d::rotation(quarter, AcGeVector3d::kXAxis), {1, 1, 0}), {1, 0, 1});
    expectPoint(image(AcGeMatrix3d::scaling(3, {1, 1, 1}), {2, 0, 1}), {4, -2, 1});
    expectPoint(image(AcGeMatrix3d::mirroring({0, 1, 0}, {1, 2, 9}), {3, 1, 7}), {0, 4, 7});
    expectPoint(image(AcGeMatrix3d::mirroring({5, 5, 0}, {5, 5, 9}), {3, 1, 7}), {3, 1, 7});
}

TEST(AcGeMatrix3dTest, VectorsIgnoreTheOffset) {
    const AcGeMatrix3d level = AcGeMatrix3d::mirroring({0, 10, 0}, {5, 10, 0});
    EXPECT_TRUE(AcGeVector3d(1, 0, 0).transformBy(level).isEqualTo(AcGeVector3d::kXAxis));
    EXPECT_TRUE(AcGeVector3d(0, 1, 0).transformBy(level).isEqualTo({0, -1, 0}));
    const AcGeMatrix3d move = AcGeMatrix3d::translation({10, 0, 0});
    EXPECT_TRUE(AcGeVector3d(1, 0, 0).transformBy(move).isEqualTo(AcGeVector3d::kXAxis));
}

TEST(AcGeMatrix3dTest, AProductAppliesItsRightOperandFirst) {
    const AcGeMatrix3d product = AcGeMatrix3d::translation({1, 0, 0}) * AcGeMatrix3d::scaling(2);
    expectPoint(image(product, {3, 4, 0}), {7, 8, 0});
}

TEST(AcGeMatrix3dTest, PlanesLieAsDrawingFilesHaveThem) {
    expectPoint(image(AcGeMatrix3d::planeToWorld({0, 0, 3}), {1, 2, 3}), {1, 2, 3});
    expectPoint(image(AcGeMatrix3d::planeToWorld({0, 0, -1}), {1, 2, 3}), {-1, 2, -3});
    expectPoint(image(AcGeMatrix3d::planeToWorld({1, 0, 0}), {1, 2, 3}), {3, 1, 2});
    const AcGeVector3d tilted(0.3, -0.4, 0.8);
    expectPoint(
        image(AcGeMatrix3d::worldToPlane(tilted) * AcGeMatrix3d::planeToWorld(tilted), {1, 2, 3}),
        {1, 2, 3});
}

}  // namespace
