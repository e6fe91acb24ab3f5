// What a second identical run and a killed run leave behind.

#include <gtest/gtest.h>

#include <map>

#include "platform/db/AcDbLine.h"
#include "tests/platform/db/Opened.h"
#include "tests/system/Program.h"
#include "tests/system/SheetEntities.h"

namespace {

/// Everything a run leaves, by file name, and the stored results.
std::map<std::string, std::string> Traces(const SampleSuite& suite) {
    std::map<std::string, std::string> traces;
    for (const auto& sheet : suite.Sheets()) {
        traces[sheet.filename()] = FileBytes(sheet);
    }
    for (const char* profile : {"marks.ini", "settings.ini", "project.ini"}) {
        traces[profile] = FileBytes(suite.Folder() / profile);
    }
    traces["results"] = suite.Ask("SELECT * FROM Z_c_KeFen ORDER BY ZKBH,QYBH");
    return traces;
}

TEST(RepeatedDraw, LeavesTheSameBytesMarksSettingsAndResults) {
    for (const int code : {0, 2}) {
        const ScratchFolder scratch;
        const SampleSuite suite(scratch.Path() / "suite", code);
        const std::string before = Traces(suite)["results"];
        ASSERT_EQ(suite.Draw("ZK1").status, 0);
        auto first = Traces(suite);
        EXPECT_NE(first["results"], before);
        EXPECT_NE(first["marks.ini"].find("KFQX2026-017ZK1=1@2@3@4@5@6@7@8"), std::string::npos)
            << first["marks.ini"];
        EXPECT_NE(first["marks.ini"].find("KFQX2026-017=ZK1"), std::string::npos);
        EXPECT_NE(first["settings.ini"].find("bJWKX=1"), std::string::npos);
        ASSERT_EQ(suite.Draw("ZK1").status, 0);
        EXPECT_TRUE(Traces(suite) == first) << "code " << code;
    }
}

TEST(RepeatedDraw, StoresWhatTheSheetShows) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 0);
    ASSERT_EQ(suite.Draw("ZK1").status, 0);
    // As the labels of sample 7 read on its sheet, each to its last digit.
    EXPECT_EQ(
        suite.Ask("SELECT abs(KLD60-9.68)<0.0051,abs(KLD30-1.85)<0.0051,abs(KLD10-0.211)<0.0006,"
                  "abs(KLBJXS-45.87)<0.0051,abs(KLQLXS-1.685)<0.0006 FROM Z_c_KeFen"
                  " WHERE ZKBH='ZK1' AND QYBH='7'"),
        "1|1|1|1|1\n");
    const std::string sums = suite.Ask(
        "SELECT count(*) FROM Z_c_KeFen WHERE ZKBH='ZK1' AND abs("
        "KL800+KL400+KL200+KL60+KL40+KL20+KL10+KL5+KL2+KL_5+KL_25+KL_1"
        "+KL_075+KL_074+KL_05+KL_01+KL_005+KL_002+KL0) BETWEEN 1 AND"
        " 100.0011");
    EXPECT_EQ(sums, "8\n");
}

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
    EXPECT_EQ(ReadSheet(suite.Sheets()[0])[0].content.size(), 1U);
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
            EXPECT_GT(ReadSheet(sheet).size(), 200U) << sheet;
        }
        ASSERT_EQ(suite.Ask("PRAGMA integrity_check"), "ok\n");
    }
    EXPECT_GT(killed, 5);
    EXPECT_EQ(suite.Draw("ZK1").status, 0);
}

}  // namespace
