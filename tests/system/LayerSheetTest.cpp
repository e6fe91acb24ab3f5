// A sheet of layers opened where nothing says that it is one.

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/system/Program.h"

namespace {

using Json = nlohmann::json;

Json CurvesOf(const std::filesystem::path& sheet) {
    const ProgramResult read = RunProgram({GRDX_PROGRAM, "info", "--layers", "--json", sheet});
    EXPECT_EQ(read.status, 0) << read.errors;
    return Json::parse(read.output)["curves"];
}

// Without a chart mode a curve is read as a sample's, which has no layer numbers.
TEST(LayerSheet, KeepsItsLayerNumbersWhenItIsEditedInAnotherMode) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 2);
    const std::string layers = std::string(GRDX_SAMPLES) + "/layers.csv";
    ASSERT_EQ(RunProgram({GRDX_PROGRAM, "import", "layers", layers, "-s", suite.Folder()}).status,
              0);
    ASSERT_EQ(RunProgram({GRDX_PROGRAM, "draw", "layers", "--all", "-s", suite.Folder()}).status,
              0);
    const std::filesystem::path sheet = suite.Sheets().front();
    const Json before = CurvesOf(sheet);
    ASSERT_GE(before.size(), 2U);

    const std::filesystem::path edited = scratch.Path() / "edited.dwg";
    const std::filesystem::path script = scratch.Path() / "script";
    std::ofstream(script) << "OPEN " << sheet.string() << "\nGRIP #"
                          << before[0]["handle"].get<std::string>() << " 1 0,0.5\nSAVEAS "
                          << edited.string() << '\n';
    const ProgramResult run = RunProgram({GRDX_PROGRAM, "script", script, "-s", suite.Folder()});
    ASSERT_EQ(run.status, 0) << run.errors;

    Json after = CurvesOf(edited);
    EXPECT_NE(after[0]["curvePoints"], before[0]["curvePoints"]);
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_GT(before[i]["mainLayer"], 0);
        EXPECT_EQ(after[i]["mainLayer"], before[i]["mainLayer"]) << i;
        EXPECT_EQ(after[i]["subLayer"], before[i]["subLayer"]) << i;
    }
    // All other curves are what they were.
    after.erase(0);
    EXPECT_EQ(after, Json(before.begin() + 1, before.end()));
}

}  // namespace
