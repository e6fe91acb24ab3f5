#include "src/frame/CKFEditorReactor.h"

#include "platform/ed/entity_selection.h"
#include "tests/src/frame/FrameFixture.h"

namespace {

using Texts = std::vector<std::string>;
using CKFEditorReactorTest = FrameFixture;

TEST_F(CKFEditorReactorTest, AsksBeforeLeavingAChangedCurveOnly) {
    acedEditor->tellCommandWillStart("OPEN");
    CurveDataChanged = 1;
    for (const char* command : {"ZOOM", "open", "SGRDX", "OPENX"}) {
        acedEditor->tellCommandWillStart(command);
    }
    EXPECT_TRUE(Boxes().empty());

    for (const char* command :
         {"OPEN", "NEW", "QUIT", "ZJGEN", "ZJEDIT", "GJGEN", "GJEDIT", "GJSJGEN", "GJSJEDIT",
          "SZJQ", "SZOPEN", "CGRDX", "EGRDX", "CLGRDX", "ELGRDX"}) {
        CurveDataChanged = 1;
        Windows().AddAnswer(Box(IDNO));
        acedEditor->tellCommandWillStart(command);
        acedEditor->tellCommandWillStart(command);
        EXPECT_EQ(Boxes(), Texts{"颗分图中有关数据已改变,是否入库?"})
            << command << ": declined once is declined";
        EXPECT_EQ(CurveDataChanged, 0);
    }
}

TEST_F(CKFEditorReactorTest, AgreeingStartsTheStoreOnItsBehalf) {
    CurveDataChanged = 1;
    int storing = 0;
    const auto before = ed::SetPickSource([&storing](const char*, AcDbObjectId&, ads_point) {
        storing = StoreFromReactor;
        return false;
    });
    Windows().AddAnswer(Box(IDYES));
    acedEditor->tellCommandWillStart("ELGRDX");
    ed::SetPickSource(before);
    EXPECT_EQ(storing, 1);
    EXPECT_EQ(StoreFromReactor, 0);
    EXPECT_EQ(CurveDataChanged, 1) << "nothing picked, nothing stored";
    EXPECT_EQ(Printed(), "什么也没有选中.\n");
}

}  // namespace
