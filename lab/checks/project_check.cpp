#include "lab/checks/project_check.h"

#include <algorithm>

#include "lab/checks/NameChecks.h"
#include "lab/checks/sample_checks.h"

namespace lab {

namespace {
/// What a curve can hold of its project's index, by which its results are stored.
constexpr int kFirstIndex = 1;
constexpr int kLastIndex = 32767;

void CheckIndex(int index, FindingList& findings) {
    if (index < kFirstIndex || index > kLastIndex) {
        FindingNotes(findings, {})
            .Add(Severity::kError, "project-index",
                 "the project has index " + std::to_string(index) +
                     ", and curves can be stored into projects " + std::to_string(kFirstIndex) +
                     " to " + std::to_string(kLastIndex),
                 index);
    }
}

Finding SubjectOf(const Sample& sample) {
    Finding subject;
    subject.borehole = sample.borehole;
    subject.sample = sample.sample;
    return subject;
}

Finding SubjectOf(const ProjectLayer& layer) {
    Finding subject;
    subject.layer = layer.label;
    return subject;
}
}  // namespace

FindingList CheckProject(const ProjectData& data, const CheckSettings& settings,
                         const CheckScope& scope) {
    const std::vector<std::string>& boreholes = scope.boreholes;
    FindingList findings;
    CheckIndex(data.project.index, findings);
    const NameChecks names(data);
    const ChartKind kind = ChartKindOf(data.project.profile.code);
    for (const ProjectSample& sample : data.samples) {
        const Sample& key = sample.stored.data;
        if (!boreholes.empty() &&
            std::find(boreholes.begin(), boreholes.end(), key.borehole) == boreholes.end()) {
            continue;
        }
        FindingNotes notes(findings, SubjectOf(key));
        names.CheckSample(key, notes);
        if (CheckData(sample.stored, settings, notes)) {
            CheckChart(sample, kind, settings, notes);
        }
        CheckJoint(sample, notes);
        if (scope.sheets != nullptr) {
            CheckSheets(sample, kind, *scope.sheets, notes);
        }
    }
    for (const ProjectLayer& layer : data.layers) {
        if (boreholes.empty()) {
            FindingNotes notes(findings, SubjectOf(layer));
            names.CheckLayer(layer.label, notes);
            CheckLayer(layer, kind, settings, notes);
        }
    }
    return findings;
}

FindingList UnreadableCells(const ProjectData& data) {
    FindingList findings;
    for (const ProjectSample& sample : data.samples) {
        FindingNotes notes(findings, SubjectOf(sample.stored.data));
        CheckCells(sample.stored.unreadable, notes);
    }
    for (const ProjectLayer& layer : data.layers) {
        FindingNotes notes(findings, SubjectOf(layer));
        CheckCells(layer.unreadable, notes);
    }
    return findings;
}

FindingList CheckWithSheets(const ProjectData& data, const std::vector<std::string>& boreholes) {
    const SheetCurves sheets(data.project.profile.number);
    return CheckProject(data, ReadCheckSettings(), {boreholes, &sheets});
}

}  // namespace lab
