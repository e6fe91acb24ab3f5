// Sheets are read by programs that are not ours, and what these find is compared with the drawing
// database entity for entity.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/ge/AcGeCubicSplineCurve3d.h"
#include "tests/system/Program.h"
#include "tests/system/SheetEntities.h"

namespace {

using Json = nlohmann::json;

constexpr double kSame = 1e-9;
/// What the reader answers when a drawing holds a class that it does not know, and nothing is
/// wrong.
constexpr int kClassUnknown = 4;

void ExpectSamePlaces(const SheetEntity& ours, const std::vector<AcGePoint3d>& theirs,
                      double tolerance) {
    ASSERT_EQ(ours.points.size(), theirs.size());
    for (std::size_t i = 0; i < theirs.size(); ++i) {
        EXPECT_LE(ours.points[i].distanceTo(theirs[i]), tolerance);
    }
}

std::vector<AcGePoint3d> PointsOf(const Json& points) {
    std::vector<AcGePoint3d> result;
    for (const Json& p : points) {
        result.emplace_back(p[0].get<double>(), p[1].get<double>(), p[2].get<double>());
    }
    return result;
}

/// What a program printed, an object of JSON a line.
std::vector<Json> JsonLines(const ProgramResult& run) {
    EXPECT_EQ(run.status, 0) << run.errors;
    std::vector<Json> found;
    std::istringstream lines(run.output);
    for (std::string line; std::getline(lines, line);) {
        found.push_back(Json::parse(line));
    }
    return found;
}

/// Compares an entity with one that a reader printed as JSON.
void CompareEntity(const SheetEntity& ours, const Json& theirs) {
    SCOPED_TRACE(theirs.dump());
    EXPECT_EQ(ours.kind, theirs["kind"]);
    EXPECT_EQ(ours.layer, theirs["layer"]);
    EXPECT_EQ(ours.color, theirs["color"]);
    ExpectSamePlaces(ours, PointsOf(theirs["points"]), kSame);
    if (ours.kind == "TEXT") {
        EXPECT_EQ(ours.text, theirs["text"]);
        EXPECT_NEAR(ours.height, theirs["height"], kSame);
    } else if (ours.kind == "CIRCLE") {
        EXPECT_NEAR(ours.radius, theirs["radius"], kSame);
    } else if (ours.kind == "HATCH") {
        EXPECT_NEAR(ours.radius, theirs["radii"][0], kSame);
        EXPECT_EQ(theirs["solid"], 1);
        EXPECT_EQ(theirs["associative"], 1);
    }
}

/// Whether the file lists the curve's class with everything allowed to a proxy of it.
void ExpectCurveClass(const Json& classes) {
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [](const Json& c) { return c["dxf"] == "CKFCURVE"; });
    ASSERT_NE(found, classes.end());
    EXPECT_EQ((*found)["cpp"], "CKFCurve");
    EXPECT_EQ((*found)["entity"], true);
    EXPECT_EQ((*found)["flags"], 255);
}

/// Compares with what the first reader printed of a sheet; gives the number of entities compared.
std::size_t CompareWithJson(const std::vector<SheetEntity>& ours, const Json& theirs) {
    EXPECT_EQ(theirs["error"], theirs["unknown"] == 0 ? 0 : kClassUnknown);
    EXPECT_EQ(theirs["modelSpaceCount"], ours.size());
    std::size_t next = 0;
    std::size_t curves = 0;
    for (const SheetEntity& entity : ours) {
        if (entity.kind == "CKFCURVE") {
            ++curves;
        } else {
            CompareEntity(entity, theirs["entities"].at(next++));
        }
    }
    EXPECT_EQ(next, theirs["entities"].size());
    EXPECT_EQ(curves, theirs["unknown"]);
    ExpectCurveClass(theirs["classes"]);
    return next;
}

/// Compares with what the third reader printed, which has an order of its own and leaves out the
/// curves; gives the number of entities compared.
std::size_t CompareByHandle(const std::vector<SheetEntity>& ours, const Json& theirs) {
    std::map<unsigned long long, const Json*> byHandle;
    for (const Json& entity : theirs["entities"]) {
        byHandle[entity["handle"].get<unsigned long long>()] = &entity;
    }
    std::size_t compared = 0;
    for (const SheetEntity& entity : ours) {
        if (entity.kind == "CKFCURVE") {
            continue;
        }
        const auto found = byHandle.find(entity.handle);
        if (found == byHandle.end()) {
            ADD_FAILURE() << "no entity " << std::hex << entity.handle;
            continue;
        }
        CompareEntity(entity, *found->second);
        ++compared;
    }
    EXPECT_EQ(compared, theirs["entities"].size());
    return compared;
}

