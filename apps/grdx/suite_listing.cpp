#include "apps/grdx/suite_listing.h"

#include <algorithm>
#include <set>

#include <nlohmann/json.hpp>

#include "apps/grdx/suite_access.h"
#include "lab/numbers.h"
#include "lab/suite_database.h"
#include "platform/win32/code_page.h"
#include "platform/win32/private_profile.h"
#include "src/facts/mark_keys.h"

namespace console {

namespace {
/// The samples of all tables, since a table may lack some.
constexpr const char* kSampleQuery = R"sql(
SELECT k.ZKBH, k.QYBH, q.QYSD, q.QYHD, r.QYBH IS NOT NULL, r.KLSYFF, r.KLTYZL,
       (SELECT COUNT(*) FROM Z_c_KeFenCSXM i
         WHERE i.GCSY = ? AND i.ZKBH = k.ZKBH AND i.QYBH = k.QYBH),
       r.KLD95, r.KLD90, r.KLD85, r.KLD60, r.KLD50, r.KLD30, r.KLD15, r.KLD10, r.KLBJXS, r.KLQLXS,
       r.KLHL
FROM (SELECT ZKBH, QYBH FROM z_c_QuYang WHERE GCSY = ?
      UNION SELECT ZKBH, QYBH FROM Z_c_KeFen WHERE GCSY = ?
      UNION SELECT ZKBH, QYBH FROM Z_c_KeFenCSXM WHERE GCSY = ?) k
LEFT JOIN z_c_QuYang q ON q.GCSY = ? AND q.ZKBH = k.ZKBH AND q.QYBH = k.QYBH
LEFT JOIN Z_c_KeFen r ON r.GCSY = ? AND r.ZKBH = k.ZKBH AND r.QYBH = k.QYBH
ORDER BY k.ZKBH, k.QYBH
)sql";
constexpr int kSampleQueryParameters = 6;  ///< each is the project
constexpr int kFirstResultColumn = 8;
constexpr const char* kResultNames[] = {"d95", "d90", "d85", "d60", "d50",       "d30",
                                        "d15", "d10", "Cu",  "Cc",  "finer0.005"};

constexpr const char* kLayerQuery =
    "SELECT ZCBH, YCBH, CSLX, CSV FROM x_SheJi WHERE GCSY = ? AND CSLX BETWEEN 1100 AND 1128 "
    "ORDER BY ZCBH, YCBH, CSLX";
constexpr int kLastClassCode = 1118;
/// Names of the codes from 1119 on.
constexpr const char* kLayerResultNames[] = {"d10", "d15", "d30", "d50", "d60",
                                             "d85", "d90", "d95", "Cc",  "Cu"};

/// Names that a mark profile lists under a key, in GBK.
std::set<std::string> Marks(const std::string& profile, const std::string& key) {
    const std::string value = win32::TextInProfile(profile, kSettingsSection, key);
    std::set<std::string> marks;
    std::size_t start = 0;
    while (start < value.size()) {
        const std::size_t end =
            std::min(win32::FindChar(value, kMarkSeparator, start), value.size());
        marks.insert(value.substr(start, end - start));
        start = end + 1;
    }
    return marks;
}

bool IsMarked(const std::set<std::string>& marks, const std::string& utf8) {
    return marks.contains(win32::GbkFromUtf8(utf8));
}

/// Floats as the charts read them: 0.086 instead of 0.08600000292…
std::optional<double> AsRead(const std::optional<double>& number) {
    return number ? lab::StoredNumber(*number) : std::nullopt;
}

SuiteListing::Sample ReadSample(const oledb::SqlStatement& row) {
    SuiteListing::Sample sample;
    sample.name = row.Text(1);
    sample.depth = AsRead(row.Number(2));
    sample.thickness = AsRead(row.Number(3));
    sample.hasResultRow = row.Integer(4) != 0;
    sample.method = row.Text(5);
    sample.total = AsRead(row.Number(6));
    sample.items = row.Integer(7);
    int column = kFirstResultColumn;
    for (const char* name : kResultNames) {
        sample.results.emplace_back(name, AsRead(row.Number(column++)));
    }
    return sample;
}

void ReadBoreholes(oledb::SqlDatabase& database, SuiteListing& listing) {
    const std::string profile = MarkProfile();
    const std::string number = win32::GbkFromUtf8(listing.project.number);
    const std::set<std::string> boreholeMarks = Marks(profile, BoreholeMarksKey(number));
    std::set<std::string> sampleMarks;
    oledb::SqlStatement rows(database, kSampleQuery);
    for (int parameter = 1; parameter <= kSampleQueryParameters; ++parameter) {
        rows.Bind(parameter, listing.project.index);
    }
    while (rows.Step()) {
        const std::string borehole = rows.Text(0);
        if (listing.boreholes.empty() || listing.boreholes.back().name != borehole) {
            listing.boreholes.push_back({borehole, IsMarked(boreholeMarks, borehole), {}});
            sampleMarks = Marks(profile, SampleMarksKey(number, win32::GbkFromUtf8(borehole)));
        }
        SuiteListing::Sample sample = ReadSample(rows);
        sample.drawn = IsMarked(sampleMarks, sample.name);
        listing.boreholes.back().samples.push_back(std::move(sample));
    }
}

void ReadLayers(oledb::SqlDatabase& database, SuiteListing& listing) {
    const std::set<std::string> marks =
        Marks(ProjectProfile(), LayerMarksKey(win32::GbkFromUtf8(listing.project.number)));
    oledb::SqlStatement rows(database, kLayerQuery);
    rows.Bind(1, listing.project.index);
    while (rows.Step()) {
        const std::string sub = rows.Integer(1) != 0 ? "-" + rows.Text(1) : "";
        const std::string label = rows.Text(0) + sub;
        if (listing.layers.empty() || listing.layers.back().label != label) {
            listing.layers.push_back({label, IsMarked(marks, label), 0, {}});
        }
        SuiteListing::Layer& layer = listing.layers.back();
        const int code = rows.Integer(2);
        if (code <= kLastClassCode) {
            ++layer.classes;
        } else {
            layer.results.emplace_back(kLayerResultNames[code - kLastClassCode - 1],
                                       lab::ParseNumber(rows.Text(3)));
        }
    }
}

std::string NumberText(const std::optional<double>& number) {
    return number ? nlohmann::ordered_json(*number).dump() : "-";
}

std::string ResultText(const SuiteListing::Results& results) {
    std::string text;
    for (const auto& [name, value] : results) {
        if (value) {
            text += std::string(" ") + name + "=" + NumberText(value);
        }
    }
    return text.empty() ? " no results" : text;
}

nlohmann::ordered_json NumberOrNull(const std::optional<double>& number) {
    return number ? nlohmann::ordered_json(*number) : nlohmann::ordered_json();
}

nlohmann::ordered_json ResultsAsJson(const SuiteListing::Results& results) {
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    for (const auto& [name, value] : results) {
        json[name] = NumberOrNull(value);
    }
    return json;
}
}  // namespace

