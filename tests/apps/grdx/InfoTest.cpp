#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/system/Program.h"

using Json = nlohmann::json;
using testing::HasSubstr;

TEST(InfoTest, ACurveIsReadWithAllItsFields) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 0);
    ASSERT_EQ(suite.Draw("ZK1").status, 0);
    const std::string sheet = suite.Sheets().front();
    const Json info =
        Json::parse(RunProgram({GRDX_PROGRAM, "info", "--json", "--layers", sheet}).output);
    EXPECT_EQ(info["file"], sheet);
    EXPECT_EQ(info["version"], "AC1015");
    EXPECT_EQ(info["codepage"], 936);
    EXPECT_EQ(info["entities"]["CKFCurve"], 2);

    const Json& curve = info["curves"][0];
    EXPECT_EQ(curve["gridOrigin"], Json::array({57.5, 240.75, 0.0}));
    EXPECT_EQ(curve["curvePoints"].size(), 7U) << "eight sieves, the pan has no point";
    EXPECT_EQ(curve["curvePoints"][0][1], 240.75) << "nothing is retained on the coarsest sieve";
    EXPECT_EQ(curve["labelPoints"].size(), 5U);
    EXPECT_EQ(curve["chartType"], 0);
    EXPECT_EQ(curve["projectIndex"], 1);
    EXPECT_EQ(curve["projectNumber"], "2026-017");
    EXPECT_EQ(curve["borehole"], "ZK1");
    EXPECT_EQ(curve["sample"], "1");
    EXPECT_EQ(curve["wideAxis"], 0);
    EXPECT_NEAR(curve["decadeLength"], 120.0 / 5.30103, 1e-4);
    EXPECT_EQ(curve["gridWidth"], 120.0);
    EXPECT_EQ(curve["gridHeight"], 50.0);
    EXPECT_NEAR(curve["textHeight"], 2.4, 1e-12);
    EXPECT_EQ(curve["diameters"].size(), 8U);
    EXPECT_EQ(curve["diameters"][6], -1.0) << "clay has no d10";
    EXPECT_EQ(curve["modified"], false);
    EXPECT_EQ(curve["colorIndex"], 257);
    EXPECT_EQ(curve["savingAs"], 0);
    EXPECT_EQ(curve["textStyle"], "QV_FONT");
    EXPECT_TRUE(curve["mainLayer"].is_null()) << "a sample's curve has no layer numbers";
    EXPECT_EQ(curve.size(), 21U);
}

TEST(InfoTest, FilesThatAreNoDrawingsAreNamedAndTheOthersTold) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", 0);
    const std::string drawing = scratch.Path() / "suite/Support/Drawing.dwg";
    const std::string profile = scratch.Path() / "suite/suite.ini";
    const ProgramResult run = RunProgram({GRDX_PROGRAM, "info", "missing.dwg", profile, drawing});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("missing.dwg"));
    EXPECT_THAT(run.errors, HasSubstr(profile));
    EXPECT_EQ(run.output, drawing + ": AC1015, code page 936\n");
}
