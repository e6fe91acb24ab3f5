// What a run with a damaged template and a killed run leave behind.

#include <gtest/gtest.h>

#include "platform/db/AcDbLine.h"
#include "tests/platform/db/Opened.h"
#include "tests/system/Program.h"

namespace {

TEST(DamagedTemplate, DoesNotEndTheRun) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 2);
    AcDbDatabase drawing;
    auto* const layer = new AcDbLayerTableRecord;
    AcDbObjectId id;
    layer->setName("own");
    ASSERT_EQ(Opened<AcDbLayerTable>(drawing.header().LAYER_CONTROL_OBJECT)->add(id, layer),
              Acad::eOk);
    layer->setLinetypeObjectId(id);
    layer->close();
    drawing.setClayer(id);
    AppendTo(drawing, std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(0.4, 0, 0)));
    ASSERT_EQ(drawing.saveAs(scratch.Windows("suite\\Support\\gltka3.dwg").c_str()), Acad::eOk);
    const ProgramResult drawn = suite.Draw("ZK1");
    EXPECT_EQ(drawn.status, 0) << drawn.errors;
    ASSERT_EQ(suite.Sheets().size(), 2U);
    for (const auto& sheet : suite.Sheets()) {
        const ProgramResult info = RunProgram({GRDX_PROGRAM, "info", sheet});
        EXPECT_NE(info.output.find("AcDbBlockReference 1\n"), std::string::npos) << info.errors;
    }
}

TEST(KilledDraw, LeavesWholeSheetsAndASoundDatabase) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 0);
    ASSERT_EQ(suite.Draw("ZK1").status, 0);
    const std::size_t complete = suite.Sheets().size();
    int killed = 0;
    for (int run = 0; run < 40; ++run) {
        killed += suite.Draw("ZK1", run * 1000).status == -1 ? 1 : 0;
        ASSERT_EQ(suite.Sheets().size(), complete);
        for (const auto& sheet : suite.Sheets()) {
            const ProgramResult info = RunProgram({GRDX_PROGRAM, "info", sheet});
            EXPECT_NE(info.output.find("CKFCurve 2\n"), std::string::npos) << info.errors;
        }
        ASSERT_EQ(suite.Ask("PRAGMA integrity_check"), "ok\n");
    }
    EXPECT_GT(killed, 5);
    EXPECT_EQ(suite.Draw("ZK1").status, 0);
}

}  // namespace
