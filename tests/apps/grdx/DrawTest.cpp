// Charts drawn by the console program, and what stands against them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include <nlohmann/json.hpp>

#include "platform/win32/code_page.h"
#include "tests/system/Program.h"

namespace fs = std::filesystem;
using Json = nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {
/// The sample project; its number is 2026-017.
class DrawTest : public testing::Test {
protected:
    explicit DrawTest(int standardCode = 0)
        : folder_(scratch_.Path() / "suite"), suite_(folder_, standardCode) {}

    ProgramResult Grdx(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), GRDX_PROGRAM);
        arguments.insert(arguments.end(), {"-s", folder_});
        return RunProgram(arguments);
    }
    ProgramResult DrawSamples(const std::string& borehole,
                              const std::vector<std::string>& options) const {
        std::vector<std::string> arguments = {"draw", "samples", "--borehole", borehole};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Grdx(arguments);
    }
    /// The sheets that a run has named, each checked to be there, without folder.
    std::vector<std::string> SheetNames(const ProgramResult& run) const {
        std::vector<std::string> names;
        std::istringstream lines(run.output);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_EQ(fs::path(line).parent_path(), ChartFolder());
            EXPECT_TRUE(fs::is_regular_file(line)) << line;
            names.push_back(fs::path(line).filename());
        }
        return names;
    }
    fs::path ChartFolder() const { return folder_ / "output" / "2026-017" / "室内曲线"; }
    Json List() const { return Json::parse(Grdx({"list", "--json"}).output); }
    Json Sample(const std::string& borehole, const std::string& name) const {
        const Json list = List();
        for (const Json& hole : list["boreholes"]) {
            for (const Json& sample : hole["samples"]) {
                if (hole["borehole"] == borehole && sample["sample"] == name) {
                    return sample;
                }
            }
        }
        ADD_FAILURE() << borehole << " " << name << " is not listed";
        return {};
    }
    /// Replaces a text in a file of the suite folder.
    void Edit(const std::string& name, const std::string& from, const std::string& to) const {
        std::string text = FileBytes(folder_ / name);
        const std::size_t place = text.find(from);
        ASSERT_NE(place, std::string::npos) << name << " lacks " << from;
        std::ofstream(folder_ / name, std::ios::binary) << text.replace(place, from.size(), to);
    }
    std::string Settings() const { return win32::Utf8FromGbk(FileBytes(folder_ / "settings.ini")); }

    ScratchFolder scratch_;
    fs::path folder_;
    SampleSuite suite_;
};

class DrawA3Test : public DrawTest {
protected:
    DrawA3Test() : DrawTest(2) {}
};
}  // namespace

TEST_F(DrawTest, SheetsAreNamedAsTheyAreSavedAndResultsStored) {
    const ProgramResult run = DrawSamples(
        "ZK2", {"--sample", "3-1", "--sample", "1-2", "--sample", "2-10", "--sample", "1-2"});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(SheetNames(run), ElementsAre("KFZK2-1-2~ZK2-2-10.dwg", "KFZK2-3-1.dwg"));
    const Json drawn = Sample("ZK2", "2-10");
    EXPECT_TRUE(drawn["drawn"]);
    const auto result = [&](const char* name) { return drawn["results"][name].get<double>(); };
    EXPECT_NEAR(result("Cu"), result("d60") / result("d10"), 0.05);
    EXPECT_NEAR(result("Cc"), std::pow(result("d30"), 2) / result("d60") / result("d10"), 0.05);
    EXPECT_EQ(drawn["depth"], 7.7);
    EXPECT_EQ(drawn["thickness"], 0.2);
    EXPECT_TRUE(Sample("ZK2", "2-1")["results"]["d60"].is_null());
    EXPECT_FALSE(Sample("ZK2", "2-1")["drawn"]);

    const ProgramResult rest = DrawSamples("ZK2", {"--all"});
    EXPECT_EQ(SheetNames(rest).size(), 4U);
    EXPECT_TRUE(List()["boreholes"][1]["drawn"]);
}

