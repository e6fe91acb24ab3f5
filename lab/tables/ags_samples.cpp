#include "lab/tables/ags_samples.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "lab/Failure.h"
#include "lab/numbers.h"
#include "lab/tables/AgsFile.h"
#include "lab/tables/sample_table.h"
#include "platform/win32/code_page.h"
#include "src/core/sample_and_sheet_names.h"

namespace lab {

namespace {
/// By these a row of one group belongs to a sample of another.
constexpr const char* kSampleKeys[] = {ags::kLocation, ags::kTop, ags::kReference, ags::kType,
                                       ags::kSampleId};
/// By these one grading of a sample differs from another.
constexpr const char* kSpecimenKeys[] = {"SPEC_REF", "SPEC_DPTH"};

/// The rows of one group, value by value, with what is wrong in them.
class GroupReader {
public:
    GroupReader(const std::string& file, const AgsGroup& group, Findings& findings)
        : file_(file), group_(group), findings_(findings) {}

    std::string Place(const AgsGroup::Row& row) const {
        return file_ + ":" + std::to_string(row.line);
    }
    void Refuse(const AgsGroup::Row& row, const std::string& reason) {
        findings_.Refuse(Place(row), reason);
    }
    bool Has(const char* heading) const { return group_.IndexOf(heading) != AgsGroup::kNone; }
    std::string Text(const AgsGroup::Row& row, const char* heading) const {
        const std::size_t index = group_.IndexOf(heading);
        return index == AgsGroup::kNone ? "" : PlainText(row.values[index]);
    }
    /// A key of the values under the headings, which texts cannot be mistaken for.
    template <std::size_t n>
    std::string Key(const AgsGroup::Row& row, const char* const (&headings)[n]) const {
        std::string key;
        for (const char* heading : headings) {
            key += Text(row, heading) + '\n';
        }
        return key;
    }
    /// A number from 0 up as it is stored; nothing for an empty value, and for one that was
    /// refused.
    std::optional<double> Number(const AgsGroup::Row& row, const char* heading, Unit unit) {
        const std::string text = Text(row, heading);
        if (text.empty()) {
            return std::nullopt;
        }
        const Quantity quantity = ReadQuantity(text, unit);
        std::string fault = quantity.fault;
        if (quantity.Good() && quantity.number < 0.0) {
            fault = "below 0";
        } else if (quantity.Good() && !StoredNumber(quantity.number)) {
            fault = "outside the range of a 32-bit float";
        }
        if (!fault.empty()) {
            Refuse(row, std::string(heading) + " " + Quoted(text) + ": " + fault);
            return std::nullopt;
        }
        return StoredNumber(quantity.number);
    }
    /// Refuses a heading whose unit is not the one that is read.
    void CheckUnit(const char* heading, Unit unit) {
        const std::size_t index = group_.IndexOf(heading);
        if (index == AgsGroup::kNone || group_.units.empty()) {
            return;
        }
        const std::string told = FoldedHeader(group_.units[index]);
        if (!told.empty() && !NamesUnit(told, unit)) {
            findings_.Refuse(
                file_ + ":" + std::to_string(group_.line),
                std::string(heading) + " in " + told + " where " + UnitText(unit) + " is read");
        }
    }
    const AgsGroup& Group() const { return group_; }

private:
    const std::string& file_;
    const AgsGroup& group_;
    Findings& findings_;
};

class AgsSamples {
public:
    AgsSamples(const std::string& name, const AgsFile& file, SampleBuilder& builder,
               Findings& findings)
        : samples_(name, Wanted(file, ags::kSamples), findings),
          gradings_(name, Wanted(file, ags::kGradings), findings),
          points_(name, Wanted(file, ags::kGradingPoints), findings),
          builder_(builder),
          findings_(findings) {}

