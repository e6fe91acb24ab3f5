#include <cmath>
#include <fstream>

#include <gmock/gmock.h>

#include "host/model_entities.h"
#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/AcDbText.h"
#include "platform/db/HeaderVariables.h"
#include "platform/ed/system_variables.h"
#include "tests/host/HostFixture.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {
/// A line whose ends can be dragged.
class GrippedLine : public AcDbLine {
public:
    using AcDbLine::AcDbLine;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& grips, AcDbIntArray& /*snapModes*/,
                                    AcDbIntArray& /*geometryIds*/) const override {
        grips.append(startPoint());
        grips.append(endPoint());
        return Acad::eOk;
    }
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices,
                                       const AcGeVector3d& offset) override {
        for (const int index : indices) {
            index == 0 ? setStartPoint(startPoint() + offset) : setEndPoint(endPoint() + offset);
        }
        return Acad::eOk;
    }
};

class BuiltInCommandsTest : public HostFixture {
protected:
    ~BuiltInCommandsTest() override { Run("SDI 0\n"); }

    static double Rounded(double value) { return std::round(value * 1e9) / 1e9 + 0.0; }

    /// The lines of the current drawing as "x1,y1 x2,y2", in drawing order.
    static std::vector<std::string> Lines() {
        std::vector<std::string> lines;
        host::ForEachModelSpaceEntity(*Current()->database(), [&](AcDbEntity& entity) {
            if (entity.isKindOf(AcDbLine::desc())) {
                const auto& line = static_cast<const AcDbLine&>(entity);
                char text[100];
                std::snprintf(text, sizeof text, "%g,%g %g,%g", Rounded(line.startPoint().x),
                              Rounded(line.startPoint().y), Rounded(line.endPoint().x),
                              Rounded(line.endPoint().y));
                lines.emplace_back(text);
            }
        });
        return lines;
    }

    template <class Table>
    static AcDbObjectId Add(AcDbObjectId table, AcDbSymbolTableRecord* record, const char* name) {
        record->setName(name);
        AcDbObjectId id;
        EXPECT_EQ(Opened<Table>(table)->add(id, record), Acad::eOk);
        record->close();
        return id;
    }
    static AcDbObjectId AddLayer(const char* name) {
        return Add<AcDbLayerTable>(Current()->database()->header().LAYER_CONTROL_OBJECT,
                                   new AcDbLayerTableRecord, name);
    }
    static AcDbObjectId AddBlock(const char* name) {
        return Add<AcDbBlockTable>(Current()->database()->header().BLOCK_CONTROL_OBJECT,
                                   new AcDbBlockTableRecord, name);
    }
    static void AppendToBlock(AcDbObjectId block, std::unique_ptr<AcDbEntity> entity) {
        ASSERT_EQ(Opened<AcDbBlockTableRecord>(block)->appendAcDbEntity(entity.get()), Acad::eOk);
        entity.release()->close();
    }
    static std::unique_ptr<AcDbLine> LevelLine(double y, AcDbObjectId layer) {
        auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, y, 0), AcGePoint3d(100, y, 0));
        if (!layer.isNull()) {
            line->setLayer(layer);
        }
        return line;
    }
};
}  // namespace

TEST_F(BuiltInCommandsTest, ZoomShowsTheExtentsOrTheLimitsAsWell) {
    Current()->view().width = 1.0;
    EXPECT_TRUE(Run("ZOOM E")) << "of an empty drawing";
    EXPECT_EQ(Current()->view().width, 420.0);
    EXPECT_EQ(Current()->view().height, 297.0);
    EXPECT_EQ(Current()->view().center.x, 210.0);
    DrawLine(100, 50, 300, 150);
    EXPECT_TRUE(Run("zoom e "));
    EXPECT_EQ(Current()->view().center.x, 200.0);
    EXPECT_EQ(Current()->view().center.y, 100.0);
    EXPECT_EQ(Current()->view().width, 200.0);
    EXPECT_EQ(Current()->view().height, 100.0);
    DrawLine(0, -103, 0, 10);
    EXPECT_TRUE(Run("ZOOM All"));
    EXPECT_EQ(Current()->view().width, 420.0);
    EXPECT_EQ(Current()->view().height, 400.0);
    EXPECT_FALSE(Run("ZOOM X"));
}