TEST_F(DrawTest, ChoicesAreRememberedUntilTheyAreTakenBack) {
    const std::vector<std::string> one = {"--sample", "1"};
    auto with = [&](std::initializer_list<std::string> options) {
        std::vector<std::string> all = one;
        all.insert(all.end(), options);
        return DrawSamples("ZK1", all);
    };
    EXPECT_EQ(with({"--tester", "王工", "--unit", "试验室", "--date", "2026-05-20", "--right-axis"})
                  .status,
              0);
    EXPECT_THAT(Settings(), HasSubstr("bZB=1\nbJWKX=0\n"));
    EXPECT_THAT(Settings(), HasSubstr("bWCDW=1\nbSYZ=1\nbJCZ=0\nbRQ=1\nsWCDW=试验室\nsSYZ=王工\n"));
    EXPECT_EQ(with({"--no-tester", "--outer-frame"}).status, 0);
    EXPECT_THAT(Settings(), HasSubstr("bZB=1\nbJWKX=1\n"));
    EXPECT_THAT(Settings(), HasSubstr("bWCDW=1\nbSYZ=0\n"));
    EXPECT_THAT(Settings(), HasSubstr("sSYZ=王工\n"));
    EXPECT_EQ(with({"--no-right-axis", "--no-outer-frame"}).status, 0);
    EXPECT_THAT(Settings(), HasSubstr("bZB=0\nbJWKX=0\n"));
}

TEST_F(DrawTest, NamesThatSheetsCannotHaveAreToldBeforeAnythingIsDrawn) {
    const struct {
        const char* renamed;   ///< which item rows of the sample project to what
        const char* borehole;  ///< of which all samples are drawn; null: all layers
        const char* named;
    } cases[] = {
        {"QYBH='x/../../y' WHERE ZKBH='ZK1' AND QYBH='8'", "ZK1", "试样编号“x/../../y”含有字符“/”"},
        {"QYBH='1234567890123' WHERE ZKBH='ZK1' AND QYBH='8'", "ZK1",
         "“123456789012…”超过12个字符"},
        {"QYBH='*7' WHERE ZKBH='ZK1' AND QYBH='8'", "ZK1", "试样编号“*7”含有字符“*”"},
        {"QYBH='한' WHERE ZKBH='ZK1' AND QYBH='8'", "ZK1", "GBK以外的字符"},
        {"ZKBH='Z=1' WHERE ZKBH='ZK1'", "Z=1", "钻孔编号“Z=1”含有字符“=”"},
        {"ZKBH='zk1', QYBH='8' WHERE ZKBH='ZK2' AND QYBH='1-1'", "ZK1",
         "钻孔“ZK1”与钻孔“zk1”仅大小写不同"},
        {"QYBH='a' WHERE ZKBH='ZK1' AND QYBH='8'; UPDATE Z_c_KeFenCSXM SET QYBH='A' WHERE "
         "ZKBH='ZK1' AND QYBH='7'",
         "ZK1", "钻孔“ZK1”试样“A”与钻孔“ZK1”试样“a”的图形文件同名：KFZK1-A.dwg"},
        {"ZKBH='Sj2', QYBH='2' WHERE ZKBH='ZK1' AND QYBH='8'", "Sj2",
         "钻孔“Sj2”试样“2”与土层“2-2”的图形文件同名：KFSj2-2.dwg"},
        {"ZKBH='ZK2-3' WHERE ZKBH='ZK1' AND QYBH='1'", "ZK2",
         "钻孔“ZK2”试样“3-1”与钻孔“ZK2-3”试样“1”"},
        {"ZKBH='SJ2', QYBH='1_4' WHERE ZKBH='ZK1' AND QYBH='8'", nullptr,
         "土层“2-1”与钻孔“SJ2”试样“1_4”的图形文件同名：KFSJ2-1_4.dwg"},
        {"QYBH='1~ZK1-2' WHERE ZKBH='ZK1' AND QYBH='8'", "ZK1", "试样“1~ZK1-2”与钻孔“ZK1”试样“1”"},
    };
    suite_.Ask("CREATE TABLE sound AS SELECT * FROM Z_c_KeFenCSXM");
    const std::string marks = FileBytes(folder_ / "marks.ini");
    for (const auto& c : cases) {
        suite_.Ask(std::string("UPDATE Z_c_KeFenCSXM SET ") + c.renamed);
        const ProgramResult run = c.borehole != nullptr ? DrawSamples(c.borehole, {"--all"})
                                                        : Grdx({"draw", "layers", "--all"});
        EXPECT_EQ(run.status, 1) << c.named;
        EXPECT_THAT(run.errors, HasSubstr(c.named));
        EXPECT_THAT(run.errors, testing::EndsWith("grdx: nothing was drawn\n"));
        suite_.Ask("DELETE FROM Z_c_KeFenCSXM");
        suite_.Ask("INSERT INTO Z_c_KeFenCSXM SELECT * FROM sound");
    }
    EXPECT_TRUE(suite_.Sheets().empty());
    EXPECT_EQ(FileBytes(folder_ / "marks.ini"), marks);
}

