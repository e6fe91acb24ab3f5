#include "lab/results/ags_text.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "lab/results/result_tables.h"
#include "lab/sample_record.h"
#include "platform/win32/number_text.h"
#include "src/core/number_format.h"

namespace lab {

namespace {
/// Types of values, by their names in the form, with what they are.
enum Type : int { kId, kText, kCode, kUnitCode, kTypeCode, kDate, k2DP, k0DP, k3SF, k1SF, kNumber };
constexpr std::pair<const char*, const char*> kTypes[] = {{"ID", "Unique identifier"},
                                                          {"X", "Text"},
                                                          {"PA", "Text listed in ABBR group"},
                                                          {"PU", "Text listed in UNIT group"},
                                                          {"PT", "Text listed in TYPE group"},
                                                          {"DT", "Date in international format"},
                                                          {"2DP", "Value; 2 decimal places"},
                                                          {"0DP", "Value; no decimal places"},
                                                          {"3SF", "Value; 3 significant figures"},
                                                          {"1SF", "Value; 1 significant figure"},
                                                          {"XN", "Text or numeric"}};
constexpr std::pair<const char*, const char*> kUnits[] = {{"m", "metre"},
                                                          {"mm", "millimetre"},
                                                          {"%", "percentage"},
                                                          {"g", "gram"},
                                                          {"yyyy-mm-dd", "year month day"}};

struct Heading {
    const char* name;
    const char* unit;
    Type type;
};
using Headings = std::vector<Heading>;

const Heading kLocation{"LOCA_ID", "", kId};
const Headings kSampleKeys{kLocation,
                           {"SAMP_TOP", "m", k2DP},
                           {"SAMP_REF", "", kText},
                           {"SAMP_TYPE", "", kCode},
                           {"SAMP_ID", "", kId}};
const Headings kSpecimenKeys{{"SPEC_REF", "", kText}, {"SPEC_DPTH", "m", k2DP}};

Headings operator+(Headings left, const Headings& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// Writes groups line by line.
class GroupWriter {
public:
    void Begin(const char* name, Headings headings) {
        if (!text_.empty()) {
            text_ += "\r\n";
        }
        headings_ = std::move(headings);
        AddLine("GROUP", {name});
        std::vector<std::string> names;
        std::vector<std::string> units;
        std::vector<std::string> types;
        for (const Heading& heading : headings_) {
            names.emplace_back(heading.name);
            units.emplace_back(heading.unit);
            types.emplace_back(kTypes[heading.type].first);
        }
        AddLine("HEADING", names);
        AddLine("UNIT", units);
        AddLine("TYPE", types);
    }
    /// Values of the headings in their order; those of headings at the end may be missing.
    void Add(std::vector<std::string> values) {
        values.resize(headings_.size());
        AddLine("DATA", values);
    }
    const std::string& Text() const { return text_; }

private:
    void AddLine(const char* descriptor, const std::vector<std::string>& values) {
        text_ += Quoted(descriptor);
        for (const std::string& value : values) {
            text_ += ',' + Quoted(value);
        }
        text_ += "\r\n";
    }
    /// No value may hold a line break.
    static std::string Quoted(const std::string& value) {
        std::string quoted = "\"";
        for (const char c : value) {
            quoted.append(c == '"' ? 2 : 1, c == '\r' || c == '\n' ? ' ' : c);
        }
        return quoted + '"';
    }

    std::string text_;
    Headings headings_;
};

std::string Decimals(const std::optional<double>& value, int decimals) {
    return value ? FormatFixed(*value, decimals) : "";
}

/// With trailing zeros: 0.0750.
std::string Figures(const std::optional<double>& value, int figures) {
    if (!value || *value <= 0.0) {
        return "";
    }
    int decimals = figures - 1 - static_cast<int>(std::floor(std::log10(*value)));
    const double step = std::pow(10.0, -decimals);
    const double rounded = std::round(*value / step) * step;
    decimals = figures - 1 - static_cast<int>(std::floor(std::log10(rounded) + 1e-9));
    return FormatFixed(rounded, std::max(decimals, 0));
}

std::vector<std::string> KeyOf(const Sample& sample) {
    return {sample.borehole, Decimals(sample.depth, 2), sample.sample, "", ""};
}

void AddProject(const ProjectFacts& project, const std::string& date, GroupWriter& groups) {
    groups.Begin("PROJ", {{"PROJ_ID", "", kId}, {"PROJ_NAME", "", kText}});
    groups.Add({project.number, project.name});
    groups.Begin("TRAN", {{"TRAN_ISNO", "", kText},
                          {"TRAN_DATE", "yyyy-mm-dd", kDate},
                          {"TRAN_PROD", "", kText},
                          {"TRAN_STAT", "", kText},
                          {"TRAN_DESC", "", kText},
                          {"TRAN_AGS", "", kText},
                          {"TRAN_RECV", "", kText},
                          {"TRAN_DLIM", "", kText},
                          {"TRAN_RCON", "", kText}});
    groups.Add({"1", date, "GRDX", "Preliminary", "Grain size distributions", "4.1.1",
                "Not specified", "|", "+"});
}

/// The groups that explain what is used in the others.
void AddVocabulary(GroupWriter& groups) {
    groups.Begin("TYPE", {{"TYPE_TYPE", "", kText}, {"TYPE_DESC", "", kText}});
    for (const auto& [type, description] : kTypes) {
        groups.Add({type, description});
    }
    groups.Begin("UNIT", {{"UNIT_UNIT", "", kText}, {"UNIT_DESC", "", kText}});
    for (const auto& [unit, description] : kUnits) {
        groups.Add({unit, description});
    }
    groups.Begin("ABBR",
                 {{"ABBR_HDNG", "", kText}, {"ABBR_CODE", "", kText}, {"ABBR_DESC", "", kText}});
    groups.Add({"DICT_TYPE", "HEADING", "Flag to indicate definition is a HEADING"});
    groups.Add({"DICT_STAT", "OTHER", "Other field"});
    groups.Begin("DICT", {{"DICT_TYPE", "", kCode},
                          {"DICT_GRP", "", kText},
                          {"DICT_HDNG", "", kText},
                          {"DICT_STAT", "", kCode},
                          {"DICT_DTYP", "", kTypeCode},
                          {"DICT_DESC", "", kText},
                          {"DICT_UNIT", "", kUnitCode}});
    groups.Add(
        {"HEADING", "GRAG", "GRAG_TOTL", "OTHER", "XN", "Dry mass of the whole specimen", "g"});
}

struct Grading {
    const ProjectSample* sample;
    GrainSizeRecord record;
};

void AddSamples(const std::vector<Grading>& gradings, GroupWriter& groups) {
    groups.Begin("LOCA", {kLocation});
    const std::string* borehole = nullptr;
    for (const Grading& grading : gradings) {
        const Sample& sample = grading.sample->stored.data;
        if (borehole == nullptr || *borehole != sample.borehole) {
            groups.Add({sample.borehole});
        }
        borehole = &sample.borehole;
    }
    groups.Begin("SAMP", kSampleKeys + Headings{{"SAMP_BASE", "m", k2DP}});
    for (const Grading& grading : gradings) {
        const Sample& sample = grading.sample->stored.data;
        std::vector<std::string> values = KeyOf(sample);
        if (sample.depth && sample.thickness) {
            values.push_back(Decimals(*sample.depth + *sample.thickness, 2));
        }
        groups.Add(std::move(values));
    }
}

void AddGradings(const std::vector<Grading>& gradings, GroupWriter& groups) {
    groups.Begin(
        "GRAG",
        kSampleKeys + kSpecimenKeys +
            Headings{{"GRAG_UC", "", k1SF}, {"GRAG_METH", "", kText}, {"GRAG_TOTL", "g", kNumber}});
    for (const auto& [sample, record] : gradings) {
        std::vector<std::string> values = KeyOf(sample->stored.data);
        values.insert(values.end(),
                      {"", "", Figures(sample->results.uniformity, 1), sample->stored.data.method,
                       win32::ShortestText(record.totalMass)});
        groups.Add(std::move(values));
    }
    groups.Begin("GRAT", kSampleKeys + kSpecimenKeys +
                             Headings{{"GRAT_SIZE", "mm", k3SF}, {"GRAT_PERP", "%", k0DP}});
    for (const auto& [sample, record] : gradings) {
        const auto percentages = PercentFinerOf(record);
        for (std::size_t i = 0; i < percentages.size(); ++i) {
            const std::string size = Figures(percentages[i].first, 3);
            // A size stands once with a sample: what the last of equal ones let through counts.
            if (i + 1 < percentages.size() && Figures(percentages[i + 1].first, 3) == size) {
                continue;
            }
            std::vector<std::string> values = KeyOf(sample->stored.data);
            values.insert(values.end(), {"", "", size, Decimals(percentages[i].second, 0)});
            groups.Add(std::move(values));
        }
    }
}
}  // namespace

AgsText ProjectAsAgs(const ProjectData& data, const std::string& date) {
    AgsText ags;
    std::vector<Grading> gradings;
    for (const ProjectSample& sample : data.samples) {
        std::optional<GrainSizeRecord> record = RecordOf(sample.stored.data);
        if (record) {
            gradings.push_back({&sample, std::move(*record)});
        } else {
            ags.leftOut.push_back(&sample.stored.data);
        }
    }
    GroupWriter groups;
    AddProject(data.project.profile, date, groups);
    AddVocabulary(groups);
    // A group without data must not stand in the file.
    if (!gradings.empty()) {
        AddSamples(gradings, groups);
        AddGradings(gradings, groups);
    }
    ags.text = groups.Text();
    return ags;
}

}  // namespace lab