TEST_F(BuiltInCommandsTest, DrawingsAreSavedAndOpenedAgain) {
    DrawLine(0, 0, 1, 2);
    EXPECT_FALSE(Run("QSAVE")) << "no name yet";
    EXPECT_THAT(printed_, HasSubstr("SAVEAS"));
    EXPECT_TRUE(Run("SAVEAS \"" + Path("with blank") + "\""));
    EXPECT_TRUE(std::filesystem::exists(Path("with blank.dwg")));
    EXPECT_TRUE(Run("QSAVE CLOSE")) << "nothing to ask for";
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(Run("OPEN \"" + Path("with blank.dwg") + "\""));
    EXPECT_THAT(Lines(), ElementsAre("0,0 1,2"));
    EXPECT_FALSE(Run("OPEN " + Path("missing.dwg")));
    EXPECT_THAT(printed_, HasSubstr("missing.dwg"));
    EXPECT_FALSE(Run("SAVEAS \"\""));
    EXPECT_FALSE(Run("SAVEAS " + Path("no/folder/x")));
    EXPECT_THAT(printed_, HasSubstr("no/folder/x"));
    EXPECT_THAT(windows_.Shown(), testing::IsEmpty());
}

TEST_F(BuiltInCommandsTest, ADamagedDrawingOpensWithAWarningAndKeepsItsFile) {
    DrawLine(0, 0, 1, 0);
    DrawLine(0, 0, 2, 0);
    const std::string path = Path("damaged.dwg");
    ASSERT_TRUE(Run("SAVEAS " + path + " CLOSE OPEN " + path));
    std::uint32_t position = 0;
    host::ForEachModelSpaceEntity(*Current()->database(), [&](AcDbEntity& entity) {
        position = entity.objectId().stub()->filePosition;
    });
    ASSERT_TRUE(Run("CLOSE"));
    constexpr int kIntoTheObject = 9;
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(position + kIntoTheObject).put('\xFF');
    file.close();

    printed_.clear();
    EXPECT_TRUE(Run("OPEN " + path));
    EXPECT_THAT(printed_, HasSubstr("damaged.dwg: the drawing is damaged, 1 object is missing\n"));
    EXPECT_THAT(printed_, HasSubstr("has a wrong check sum"));
    EXPECT_THAT(Lines(), ElementsAre("0,0 1,0"));
    EXPECT_FALSE(Run("QSAVE"));
    EXPECT_THAT(printed_, HasSubstr("save the drawing under another name"));
    EXPECT_TRUE(Run("SAVEAS " + Path("copy.dwg") + " QSAVE"));
}

TEST_F(BuiltInCommandsTest, UnsavedChangesAreAskedFor) {
    const std::string path = Path("kept.dwg");
    ASSERT_TRUE(Run("SAVEAS " + path));
    DrawLine(0, 0, 1, 0);
    AnswerBox(IDCANCEL);
    EXPECT_FALSE(Run("CLOSE"));
    EXPECT_THAT(windows_.Shown().back().text, HasSubstr("kept.dwg"));
    ASSERT_NE(Current(), nullptr);

    AnswerBox(IDYES);
    EXPECT_TRUE(Run("CLOSE"));
    EXPECT_TRUE(Run("OPEN " + path));
    EXPECT_EQ(Lines().size(), 1U);

    DrawLine(0, 0, 2, 0);
    AnswerBox(IDNO);
    EXPECT_TRUE(Run("CLOSE"));
    EXPECT_TRUE(Run("OPEN " + path));
    EXPECT_EQ(Lines().size(), 1U);
}