TEST_F(DrawTest, WhatIsNotOfferedIsRefusedByNameBeforeAnythingIsDrawn) {
    struct Case {
        const char* borehole;
        std::vector<std::string> options;
        const char* named;
    };
    const Case cases[] = {
        {"ZK9", {"--all"}, "borehole \"ZK9\""},
        {"ZK1", {"--sample", "1", "--sample", "99"}, "sample \"99\""},
        {"ZK1", {"--sample", "1-1"}, "sample \"1-1\""},
        {"ZK1", {"--sample", "한"}, "sample \"한\""},
        {"ZK1", {"--sample", "1", "--recompute"}, "--recompute"},
        {"ZK1", {"--sample", "1", "--tester", "\xF0\x9F\x98\x80"}, "--tester"},
    };
    const std::string settings = Settings();
    for (const Case& row : cases) {
        const ProgramResult run = DrawSamples(row.borehole, row.options);
        EXPECT_EQ(run.status, 1) << row.named;
        EXPECT_EQ(run.output, "");
        EXPECT_THAT(run.errors, HasSubstr(row.named));
    }
    EXPECT_FALSE(fs::exists(folder_ / "output"));
    EXPECT_EQ(Settings(), settings);
    EXPECT_FALSE(Sample("ZK1", "1")["drawn"]);
    const ProgramResult layer = Grdx({"draw", "layers", "--layer", "2-3"});
    EXPECT_EQ(layer.status, 1);
    EXPECT_THAT(layer.errors, HasSubstr("layer \"2-3\""));
}