/// One feature as the second reader prints it.
struct Feature {
    std::string layer;
    std::string kind;
    std::string color;
    std::string text;
    std::vector<AcGePoint3d> points;
};

std::vector<AcGePoint3d> PointsOfWellKnownText(const std::string& line) {
    std::vector<AcGePoint3d> points;
    std::istringstream numbers(line.substr(line.find('(') + 1));
    AcGePoint3d p;
    char comma = 0;
    while (numbers >> p.x >> p.y >> p.z) {
        points.push_back(p);
        numbers >> comma;
    }
    return points;
}

std::string ValueOf(const std::string& line) {
    return line.substr(line.find(" = ") + 3);
}

std::vector<Feature> ReadFeatures(const std::filesystem::path& sheet) {
    const ProgramResult read = RunProgram({"ogrinfo", "-ro", "-al", "-q", sheet});
    EXPECT_EQ(read.status, 0);
    EXPECT_EQ(read.errors, "") << sheet;
    std::vector<Feature> features;
    std::istringstream lines(read.output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("OGRFeature(")) {
            features.push_back({line.substr(11, line.rfind(')') - 11), {}, {}, {}, {}});
        } else if (line.starts_with("  cadgeom_type")) {
            features.back().kind = ValueOf(line);
        } else if (line.starts_with("  color")) {
            features.back().color = ValueOf(line);
        } else if (line.starts_with("  text")) {
            features.back().text = ValueOf(line);
        } else if (line.starts_with("  POINT") || line.starts_with("  LINESTRING") ||
                   line.starts_with("  CIRCULARSTRING")) {
            features.back().points = PointsOfWellKnownText(line);
        }
    }
    return features;
}

/// How the second reader shows our kinds; those missing here it does not show.
const std::map<std::string, std::string> kFeatureKinds{{"LINE", "CADLine"},
                                                       {"TEXT", "CADText"},
                                                       {"LWPOLYLINE", "CADLWPolyline"},
                                                       {"CIRCLE", "CADCircle"},
                                                       {"SPLINE", "CADSpline"}};
/// Its colours of ours; 7 is also that of the layer.
const std::map<int, std::string> kFeatureColors{
    {1, "#FF0000FF"}, {3, "#00FF00FF"}, {7, "#FFFFFFFF"}, {256, "#FFFFFFFF"}};

void ExpectSameFeature(const SheetEntity& ours, const Feature& theirs) {
    EXPECT_EQ(ours.layer, theirs.layer);
    EXPECT_EQ(kFeatureColors.at(ours.color), theirs.color);
    EXPECT_EQ(ours.text, theirs.text);
    constexpr double kPrinted = 1e-9;
    if (ours.kind == "CIRCLE") {
        ASSERT_FALSE(theirs.points.empty());
        const AcGePoint3d left = ours.points[0] - AcGeVector3d(ours.radius, 0.0, 0.0);
        EXPECT_LE(left.distanceTo(theirs.points[0]), kPrinted);
    } else if (ours.kind == "SPLINE") {
        EXPECT_TRUE(theirs.points.empty()) << "it shows splines by control points only";
    } else {
        ExpectSamePlaces(ours, theirs.points, kPrinted);
    }
}

/// Whether the pieces, in their order, are what an exploded curve becomes: its spline and a text a
/// label, each where the curve had it.
void ExpectPiecesOf(const Json& curve, const SheetEntity* pieces) {
    EXPECT_EQ(pieces->kind, "SPLINE");
    EXPECT_EQ(pieces->color, 3);
    ExpectSamePlaces(*pieces, PointsOf(curve["curvePoints"]), 0.0);
    for (const AcGePoint3d& place : PointsOf(curve["labelPoints"])) {
        ++pieces;
        EXPECT_EQ(pieces->kind, "TEXT");
        EXPECT_EQ(pieces->height, curve["textHeight"]);
        ExpectSamePlaces(*pieces, {place}, 0.0);
    }
}

