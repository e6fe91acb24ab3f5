#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "src/chart/CDrawTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/db/AcDbHostApplicationServices.h"
#include "tests/src/RecordedMessages.h"
#include "tests/src/TestProject.h"
#include "tests/src/chart/FoundFonts.h"
#include "tests/src/chart/SheetDump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CDrawTools, LinesAreDrawnBetweenTheirPoints) {
    AcDbDatabase drawing;
    const CDrawTools tools;
    tools.DrawLine(1, 2, 3, 4, &drawing);
    tools.DrawWideLine(1, 2, 3, 4, 0.9, 7, &drawing);
    EXPECT_THAT(Dump(drawing), ElementsAre("line 1,2 3,4", "polyline 3,4 1,2 w0.9"));
}

TEST(CDrawTools, WithoutTargetTheWorkingDrawingIsMeant) {
    const CDrawTools tools;
    AcDbObjectId id;
    AcDbLine line;
    EXPECT_EQ(tools.AddToModelSpace(&line, id), Acad::eNoDatabase);
    tools.DrawLine(1, 2, 3, 4, nullptr);  // nowhere to go

    AcDbDatabase working;
    acdbHostApplicationServices()->setWorkingDatabase(&working);
    tools.DrawLine(1, 2, 3, 4, nullptr);
    tools.DrawText(nullptr, 1, 2, "a", 3);
    AcDbObjectId layer;
    tools.CreateLayer("X", layer, nullptr, false);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_THAT(Dump(working), ElementsAre("line 1,2 3,4", "text 1,2.3 h2.4 a"));
    EXPECT_EQ(layer.database(), &working);
}

TEST(CDrawTools, SolidDotsFollowTheirCircle) {
    AcDbDatabase drawing;
    CDrawTools().DrawSolidDot(10, 20, 0.5, 1, &drawing);
    EXPECT_THAT(Dump(drawing), ElementsAre("circle 10,20 r0.5 color 1", "hatch SOLID color 1"));
    std::vector<AcDbObjectId> ids;
    AcDbObjectIdArray reactors;
    AcDbObjectIdArray boundaries;
    VisitModelSpace(drawing, [&](const AcDbEntity& entity) {
        ids.push_back(entity.objectId());
        if (const auto* hatch = dynamic_cast<const AcDbHatch*>(&entity)) {
            hatch->getAssocObjIds(boundaries);
            EXPECT_TRUE(hatch->isSolidFill());
        } else {
            reactors = entity.persistentReactors();
        }
    });
    EXPECT_THAT(std::vector<AcDbObjectId>(boundaries.begin(), boundaries.end()),
                ElementsAre(ids[0]));
    EXPECT_THAT(std::vector<AcDbObjectId>(reactors.begin(), reactors.end()), ElementsAre(ids[1]));
}

TEST(CDrawTools, LayersAreMadeOnce) {
    AcDbDatabase drawing;
    const CDrawTools tools;
    AcDbObjectId first;
    tools.CreateLayer("", first, &drawing, false);
    EXPECT_TRUE(first.isNull());
    tools.CreateLayer("ZZT_TC", first, &drawing, true);
    AcDbObjectId second;
    tools.CreateLayer("zzt_tc", second, &drawing, false);
    EXPECT_EQ(first, second);
    EXPECT_TRUE(Opened<AcDbLayerTableRecord>(first)->isOff());
    EXPECT_EQ(drawing.setClayer(first), Acad::eOk);
}

TEST(CDrawTools, TextStylesNeedTheirFonts) {
    AcDbDatabase drawing;
    const AcDbObjectId before = drawing.textstyle();
    const RecordedMessages messages;
    const CDrawTools tools;
    AcDbObjectId id;
    EXPECT_EQ(tools.CreateTextStyleId("S", "ComFont.shx", "Hztxt.shx", &drawing, id), 0);
    EXPECT_TRUE(id.isNull());
    {
        const FoundFonts fonts;
        EXPECT_EQ(tools.CreateTextStyle("S", "ComFont.shx", "missing.shx", &drawing), 0);
    }
    EXPECT_THAT(messages.Boxes(),
                ElementsAre("未找到形文件ComFont.shx", "未找到形文件missing.shx"));
    EXPECT_EQ(drawing.textstyle(), before);
}

TEST(CDrawTools, TextStylesBecomeCurrent) {
    const FoundFonts fonts;
    AcDbDatabase drawing;
    const CDrawTools tools;
    AcDbObjectId first;
    EXPECT_EQ(tools.CreateTextStyleId("S", "ComFont.shx", "Hztxt.shx", &drawing, first), 1);
    EXPECT_EQ(drawing.textstyle(), first);
    EXPECT_EQ(tools.CreateTextStyle("T", "ComFont.shx", "st64f.shx", &drawing), 1);
    EXPECT_NE(drawing.textstyle(), first);
    // An existing style is taken as it is.
    EXPECT_EQ(tools.CreateTextStyle("S", "st64f.shx", "st64f.shx", &drawing), 1);
    EXPECT_EQ(drawing.textstyle(), first);
    const Opened<AcDbTextStyleTableRecord> style(first);
    EXPECT_STREQ(style->fileName(), "ComFont.shx");
    EXPECT_STREQ(style->bigFontFileName(), "Hztxt.shx");
}

TEST(CDrawTools, DrawingsAreInsertedAsBlocks) {
    const TestProject project;
    const std::string path = (project.Folder() / std::string(210, 'f')).string() + ".dwg";
    {
        AcDbDatabase source;
        CDrawTools().DrawLine(0, 0, 0.42, 0, &source);
        ASSERT_EQ(source.saveAs(path.c_str()), Acad::eOk) << source.lastFileError();
    }
    AcDbDatabase drawing;
    const CDrawTools tools;
    tools.InsertDrawingAsBlock(path, 1, 2, 0, 1000, &drawing);
    EXPECT_THAT(Dump(drawing), ElementsAre("block 1,2 s1000"));
    VisitModelSpace(drawing, [&path](const AcDbEntity& entity) {
        const Opened<AcDbBlockTableRecord> record(
            dynamic_cast<const AcDbBlockReference&>(entity).blockTableRecord());
        EXPECT_EQ(record->name(), path);
        EXPECT_EQ(record->entityIds().size(), 1U);
    });

    AcDbDatabase other;
    tools.InsertDrawingAsBlock(path + ".missing", 0, 0, 0, 1, &other);
    EXPECT_THAT(Dump(other), IsEmpty());
}

}  // namespace