TEST_F(DrawTest, ChartsThatAreNotDrawnAreNamed) {
    suite_.Ask("DELETE FROM Z_c_KeFen WHERE ZKBH='ZK1' AND QYBH='4'");
    const ProgramResult missing = DrawSamples("ZK1", {"--all"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(SheetNames(missing), ElementsAre("KFZK1-1~ZK1-2.dwg"));
    EXPECT_EQ(
        missing.errors,
        "grdx: 3 sheets not made; not drawn: 3, 4, 5, 6, 7, 8\n"
        "grdx: sample \"4\" of borehole \"ZK1\": it has no row of results (table Z_c_KeFen)\n");

    suite_.Ask("UPDATE Z_c_KeFen SET KLTYZL = NULL WHERE QYBH='5'");
    EXPECT_THAT(DrawSamples("ZK1", {"--sample", "5"}).errors, HasSubstr("has no total mass"));
    suite_.Ask("UPDATE Z_c_KeFen SET KLTYZL = 1 WHERE QYBH='6'");
    EXPECT_EQ(DrawSamples("ZK1", {"--sample", "6"}).errors,
              "筛余质量的和大于试样的总质量，请检查数据表中的数据！\n"
              "grdx: 1 sheet not made; not drawn: 6\n");
}

TEST_F(DrawTest, CellsThatCannotBeReadAreNamedAndNothingIsDrawnStoredOrUnmarked) {
    ASSERT_EQ(DrawSamples("ZK1", {"--all"}).status, 0);
    ASSERT_EQ(Grdx({"draw", "layers", "--all"}).status, 0);
    for (const char* table : {"Z_c_KeFenCSXM", "x_SheJi"}) {  // as without keys of its own
        suite_.Ask(std::string("CREATE TABLE t AS SELECT * FROM ") + table + "; DROP TABLE " +
                   table + "; ALTER TABLE t RENAME TO " + table);
    }
    fs::remove_all(ChartFolder());
    struct Case {
        const char* row;
        const char* column;
        const char* value;
        bool layers;
        const char* told;
    };
    const char* const kItem = "Z_c_KeFenCSXM WHERE ZKBH='ZK1' AND QYBH='3' AND XH=5";
    const char* const kLayer = "x_SheJi WHERE ZCBH=2 AND YCBH=1 AND CSLX=1108";
    const Case cases[] = {
        {kItem, "KLSYZL", "'12g'", false,
         "不能打开颗分试验项目表,请检查数据!\ngrdx: Z_c_KeFenCSXM, GCSY=1, ZKBH=ZK1, QYBH=3, XH=5: "
         "KLSYZL=12g: not of the column's type\n"},
        {kItem, "XH", "NULL", false, "QYBH=3, XH=null: XH=null: a value is needed"},
        {kItem, "ZKBH", "NULL", false, "ZKBH=null: a value is needed"},
        {kItem, "QYBH", "x'33'", false, "QYBH=(binary data): not of the column's type"},
        {"Z_c_KeFen WHERE ZKBH='ZK1' AND QYBH='1'", "KL20", "'-'", false,
         "不能打开颗分试验表!请检查!\n"},
        {kLayer, "ZCBH", "300", true, "ZCBH=300: out of the range"},
        {kLayer, "YCBH", "NULL", true, "YCBH=null: a value is needed"},
    };
    const auto traces = [&] {
        return FileBytes(folder_ / "marks.ini") + FileBytes(folder_ / "project.ini") +
               suite_.Ask("SELECT * FROM Z_c_KeFen") + suite_.Ask("SELECT * FROM x_SheJi");
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.row) + " " + c.column);
        fs::copy_file(suite_.Database(), scratch_.Path() / "sound.db",
                      fs::copy_options::overwrite_existing);
        std::string update = std::string("UPDATE ") + c.row;
        update.insert(update.find(" WHERE"), std::string(" SET ") + c.column + "=" + c.value);
        suite_.Ask(update);
        const std::string before = traces();
        const ProgramResult run =
            c.layers ? Grdx({"draw", "layers", "--all"}) : DrawSamples("ZK1", {"--all"});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_THAT(run.errors, HasSubstr(c.told));
        EXPECT_EQ(traces(), before);
        fs::copy_file(scratch_.Path() / "sound.db", suite_.Database(),
                      fs::copy_options::overwrite_existing);
    }
    // The table of the depths is read for A3 sheets alone; an empty number is a missing one.
    suite_.Ask("UPDATE z_c_QuYang SET QYSD='1,5' WHERE ZKBH='ZK1' AND QYBH='1'");
    EXPECT_EQ(DrawSamples("ZK1", {"--sample", "1"}).status, 0);
    Edit("project.ini", "GCBZ=0", "GCBZ=2");
    const ProgramResult deep = DrawSamples("ZK1", {"--sample", "1"});
    EXPECT_EQ(deep.status, 1);
    EXPECT_THAT(deep.errors, HasSubstr("QYBH=1: QYSD=\"1,5\": not of the column's type"));
    EXPECT_THAT(Grdx({"list"}).errors, HasSubstr("column QYSD: \"1,5\" is no number"));
    suite_.Ask("UPDATE Z_c_KeFenCSXM SET KLSYZL='' WHERE ZKBH='ZK1' AND QYBH='2' AND XH=5");
    EXPECT_THAT(DrawSamples("ZK1", {"--sample", "2"}).errors,
                testing::StartsWith("颗分试验项目表数据不全，请检查!\n"));
}