TEST_F(BuiltInCommandsTest, AFileThatIsNoLongerTheOneReadIsOverwrittenOnlyWhenTheUserSaysSo) {
    const std::string path = Path("shared.dwg");
    const auto changeByOther = [&] { std::ofstream(path, std::ios::app) << "!"; };
    ASSERT_TRUE(Run("SAVEAS " + path));
    changeByOther();
    const auto size = std::filesystem::file_size(path);
    EXPECT_FALSE(Run("QSAVE")) << "the default answer is no";
    EXPECT_THAT(windows_.Shown().back().text, HasSubstr("changed by another program"));
    EXPECT_EQ(std::filesystem::file_size(path), size);
    AnswerBox(IDYES);
    EXPECT_TRUE(Run("QSAVE QSAVE")) << "asked once";
    EXPECT_LT(std::filesystem::file_size(path), size);
    std::filesystem::remove(path);
    EXPECT_FALSE(Run("QSAVE"));
    EXPECT_THAT(windows_.Shown().back().text, HasSubstr("was deleted"));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(BuiltInCommandsTest, QuitAndCloseAllAskForEveryChangedDrawingBeforeOneGoes) {
    DrawLine(0, 0, 1, 0);
    ASSERT_TRUE(Run("NEW"));
    DrawLine(0, 0, 1, 0);
    for (const char* command : {"CLOSEALL", "QUIT"}) {
        AnswerBox(IDNO);
        AnswerBox(IDCANCEL);
        EXPECT_FALSE(Run(command));
        EXPECT_EQ(acDocManager->documentCount(), 2) << command;
        EXPECT_FALSE(host_->IsQuitting());
    }
    AnswerBox(IDNO);
    AnswerBox(IDNO);
    EXPECT_TRUE(Run("CLOSEALL"));
    EXPECT_EQ(acDocManager->documentCount(), 0);
    ASSERT_TRUE(Run("NEW"));
    DrawLine(0, 0, 1, 0);
    ASSERT_TRUE(Run("NEW"));
    DrawLine(0, 0, 1, 0);
    AnswerBox(IDNO);
    AnswerBox(IDNO);
    EXPECT_TRUE(Run("QUIT\nNOSUCH\n")) << "what follows is not run";
    EXPECT_TRUE(host_->IsQuitting());
}

TEST_F(BuiltInCommandsTest, SdiDecidesWhetherADrawingTakesTheOthersPlace) {
    ASSERT_TRUE(Run("SAVEAS " + Path("a")));
    EXPECT_TRUE(Run("NEW"));
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_TRUE(Run("CLOSE\nSDI 1\nNEW"));
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_TRUE(Current()->isUntitled());
    DrawLine(0, 0, 1, 0);
    AnswerBox(IDCANCEL);
    EXPECT_FALSE(Run("OPEN " + Path("a")));
    EXPECT_TRUE(Current()->isUntitled());
    AnswerBox(IDNO);
    EXPECT_TRUE(Run("OPEN " + Path("a")));
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_FALSE(Run("SDI 2"));
}

TEST_F(BuiltInCommandsTest, EntitiesAreTransformed) {
    // %s is the pick.
    const std::pair<const char*, const char*> cases[] = {
        {"MOVE %s 1,1 3,0", "2,-1 12,-1"}, {"ROTATE %s 0,0 90", "0,0 0,10"},
        {"SCALE %s 10,0 0.5", "5,0 10,0"}, {"MIRROR %s 0,5 1,5", "0,10 10,10"},
        {"GRIP %s 0 1,2", "1,2 10,0"},     {"GRIP %s 0,1 0,3", "0,3 10,3"},
    };
    for (const auto& [pattern, result] : cases) {
        const std::string pick =
            Draw(std::make_unique<GrippedLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)));
        char command[100];
        std::snprintf(command, sizeof command, pattern, pick.c_str());
        EXPECT_TRUE(Run(command)) << command << printed_;
        EXPECT_THAT(Lines(), ElementsAre(result)) << command;
        EXPECT_TRUE(Run("ERASE " + pick));
        EXPECT_THAT(Lines(), testing::IsEmpty());
    }
    EXPECT_TRUE(Run("COPY " + DrawLine(0, 0, 10, 0) + " 0,0 0,5"));
    EXPECT_THAT(Lines(), ElementsAre("0,0 10,0", "0,5 10,5"));

    const std::string first = DrawLine(0, 20, 10, 20);
    const std::string second = DrawLine(0, 30, 10, 30);
    EXPECT_FALSE(Run("MOVE " + first + ",#FFFF," + second + " 0,0 5,0"))
        << "one is not there, the others move";
    EXPECT_THAT(printed_, HasSubstr("There is no entity #FFFF."));
    EXPECT_THAT(Lines(), ElementsAre("0,0 10,0", "0,5 10,5", "5,20 15,20", "5,30 15,30"));
}

TEST_F(BuiltInCommandsTest, WhatIsNotSeenIsNotPickedAtItsPlace) {
    const AcDbObjectId off = AddLayer("off");
    const AcDbObjectId frozen = AddLayer("frozen");
    Opened<AcDbLayerTableRecord>(off)->setIsOff(true);
    Opened<AcDbLayerTableRecord>(frozen)->setIsFrozen(true);
    const AcDbObjectId mark = AddBlock("mark");
    AppendToBlock(mark, LevelLine(0, off));
    AppendToBlock(mark, LevelLine(20, {}));

    Draw(LevelLine(0, off));
    Draw(LevelLine(900, frozen));
    Draw(std::make_unique<AcDbBlockReference>(AcGePoint3d(0, 40, 0), mark));
    for (const char* const place : {"50,0", "50,900", "50,40", "#20"}) {
        printed_.clear();
        EXPECT_FALSE(Run(std::string("ERASE ") + place)) << place;
        EXPECT_THAT(printed_, HasSubstr("no entity")) << place;
    }
    EXPECT_TRUE(Run("LIST 50,60"));
    EXPECT_THAT(printed_, HasSubstr("AcDbBlockReference"));
    EXPECT_TRUE(Run("ZOOM E"));
    EXPECT_EQ(Current()->view().height, 60.0) << "what is off still has its place";
}

