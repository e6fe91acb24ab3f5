#include "apps/grdx/suite_listing.h"

#include <iterator>
#include <map>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "lab/checks/findings_json.h"
#include "lab/numbers.h"
#include "lab/results/result_tables.h"
#include "lab/results/soil_shares.h"
#include "lab/sample_record.h"

namespace console {

namespace {
using Json = nlohmann::ordered_json;
/// Stored results by their names: diameters in mm, Cu, Cc, and for samples "finer0.005" in percent.
using Results = std::vector<std::pair<const char*, std::optional<double>>>;

constexpr int kLastClassCode = 1118;
/// Names of the codes from 1119 on.
constexpr const char* kLayerResultNames[] = {"d10", "d15", "d30", "d50", "d60",
                                             "d85", "d90", "d95", "Cc",  "Cu"};

Results ResultsOf(const lab::StoredResults& stored) {
    const auto& diameters = stored.diameters;
    return {{"d95", diameters[kD95]}, {"d90", diameters[kD90]},          {"d85", diameters[kD85]},
            {"d60", diameters[kD60]}, {"d50", diameters[kD50]},          {"d30", diameters[kD30]},
            {"d15", diameters[kD15]}, {"d10", diameters[kD10]},          {"Cu", stored.uniformity},
            {"Cc", stored.curvature}, {"finer0.005", stored.finePercent}};
}

std::size_t ClassesOf(const lab::ProjectLayer& layer) {
    return static_cast<std::size_t>(
        std::distance(layer.values.begin(), layer.values.upper_bound(kLastClassCode)));
}

Results ResultsOf(const lab::ProjectLayer& layer) {
    Results results;
    for (auto value = layer.values.upper_bound(kLastClassCode); value != layer.values.end();
         ++value) {
        results.emplace_back(kLayerResultNames[value->first - kLastClassCode - 1],
                             lab::ParseNumber(value->second));
    }
    return results;
}

std::string NumberText(const std::optional<double>& number) {
    return number ? Json(*number).dump() : "-";
}

std::string ResultText(const Results& results) {
    std::string text;
    for (const auto& [name, value] : results) {
        if (value) {
            text += std::string(" ") + name + "=" + NumberText(value);
        }
    }
    return text.empty() ? " no results" : text;
}

std::string DescribeSample(const lab::ProjectSample& sample) {
    const lab::Sample& data = sample.stored.data;
    return std::string(sample.drawn ? "  * " : "    ") + data.sample + ": depth " +
           NumberText(data.depth) + " thickness " + NumberText(data.thickness) +
           (sample.stored.hasResultRow ? " " + data.method + " total " + NumberText(data.total)
                                       : " no result row") +
           " sieves " + std::to_string(data.items.size()) + ResultText(ResultsOf(sample.results)) +
           "\n";
}

Json NumberOrNull(const std::optional<double>& number) {
    return number ? Json(*number) : Json();
}

Json ResultsAsJson(const Results& results) {
    Json json = Json::object();
    for (const auto& [name, value] : results) {
        json[name] = NumberOrNull(value);
    }
    return json;
}

/// What can be computed of a sample's data; null where they are faulty.
void AddComputed(const lab::Sample& sample, int standardCode, Json& json) {
    const std::optional<GrainSizeRecord> record = lab::RecordOf(sample);
    const lab::SoilShares shares = record ? lab::SoilSharesOf(*record) : lab::SoilShares{};
    Json passing = Json::array();
    if (record) {
        for (const auto& [size, percent] : lab::PercentFinerOf(*record)) {
            passing.push_back({{"size", size}, {"percent", percent}});
        }
    }
    json["passing"] = record ? std::move(passing) : Json();
    json["shares"] = {{"gravel", NumberOrNull(shares.gravel)},
                      {"sand", NumberOrNull(shares.sand)},
                      {"silt", NumberOrNull(shares.silt)},
                      {"clay", NumberOrNull(shares.clay)}};
    json["soil"] = record ? Json(lab::SoilNameOf(*record, standardCode)) : Json();
}

Json SampleAsJson(const lab::ProjectSample& sample, int standardCode) {
    const lab::Sample& data = sample.stored.data;
    Json json = {{"sample", data.sample},
                 {"drawn", sample.drawn},
                 {"depth", NumberOrNull(data.depth)},
                 {"thickness", NumberOrNull(data.thickness)},
                 {"hasResultRow", sample.stored.hasResultRow},
                 {"method", data.method},
                 {"total", NumberOrNull(data.total)},
                 {"sieves", data.items.size()},
                 {"results", ResultsAsJson(ResultsOf(sample.results))}};
    AddComputed(data, standardCode, json);
    return json;
}

Json BoreholesAsJson(const lab::ProjectData& data, const lab::FindingList& findings) {
    std::map<std::pair<std::string, std::string>, lab::FindingList> bySample =
        lab::FindingsBySample(findings);
    Json boreholes = Json::array();
    for (const lab::ProjectSample& sample : data.samples) {
        const lab::Sample& key = sample.stored.data;
        if (boreholes.empty() || boreholes.back()["borehole"] != key.borehole) {
            boreholes.push_back({{"borehole", key.borehole},
                                 {"drawn", data.IsDrawn(key.borehole)},
                                 {"samples", Json::array()}});
        }
        Json& json = boreholes.back()["samples"].emplace_back(
            SampleAsJson(sample, data.project.profile.code));
        json["findings"] = lab::FindingsAsJson(bySample[{key.borehole, key.sample}]);
    }
    return boreholes;
}
}  // namespace

std::string DescribeSuite(const lab::ProjectData& data) {
    const lab::ProjectFacts& project = data.project.profile;
    std::string text = "project " + std::to_string(data.project.index) + " " + project.number +
                       " \"" + project.name + "\" code " + std::to_string(project.code) + "\n";
    const std::string* borehole = nullptr;
    for (const lab::ProjectSample& sample : data.samples) {
        const std::string& name = sample.stored.data.borehole;
        if (borehole == nullptr || *borehole != name) {
            text += "borehole " + name + (data.IsDrawn(name) ? " (all drawn)" : "") + "\n";
        }
        borehole = &name;
        text += DescribeSample(sample);
    }
    for (const lab::ProjectLayer& layer : data.layers) {
        text += std::string("layer ") + (layer.drawn ? "* " : "") + layer.label + ": classes " +
                std::to_string(ClassesOf(layer)) + ResultText(ResultsOf(layer)) + "\n";
    }
    return text;
}

Json SuiteAsJson(const lab::ProjectData& data, const lab::FindingList& findings) {
    const lab::ProjectFacts& project = data.project.profile;
    Json layers = Json::array();
    for (const lab::ProjectLayer& layer : data.layers) {
        layers.push_back({{"layer", layer.label},
                          {"drawn", layer.drawn},
                          {"classes", ClassesOf(layer)},
                          {"results", ResultsAsJson(ResultsOf(layer))}});
    }
    return {{"project",
             {{"index", data.project.index},
              {"number", project.number},
              {"name", project.name},
              {"code", project.code}}},
            {"boreholes", BoreholesAsJson(data, findings)},
            {"layers", std::move(layers)}};
}

}  // namespace console