TEST_F(DrawTest, ALayerThatIsGoneWhenItsTurnComesIsNamed) {
    suite_.Ask(
        "CREATE TRIGGER lose AFTER INSERT ON x_SheJi WHEN NEW.ZCBH=2 AND NEW.YCBH=1 "
        "BEGIN DELETE FROM x_SheJi WHERE ZCBH=3; END");
    const ProgramResult run = Grdx({"draw", "layers", "--all"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(SheetNames(run), ElementsAre("KFSJ1~2-1.dwg"));
    EXPECT_EQ(run.errors,
              "grdx: 2 sheets not made; not drawn: 2-2, 3-1, 3-2, 4\n"
              "grdx: layer \"3-1\": it has no design values any more (table x_SheJi)\n");
}

TEST_F(DrawTest, WhatStandsInTheWayOfTheCommandIsToldAsItStands) {
    Edit("project.ini", "GCSJ=0", "GCSJ=1");
    const ProgramResult unchecked = DrawSamples("ZK1", {"--all"});
    EXPECT_EQ(unchecked.status, 1);
    EXPECT_THAT(
        unchecked.errors,
        StartsWith("工程数据没有进行[数据合法性检查]，\n"
                   "请到主模块执行[数检]命令后再试此功能！\nProject 2026-017 滨江新城一期\n\n"
                   "Project profile (GCSJ): not checked\n"
                   "Table x_GongCheng (GCSJ): checked\n"));
    EXPECT_THAT(unchecked.errors, EndsWith("marks it as checked.\ngrdx: nothing was drawn\n"));
    Edit("project.ini", "GCSJ=1", "GCSJ=0");
    Edit("project.ini", "GCSY=1", "GCSY=65537");
    const ProgramResult far = DrawSamples("ZK1", {"--all"});
    EXPECT_EQ(far.status, 1);
    EXPECT_THAT(far.errors, HasSubstr("工程“2026-017”的序号 65537"));
    EXPECT_EQ(Grdx({"list"}).status, 0);
    Edit("project.ini", "GCSY=65537", "GCSY=1");
    std::ofstream(folder_ / "output") << "a file where a folder must be";
    const ProgramResult noFolder = DrawSamples("ZK1", {"--sample", "1"});
    EXPECT_EQ(noFolder.status, 1);
    EXPECT_THAT(noFolder.errors, HasSubstr("不能新建目录."));
    EXPECT_THAT(noFolder.errors, HasSubstr("output/2026-017: Not a directory"));
}

TEST_F(DrawTest, FaultsOfFilesAreNamedOnce) {
    fs::create_directories(ChartFolder() / "KFZK1-1.dwg" / "x");
    const ProgramResult unsaved = DrawSamples("ZK1", {"--sample", "1"});
    EXPECT_EQ(unsaved.status, 1);
    EXPECT_THAT(unsaved.errors, HasSubstr((ChartFolder() / "KFZK1-1.dwg").string()));

    fs::rename(folder_ / "marks.ini", folder_ / "kept.ini");
    fs::create_directory(folder_ / "marks.ini");
    const ProgramResult unmarked = DrawSamples("ZK1", {"--sample", "3"});
    EXPECT_EQ(unmarked.status, 1) << "a mark is lost";
    EXPECT_THAT(unmarked.errors, HasSubstr((folder_ / "marks.ini").string() + ": "));
    fs::remove(folder_ / "marks.ini");
    fs::rename(folder_ / "kept.ini", folder_ / "marks.ini");

    fs::remove(folder_ / "Support/Drawing.dwg");
    const ProgramResult noBlank = DrawSamples("ZK1", {"--sample", "2"});
    EXPECT_EQ(noBlank.status, 1);
    const std::size_t first = noBlank.errors.find("Drawing.dwg");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(noBlank.errors.find("Drawing.dwg", first + 1), std::string::npos);
}

TEST_F(DrawTest, ResultsThatCannotBeStoredFailTheRun) {
    // The row is there when the chart reads it and gone when the percentages are stored.
    suite_.Ask(
        "CREATE TRIGGER lose AFTER UPDATE OF KLD60 ON Z_c_KeFen "
        "BEGIN DELETE FROM Z_c_KeFen WHERE QYBH = NEW.QYBH; END");
    const ProgramResult run = DrawSamples("ZK1", {"--sample", "8"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("所占的百分比入库失败!"));
    EXPECT_THAT(SheetNames(run), ElementsAre("KFZK1-8.dwg"));
}

TEST_F(DrawA3Test, SixChartsShareASheetOnTheTemplate) {
    const ProgramResult run = DrawSamples("ZK3", {"--all"});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.errors, "数据库z_c_QuYang取样编号3数据QYHD不全!\n");
    EXPECT_THAT(SheetNames(run), ElementsAre("KFZK3-1_ZK3-6.dwg", "KFZK3-7.dwg"));
    const Json info = Json::parse(
        RunProgram({GRDX_PROGRAM, "info", "--json", ChartFolder() / "KFZK3-1_ZK3-6.dwg"}).output);
    EXPECT_EQ(info["entities"]["CKFCurve"], 6);
    EXPECT_EQ(info["entities"]["AcDbBlockReference"], 1);
    EXPECT_EQ(info["curves"][5]["sample"], "6");
    EXPECT_EQ(info["curves"][5]["wideAxis"], 1) << "boulders";

    std::ofstream(folder_ / "Support/gltka3.dwg") << "no drawing";
    const ProgramResult damaged = DrawSamples("ZK3", {"--sample", "7"});
    EXPECT_EQ(damaged.status, 1) << "the sheet lacks its template";
    EXPECT_THAT(damaged.errors, HasSubstr("gltka3.dwg"));
}

TEST_F(DrawTest, LayersHaveChartsOfTheirOwn) {
    const ProgramResult run = Grdx({"draw", "layers", "--layer", "4", "--layer", "2-1"});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(SheetNames(run), ElementsAre("KFSJ2-1~4.dwg"));
    const Json listed = List()["layers"];
    for (const Json& layer : listed) {
        EXPECT_EQ(layer["drawn"], layer["layer"] == "4" || layer["layer"] == "2-1") << layer;
    }
    const fs::path sheet = ChartFolder() / "KFSJ2-1~4.dwg";
    const Json asSamples = Json::parse(RunProgram({GRDX_PROGRAM, "info", "--json", sheet}).output);
    EXPECT_FALSE(asSamples["curves"][0].contains("mainLayer"));
    const Json asLayers =
        Json::parse(RunProgram({GRDX_PROGRAM, "info", "--json", "--layers", sheet}).output);
    EXPECT_EQ(asLayers["curves"][0]["mainLayer"], 2);
    EXPECT_EQ(asLayers["curves"][0]["subLayer"], 1);
    EXPECT_EQ(asLayers["curves"][1]["mainLayer"], 4);
    EXPECT_EQ(asLayers["curves"][1]["subLayer"], 0);
    const Json results = List()["layers"].back()["results"];
    EXPECT_NEAR(results["Cu"], results["d60"].get<double>() / results["d10"].get<double>(), 0.05);
}