/// What a decoder that is not ours makes of the curves' proxy graphics.
std::vector<Json> DecodeGraphics(const std::filesystem::path& sheet,
                                 const std::filesystem::path& scratch) {
    const std::filesystem::path list = scratch / "graphics";
    std::ofstream lines(list);
    for (const std::vector<std::uint8_t>& graphics : ReadCurveGraphics(sheet)) {
        for (const std::uint8_t byte : graphics) {
            constexpr const char* kDigits = "0123456789abcdef";
            lines << kDigits[byte >> 4U] << kDigits[byte & 0xFU];
        }
        lines << '\n';
    }
    lines.close();
    const std::string script = std::string(GRDX_READERS) + "/decode_proxy_graphics.py";
    return JsonLines(
        RunProgram({"sh", "-c", "/usr/bin/python3 '" + script + "' < '" + list.string() + "'"}));
}

/// The distance of a point from a polyline.
double DistanceFrom(const std::vector<AcGePoint3d>& line, const AcGePoint3d& point) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const AcGeVector3d along = line[i + 1] - line[i];
        const double part =
            std::clamp((point - line[i]).dotProduct(along) / along.dotProduct(along), 0.0, 1.0);
        least = std::min(least, point.distanceTo(line[i] + along * part));
    }
    return least;
}

/// Whether the graphics show what the curve becomes when it is exploded: a polyline that nowhere
/// leaves the spline by more than a hundredth of a millimetre, and the labels that have a text.
void ExpectGraphicsLike(const Json& graphics, std::vector<SheetEntity> pieces) {
    std::erase_if(pieces, [](const SheetEntity& e) { return e.kind == "TEXT" && e.text.empty(); });
    ASSERT_EQ(graphics.size(), pieces.size());
    EXPECT_EQ(graphics[0]["kind"], "POLYLINE");
    EXPECT_EQ(graphics[0]["color"], pieces[0].color);
    const std::vector<AcGePoint3d> drawn = PointsOf(graphics[0]["points"]);
    const AcGeCubicSplineCurve3d course(pieces[0].points);
    constexpr int kSteps = 5000;
    for (int i = 0; i <= kSteps; ++i) {
        const AcGePoint3d place = course.evalPoint(course.endParam() * i / kSteps);
        ASSERT_LT(DistanceFrom(drawn, place), 0.01) << place.x << ',' << place.y;
    }
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const Json& label = graphics[i];
        SCOPED_TRACE(label.dump());
        EXPECT_EQ(label["kind"], "TEXT");
        EXPECT_EQ(label["text"], pieces[i].text);
        EXPECT_EQ(label["color"], pieces[i].color);
        EXPECT_EQ(label["height"], pieces[i].height);
        ExpectSamePlaces(pieces[i], PointsOf(label["points"]), 0.0);
        EXPECT_EQ(label["rotation"], 0.0);
        EXPECT_EQ(label["width"], 0.7);
        EXPECT_EQ(label["font"], "comfont.shx");
        EXPECT_EQ(label["bigFont"], "hztxt.shx");
    }
}

/// What the reader shows of the entities: it puts a block's content in place of its reference.
std::vector<SheetEntity> ShownAsFeatures(const std::vector<SheetEntity>& entities) {
    std::vector<SheetEntity> shown;
    for (const SheetEntity& entity : entities) {
        if (entity.kind == "INSERT") {
            const std::vector<SheetEntity> content = ShownAsFeatures(entity.content);
            shown.insert(shown.end(), content.begin(), content.end());
        } else if (kFeatureKinds.contains(entity.kind)) {
            shown.push_back(entity);
        }
    }
    return shown;
}

/// Compares in order; gives how many were compared.
std::size_t CompareWithFeatures(const std::vector<SheetEntity>& entities,
                                const std::vector<Feature>& theirs) {
    const std::vector<SheetEntity> ours = ShownAsFeatures(entities);
    EXPECT_EQ(ours.size(), theirs.size());
    const std::size_t count = std::min(ours.size(), theirs.size());
    for (std::size_t i = 0; i < count; ++i) {
        SCOPED_TRACE("feature " + std::to_string(i));
        EXPECT_EQ(kFeatureKinds.at(ours[i].kind), theirs[i].kind);
        ExpectSameFeature(ours[i], theirs[i]);
    }
    return count;
}

std::vector<SheetEntity> UpToFirstCurve(const std::vector<SheetEntity>& entities) {
    std::vector<SheetEntity> result;
    for (const SheetEntity& entity : entities) {
        if (entity.kind == "CKFCURVE") {
            break;
        }
        result.push_back(entity);
    }
    return result;
}

class IndependentReaders : public testing::TestWithParam<int> {};

/// What a reader script prints of the drawings, one a line.
std::vector<Json> RunReader(const char* script,
                            const std::vector<std::filesystem::path>& drawings) {
    std::vector<std::string> command{"node", std::string(GRDX_READERS) + "/" + script};
    command.insert(command.end(), drawings.begin(), drawings.end());
    std::vector<Json> found = JsonLines(RunProgram(command));
    EXPECT_EQ(found.size(), drawings.size());
    found.resize(drawings.size());
    return found;
}

