#include "lab/draw_choice.h"

#include <algorithm>
#include <map>
#include <utility>

#include "lab/Failure.h"

namespace lab {

namespace {
template <class Value>
bool Contains(const std::vector<Value>& values, const Value& value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

[[noreturn]] void ThrowNotOffered(const std::string& sample, const std::string& borehole) {
    throw Failure("sample \"" + sample + "\" is not offered for borehole \"" + borehole + '"');
}

/// What can be drawn of one borehole, with the marks.
using Offered = std::vector<const ProjectSample*>;

std::vector<std::string> ChosenOf(const Offered& offered, const std::string& borehole,
                                  const DrawChoice& choice) {
    for (const std::string& sample : choice.samples) {
        if (std::none_of(offered.begin(), offered.end(), [&](const ProjectSample* candidate) {
                return candidate->stored.data.sample == sample;
            })) {
            ThrowNotOffered(sample, borehole);
        }
    }
    std::vector<std::string> chosen;
    for (const ProjectSample* const sample : offered) {
        const std::string& name = sample->stored.data.sample;
        if ((choice.allSamples || Contains(choice.samples, name)) &&
            !(choice.undrawn && sample->drawn)) {
            chosen.push_back(name);
        }
    }
    return chosen;
}
}  // namespace

std::vector<BoreholeSamples> ChosenSamples(const ProjectData& data, const DrawChoice& choice) {
    std::map<std::string, Offered> offered;
    std::vector<std::string> boreholes = choice.boreholes;
    for (const ProjectSample& sample : data.samples) {
        const std::string& borehole = sample.stored.data.borehole;
        if (sample.stored.data.items.empty()) {
            continue;
        }
        offered[borehole].push_back(&sample);
        if (choice.allBoreholes && (boreholes.empty() || boreholes.back() != borehole)) {
            boreholes.push_back(borehole);
        }
    }
    std::vector<BoreholeSamples> chosen;
    for (const std::string& borehole : boreholes) {
        const auto found = offered.find(borehole);
        if (found == offered.end()) {
            throw Failure("borehole \"" + borehole + "\" is not offered");
        }
        std::vector<std::string> samples = ChosenOf(found->second, borehole, choice);
        const bool isNew =
            std::none_of(chosen.begin(), chosen.end(),
                         [&](const BoreholeSamples& other) { return other.borehole == borehole; });
        if (isNew && !samples.empty()) {
            chosen.push_back({borehole, std::move(samples)});
        }
    }
    return chosen;
}

FindingList TakeOutFaulty(const FindingList& findings, std::vector<BoreholeSamples>& chosen) {
    FindingList project;
    std::map<std::pair<std::string, std::string>, const Finding*> faulty;
    for (const Finding& finding : findings) {
        if (finding.severity != Severity::kError || finding.layer) {
            continue;
        }
        if (finding.sample) {
            faulty.try_emplace({*finding.borehole, *finding.sample}, &finding);
        } else {
            project.push_back(finding);
        }
    }
    if (!project.empty()) {
        chosen.clear();
        return project;
    }
    FindingList takenOut;
    for (BoreholeSamples& borehole : chosen) {
        std::erase_if(borehole.samples, [&](const std::string& sample) {
            const auto found = faulty.find({borehole.borehole, sample});
            if (found != faulty.end()) {
                takenOut.push_back(*found->second);
            }
            return found != faulty.end();
        });
    }
    std::erase_if(chosen, [](const BoreholeSamples& borehole) { return borehole.samples.empty(); });
    return takenOut;
}

}  // namespace lab