TEST_F(BuiltInCommandsTest, BlocksThatMultiplyBeyondMeasureAreGivenUp) {
    AcDbObjectId block = AddBlock("0 deep");
    AppendToBlock(block, LevelLine(0, {}));
    for (const char* const name : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "A", "B", "C"}) {
        const AcDbObjectId outer = AddBlock(name);
        for (int i = 0; i < 10; ++i) {
            AppendToBlock(outer, std::make_unique<AcDbBlockReference>(AcGePoint3d(), block));
        }
        block = outer;
    }
    std::string last;
    for (int i = 0; i < 100; ++i) {
        last = Draw(std::make_unique<AcDbBlockReference>(AcGePoint3d(), block));
    }
    EXPECT_TRUE(Run("MOVE " + last + " 0,0 0,0"));
    EXPECT_TRUE(Run("ZOOM E"));
    EXPECT_EQ(Current()->view().width, 100.0);
    EXPECT_FALSE(Run("ERASE 50,0"));
    EXPECT_THAT(printed_, HasSubstr("pick by #HANDLE"));
}

TEST_F(BuiltInCommandsTest, BadArgumentsAreNamedAndChangeNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"MOVE %s 1;1 3,0", "\"1;1\""},
        {"MOVE %s 1,1 3", "\"3\""},
        {"MOVE %s 1,1 3,nan", "\"3,nan\""},
        {"MOVE #XYZ 1,1 3,0", "#XYZ"},
        {"MOVE #0 1,1 3,0", "#0"},
        {"MOVE 200,200 1,1 3,0", "200,200"},
        {"ROTATE %s 0,0 right", "\"right\""},
        {"SCALE %s 0,0 0", "above 0"},
        {"MIRROR %s 1,1 1,1", "must differ"},
        {"GRIP %s -1 1,1", "\"-1\""},
        {"GRIP %s 0,9 1,1", "no grip 9"},
        {"EXPLODE %s", "nothing simpler"},
    };
    const std::string pick =
        Draw(std::make_unique<GrippedLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)));
    for (const auto& [pattern, complaint] : cases) {
        char command[100];
        std::snprintf(command, sizeof command, pattern, pick.c_str());
        printed_.clear();
        EXPECT_FALSE(Run(command)) << command;
        EXPECT_THAT(printed_, HasSubstr(complaint)) << command;
        EXPECT_THAT(Lines(), ElementsAre("0,0 10,0")) << command;
    }
}

TEST_F(BuiltInCommandsTest, APointPicksWhatIsDrawnNearestThere) {
    DrawLine(0, 0, 100, 0);
    Draw(std::make_unique<AcDbCircle>(AcGePoint3d(50, 50, 0), AcGeVector3d::kZAxis, 10.0));
    Draw(std::make_unique<AcDbText>(AcGePoint3d(0, 100, 0), "abcd", AcDbObjectId::kNull, 5.0));
    auto wide = std::make_unique<AcDbPolyline>();
    wide->addVertexAt(0, AcGePoint2d(0, 200), 0.0, 20.0, 20.0);
    wide->addVertexAt(1, AcGePoint2d(100, 200), 0.0, 20.0, 20.0);
    Draw(std::move(wide));
    auto* const dashes = new AcDbLinetypeTableRecord;
    dashes->setDashLengths({10, -10});
    auto dashed = LevelLine(300, {});
    dashed->setLinetype(Add<AcDbLinetypeTable>(Current()->database()->header().LTYPE_CONTROL_OBJECT,
                                               dashes, "dashes"));
    Draw(std::move(dashed));
    const AcDbObjectId label = AddBlock("label");
    AppendToBlock(label, std::make_unique<AcDbText>(AcGePoint3d(), "ab", AcDbObjectId::kNull, 9.0));
    auto mirrored = std::make_unique<AcDbBlockReference>(AcGePoint3d(0, 400, 0), label);
    mirrored->setScaleFactors({1, -1, 1});
    Draw(std::move(mirrored));
    static constexpr const char* kNothing = "no entity";
    const std::pair<const char*, const char*> cases[] = {
        {"50,2.9", "AcDbLine"},      {"50,3.1", kNothing},       {"102,1", "AcDbLine"},
        {"57.1,57.1", "AcDbCircle"}, {"50,50", kNothing},        {"10,102", "AcDbText"},
        {"10,98", "AcDbText"},       {"50,209", "AcDbPolyline"}, {"50,214", kNothing},
        {"40,300", "AcDbLine"},      {"50,300", kNothing},       {"5,393", "AcDbBlockReference"},
        {"5,405", kNothing},
    };
    for (const auto& [point, entity] : cases) {
        printed_.clear();
        EXPECT_EQ(Run(std::string("LIST ") + point), entity != kNothing) << point;
        EXPECT_THAT(printed_, HasSubstr(entity)) << point;
    }
}
