#include "platform/db/AcDbStub.h"
#include "src/edit/store_command.h"

#include <gtest/gtest.h>

#include "platform/db/AcDbLine.h"
#include "platform/ed/entity_selection.h"
#include "src/entity/append_entity.h"
#include "tests/platform/db/Opened.h"
#include "tests/src/RecordedMessages.h"
#include "tests/src/TestProject.h"
#include "tests/src/entity/CurveMaker.h"

namespace {

using Texts = std::vector<std::string>;

/// A drawing with a reshaped curve of project 7, whose result row is empty, and a line.
class StoreCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        CKFCurve::rxInit();
        project_.Sql(
            "INSERT INTO x_GongCheng VALUES(7,'GC1','',0,0);"
            "INSERT INTO Z_c_KeFen(GCSY,ZKBH,QYBH,KLSYFF,KLTYZL) VALUES(7,'ZK3','5','',100)");
        auto* const curve = new CKFCurve;
        SetUpCurve(*curve, 1, StraightCurve());
        curve->ComputeDiameters();
        ASSERT_EQ(AppendToModelSpace(&drawing_, curve, curve_), Acad::eOk);
        ASSERT_EQ(AppendToModelSpace(&drawing_, new AcDbLine({0, 0, 0}, {1, 0, 0}), line_),
                  Acad::eOk);
        ed::SetPickSource([this](const char* prompt, AcDbObjectId& id, ads_point) {
            EXPECT_EQ(win32::Utf8FromGbk(prompt), "\n请选择颗分试样曲线:");
            id = picked_;
            return !picked_.isNull();
        });
        picked_ = curve_;
        ChartMode = kSampleCharts;
        CurveDataChanged = 1;
    }
    void TearDown() override {
        ed::SetPickSource(nullptr);
        CKFCurve::rxRemove();
    }

    /// What the command prints; picks must be closed and look as usual afterwards.
    std::string Run() {
        const std::size_t before = messages_.CommandLine().size();
        SGRDX();
        AcDbObject* object = nullptr;
        const bool exists = AcDbDatabase::objectOf(picked_) != nullptr;
        if (exists && acdbOpenObject(object, picked_, AcDb::kForWrite) == Acad::eOk) {
            const auto* const entity = dynamic_cast<AcDbEntity*>(object);
            EXPECT_FALSE(entity != nullptr && entity->isHighlighted());
            object->close();
        }
        EXPECT_TRUE(!exists || object != nullptr) << "left open";
        return messages_.CommandLine().substr(before);
    }
    bool IsCurveChanged() const { return Opened<CKFCurve>(curve_, AcDb::kForRead)->IsChanged(); }
    std::string StoredD60() const { return project_.Sql("SELECT KLD60 FROM Z_c_KeFen").front(); }

    TestProject project_;
    RecordedMessages messages_;
    AcDbDatabase drawing_;
    AcDbObjectId curve_;
    AcDbObjectId line_;
    AcDbObjectId picked_;
};

TEST_F(StoreCommandTest, StoresAChangedCurveOnce) {
    EXPECT_EQ(Run(), "\n颗分数据存储成功!");
    EXPECT_NE(StoredD60(), "null");
    EXPECT_EQ(CurveDataChanged, 0);
    EXPECT_FALSE(IsCurveChanged());

    EXPECT_EQ(Run(), "\n该试样没有改动，无须入库!");
    StoreFromReactor = 1;
    EXPECT_EQ(Run(), "");
    EXPECT_EQ(messages_.Boxes(), Texts{"试样选择错误，改动的试样数据没有入库!"});
}

TEST_F(StoreCommandTest, WhatIsNoCurveLeavesEverythingAsItIs) {
    picked_.setNull();
    EXPECT_EQ(Run(), "什么也没有选中.\n");
    picked_ = line_;
    EXPECT_EQ(Run(), "\n没有选中颗分试样曲线!\n请选择颗分试样曲线!");
    AcDbStub gone;
    gone.handle = 0x2F;
    picked_ = AcDbObjectId(&gone);
    char name[20];
    std::snprintf(name, sizeof name, "%lx", reinterpret_cast<long>(&gone));
    EXPECT_EQ(Run(), "取试体ID失败: \n试体名：<" + std::string(name) +
                         ",2f>, 错误码=" + std::to_string(Acad::eNullObjectId) + ".\n");
    picked_ = drawing_.clayer();
    EXPECT_EQ(Run(), "打开试体错误，错误码=46.\n") << "no entity at all";
    EXPECT_EQ(CurveDataChanged, 1);
}

TEST_F(StoreCommandTest, ACurveThatSomebodyHoldsOpenIsRefusedWithItsStatus) {
    const Opened held(curve_, AcDb::kForRead);
    SGRDX();
    EXPECT_EQ(messages_.CommandLine(),
              "打开试体错误，错误码=" + std::to_string(Acad::eWasOpenForRead) + ".\n");
}

TEST_F(StoreCommandTest, AProjectThatIsRenumberedOrGoneIsNotWrittenTo) {
    project_.Sql("UPDATE x_GongCheng SET GCBH='GC2'");
    EXPECT_EQ(Run(), "\n颗分数据存储失败!");
    project_.Sql("DELETE FROM x_GongCheng");
    EXPECT_EQ(Run(), "\n颗分数据存储失败!");
    EXPECT_EQ(messages_.Boxes(),
              (Texts{"该工程工程编号已被修改,数据无法入库!", "打开工点信息数据表中不存在该工程!"}));
    EXPECT_EQ(StoredD60(), "null");
    EXPECT_EQ(CurveDataChanged, 0) << "the user has been told";
    EXPECT_TRUE(IsCurveChanged());
}

TEST_F(StoreCommandTest, AMissingRowCountsAsFailed) {
    project_.Sql("DELETE FROM Z_c_KeFen");
    EXPECT_EQ(Run(), "\n颗分数据存储失败!");
    EXPECT_EQ(CurveDataChanged, 0);
}

TEST_F(StoreCommandTest, WithoutAChartModeNothingIsStored) {
    ChartMode = kChartModeNotSet;
    EXPECT_EQ(Run(), "\n颗分数据存储失败!");
    EXPECT_EQ(StoredD60(), "null");
    EXPECT_TRUE(IsCurveChanged());
}

}  // namespace