    void Read() {
        samples_.CheckUnit(ags::kTop, Unit::kMetre);
        samples_.CheckUnit(ags::kBase, Unit::kMetre);
        gradings_.CheckUnit(ags::kTotal, Unit::kGram);
        points_.CheckUnit(ags::kSize, Unit::kMillimetre);
        points_.CheckUnit(ags::kPassing, Unit::kPercent);
        for (const AgsGroup::Row& row : samples_.Group().rows) {
            samplesByKey_.emplace(samples_.Key(row, kSampleKeys), &row);
        }
        for (const AgsGroup::Row& row : gradings_.Group().rows) {
            gradingsByKey_.emplace(
                gradings_.Key(row, kSampleKeys) + gradings_.Key(row, kSpecimenKeys), &row);
        }
        for (const AgsGroup::Row& row : points_.Group().rows) {
            ReadPoint(row);
        }
        builder_.EndFile(ValueKind::kPassing);
    }

private:
    static const AgsGroup& Wanted(const AgsFile& file, const char* name) {
        static const AgsGroup kNoGroup;
        const AgsGroup* const group = file.Find(name);
        return group != nullptr ? *group : kNoGroup;
    }

    void ReadPoint(const AgsGroup::Row& row) {
        const std::optional<double> size = Needed(row, ags::kSize, Unit::kMillimetre);
        const std::optional<double> passing = Needed(row, ags::kPassing, Unit::kPercent);
        if (!size || !passing || !FindSample(row)) {
            return;
        }
        builder_.AddValue({*size, *passing, points_.Place(row)});
    }

    std::optional<double> Needed(const AgsGroup::Row& row, const char* heading, Unit unit) {
        if (points_.Text(row, heading).empty()) {
            points_.Refuse(row, std::string(heading) + ": missing");
        }
        return points_.Number(row, heading, unit);
    }

    /// The sample of a point; false when it cannot be one, which is told with its first point.
    bool FindSample(const AgsGroup::Row& point) {
        const std::string key = points_.Key(point, kSampleKeys);
        const std::string specimen = points_.Key(point, kSpecimenKeys);
        const auto [known, isNew] = known_.try_emplace(key, Known{specimen, {}, {}, true});
        Known& sample = known->second;
        if (isNew) {
            sample.good = AddSample(point, key, specimen, sample);
        } else if (sample.good && sample.specimen != specimen) {
            points_.Refuse(point, "sample " + sample.sample + " of " + sample.borehole +
                                      " has another grading, too, of another specimen");
            sample.good = false;
        }
        return sample.good && builder_.Find(sample.borehole, sample.sample) != nullptr;
    }

    struct Known {
        std::string specimen;
        std::string borehole;
        std::string sample;
        bool good;
    };

    bool AddSample(const AgsGroup::Row& point, const std::string& key, const std::string& specimen,
                   Known& known) {
        const auto row = samplesByKey_.find(key);
        if (row == samplesByKey_.end()) {
            points_.Refuse(point, "the sample of the point is not in group SAMP");
            return false;
        }
        Sample sample;
        const bool hasId = !samples_.Text(*row->second, ags::kSampleId).empty();
        if (!Name(*row->second, ags::kLocation, kBoreholeLength, sample.borehole) ||
            !Name(*row->second, hasId ? ags::kSampleId : ags::kReference, kSampleLength,
                  sample.sample)) {
            return false;
        }
        ReadDepths(*row->second, sample);
        if (const auto grading = gradingsByKey_.find(key + specimen);
            grading != gradingsByKey_.end()) {
            sample.total = gradings_.Number(*grading->second, ags::kTotal, Unit::kGram);
            sample.method = Method(*grading->second);
        }
        known.borehole = sample.borehole;
        known.sample = sample.sample;
        if (builder_.Find(sample.borehole, sample.sample) != nullptr) {
            samples_.Refuse(*row->second, "sample " + sample.sample + " of " + sample.borehole +
                                              " stands at " + builder_.PlaceOfFound() + ", too");
            return false;
        }
        builder_.Add(std::move(sample), samples_.Place(*row->second));
        return true;
    }