SuiteListing ReadSuite() {
    SuiteListing listing;
    listing.project = CurrentProject();
    oledb::SqlDatabase database = lab::OpenProjectDatabase(oledb::Access::Read);
    ReadBoreholes(database, listing);
    ReadLayers(database, listing);
    return listing;
}

std::string DescribeSuite(const SuiteListing& listing) {
    const ProjectEntry& project = listing.project;
    std::string text = "project " + std::to_string(project.index) + " " + project.number + " \"" +
                       project.name + "\" code " + std::to_string(project.code) + "\n";
    for (const auto& borehole : listing.boreholes) {
        text += "borehole " + borehole.name + (borehole.drawn ? " (all drawn)" : "") + "\n";
        for (const auto& sample : borehole.samples) {
            text += std::string(sample.drawn ? "  * " : "    ") + sample.name + ": depth " +
                    NumberText(sample.depth) + " thickness " + NumberText(sample.thickness);
            text += sample.hasResultRow ? " " + sample.method + " total " + NumberText(sample.total)
                                        : " no result row";
            text += " sieves " + std::to_string(sample.items) + ResultText(sample.results) + "\n";
        }
    }
    for (const auto& layer : listing.layers) {
        text += std::string("layer ") + (layer.drawn ? "* " : "") + layer.label + ": classes " +
                std::to_string(layer.classes) + ResultText(layer.results) + "\n";
    }
    return text;
}

nlohmann::ordered_json SuiteAsJson(const SuiteListing& listing) {
    using Json = nlohmann::ordered_json;
    const ProjectEntry& project = listing.project;
    Json boreholes = Json::array();
    for (const auto& borehole : listing.boreholes) {
        Json samples = Json::array();
        for (const auto& sample : borehole.samples) {
            samples.push_back({{"sample", sample.name},
                               {"drawn", sample.drawn},
                               {"depth", NumberOrNull(sample.depth)},
                               {"thickness", NumberOrNull(sample.thickness)},
                               {"hasResultRow", sample.hasResultRow},
                               {"method", sample.method},
                               {"total", NumberOrNull(sample.total)},
                               {"sieves", sample.items},
                               {"results", ResultsAsJson(sample.results)}});
        }
        boreholes.push_back({{"borehole", borehole.name},
                             {"drawn", borehole.drawn},
                             {"samples", std::move(samples)}});
    }
    Json layers = Json::array();
    for (const auto& layer : listing.layers) {
        layers.push_back({{"layer", layer.label},
                          {"drawn", layer.drawn},
                          {"classes", layer.classes},
                          {"results", ResultsAsJson(layer.results)}});
    }
    return {{"project",
             {{"index", project.index},
              {"number", project.number},
              {"name", project.name},
              {"code", project.code}}},
            {"boreholes", std::move(boreholes)},
            {"layers", std::move(layers)}};
}

}  // namespace console