TEST_P(IndependentReaders, FindTheEntitiesOfEverySheet) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", GetParam());
    for (const std::string& borehole : SampleBoreholes()) {
        EXPECT_EQ(suite.Draw(borehole).status, 0);
    }
    const std::vector<std::filesystem::path> sheets = suite.Sheets();
    const std::vector<Json> first = RunReader("read_dwg.mjs", sheets);
    const std::vector<Json> third = RunReader("read_dwg_dxfrw.mjs", sheets);
    std::size_t byJson = 0;
    std::size_t byFeatures = 0;
    std::size_t byHandle = 0;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        SCOPED_TRACE(sheets[i].string());
        const std::vector<SheetEntity> ours = ReadSheet(sheets[i]);
        byJson += CompareWithJson(ours, first[i]);
        byHandle += CompareByHandle(ours, third[i]);

        // The second reader stops at the first object of a class it does not know. It has to find
        // what stands before that in the sheet, and everything in a copy without the curves.
        CompareWithFeatures(UpToFirstCurve(ours), ReadFeatures(sheets[i]));
        const auto copy = scratch.Path() / "copy.dwg";
        CopyWithoutCurves(sheets[i], copy);
        std::vector<SheetEntity> plain = ours;
        std::erase_if(plain, [](const SheetEntity& e) { return e.kind == "CKFCURVE"; });
        byFeatures += CompareWithFeatures(plain, ReadFeatures(copy));
    }
    EXPECT_GT(byJson, 3000U);
    EXPECT_EQ(byHandle, byJson);
    EXPECT_GT(byFeatures, 3000U);
    std::printf(
        "%zu sheets: %zu entities compared with libredwg, %zu with libdxfrw, %zu with GDAL\n",
        sheets.size(), byJson, byHandle, byFeatures);
}

TEST_P(IndependentReaders, FindTheCurvesOfAnExplodedSheetWhereTheyWere) {
    const ScratchFolder scratch;
    const SampleSuite suite(scratch.Path() / "suite", GetParam());
    EXPECT_EQ(suite.Draw("ZK1").status, 0);
    const std::filesystem::path sheet = suite.Sheets().front();
    const std::filesystem::path exploded = scratch.Path() / "exploded.dwg";
    const std::filesystem::path script = scratch.Path() / "script";
    const Json curves =
        Json::parse(RunProgram({GRDX_PROGRAM, "info", "--json", sheet}).output)["curves"];
    std::ofstream lines(script);
    lines << "OPEN " << sheet.string() << '\n';
    for (const Json& curve : curves) {
        lines << "EXPLODE #" << curve["handle"].get<std::string>() << '\n';
    }
    lines << "SAVEAS " << exploded.string() << '\n';
    lines.close();
    const ProgramResult run = RunProgram({GRDX_PROGRAM, "script", script, "-s", suite.Folder()});
    ASSERT_EQ(run.status, 0) << run.errors;

    const std::vector<SheetEntity> ours = ReadSheet(exploded);
    const std::size_t piecesEach = 1 + curves[0]["labelPoints"].size();
    EXPECT_EQ(piecesEach, GetParam() == 2 ? 8U : 6U);
    const std::size_t others = ReadSheet(sheet).size() - curves.size();
    ASSERT_EQ(ours.size(), others + curves.size() * piecesEach);
    const std::vector<Json> graphics = DecodeGraphics(sheet, scratch.Path());
    ASSERT_EQ(graphics.size(), curves.size());
    for (std::size_t i = 0; i < curves.size(); ++i) {
        SCOPED_TRACE("curve " + std::to_string(i));
        const SheetEntity* pieces = &ours[others + i * piecesEach];
        ExpectPiecesOf(curves[i], pieces);
        ExpectGraphicsLike(graphics[i], {pieces, pieces + piecesEach});
    }
    CompareWithJson(ours, RunReader("read_dwg.mjs", {exploded})[0]);
    CompareByHandle(ours, RunReader("read_dwg_dxfrw.mjs", {exploded})[0]);
    CompareWithFeatures(ours, ReadFeatures(exploded));
}

INSTANTIATE_TEST_SUITE_P(SheetSizes, IndependentReaders, testing::Values(0, 2),
                         [](const auto& size) { return size.param == 2 ? "A3" : "A4"; });

}  // namespace