    bool Name(const AgsGroup::Row& row, const char* heading, std::size_t limit, std::string& name) {
        name = samples_.Text(row, heading);
        std::string gbk;
        std::string fault;
        if (!win32::TryGbkFromUtf8(name, gbk)) {
            fault = "a character that GBK does not have";
        } else if (name.empty()) {
            fault = "missing";
        } else {
            fault = FaultText(FindNameFault(gbk, limit), limit);
        }
        if (!fault.empty()) {
            samples_.Refuse(row, std::string(heading) + " " + Quoted(name) + ": " + fault);
        }
        return fault.empty();
    }

    static std::string FaultText(const NameFault& fault, std::size_t limit) {
        switch (fault.kind) {
            case NameFault::Kind::kNone:
                return {};
            case NameFault::Kind::kTooLong:
                return "more than " + std::to_string(limit) + " characters";
            case NameFault::Kind::kCharacter:
                return std::string(1, fault.character) +
                       " cannot stand in the name of a sheet or in its mark";
            default:
                return "a control character or a blank that a name cannot have";
        }
    }

    void ReadDepths(const AgsGroup::Row& row, Sample& sample) {
        sample.depth = samples_.Number(row, ags::kTop, Unit::kMetre);
        const std::optional<double> base = samples_.Number(row, ags::kBase, Unit::kMetre);
        if (!base || !sample.depth) {
            return;
        }
        if (*base < *sample.depth) {
            samples_.Refuse(row, "SAMP_BASE lies above SAMP_TOP");
            return;
        }
        constexpr double kDepthStep = 1e-4;
        sample.thickness =
            StoredNumber(std::round((*base - *sample.depth) / kDepthStep) * kDepthStep);
    }

    /// A method that is longer than its column is left out, and that is told.
    std::string Method(const AgsGroup::Row& row) {
        std::string method = gradings_.Text(row, ags::kMethod);
        std::string gbk;
        if (win32::TryGbkFromUtf8(method, gbk) &&
            win32::Utf16FromUtf8(method).size() <= kMethodLength) {
            return method;
        }
        findings_.Note(gradings_.Place(row) + ": the method " + Quoted(method) +
                       " is longer than " + std::to_string(kMethodLength) +
                       " characters, or has one that GBK does not have, and is left out");
        return {};
    }

    GroupReader samples_;
    GroupReader gradings_;
    GroupReader points_;
    SampleBuilder& builder_;
    Findings& findings_;
    std::unordered_map<std::string, const AgsGroup::Row*> samplesByKey_;
    std::unordered_map<std::string, const AgsGroup::Row*> gradingsByKey_;
    std::unordered_map<std::string, Known> known_;
};

std::string Joined(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        joined += (joined.empty() ? "" : ", ") + name;
    }
    return joined;
}
}  // namespace

bool IsAgs(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return text.starts_with("\"GROUP") || text.starts_with("GROUP,");
}

void ReadAgsSamples(const std::string& name, std::string_view text, const TableOptions& options,
                    SampleBuilder& builder, Findings& findings) {
    if (options.as && *options.as != ValueKind::kPassing) {
        throw Failure(name + ": AGS4 holds percent passing and nothing else");
    }
    const std::vector<std::string_view> wanted = {ags::kLocations, ags::kSamples, ags::kGradings,
                                                  ags::kGradingPoints};
    const AgsFile file(name, text, wanted, findings);
    if (!file.Others().empty()) {
        findings.Note(name + ": groups " + Joined(file.Others()) + " are left out");
    }
    if (findings.Refused()) {
        return;
    }
    const AgsGroup* const points = file.Find(ags::kGradingPoints);
    if (points == nullptr || points->rows.empty()) {
        findings.Refuse(name, "there are no points of gradings (group GRAT)");
        return;
    }
    AgsSamples(name, file, builder, findings).Read();
}

}  // namespace lab
