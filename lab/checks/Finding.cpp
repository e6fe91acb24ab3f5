#include "lab/checks/Finding.h"

#include <algorithm>
#include <utility>

namespace lab {

namespace {
std::string SubjectOf(const Finding& finding) {
    if (finding.layer) {
        return "layer " + *finding.layer;
    }
    return finding.sample
               ? "borehole \"" + *finding.borehole + "\" sample \"" + *finding.sample + '"'
               : "project";
}
}  // namespace

const char* NameOf(Severity severity) {
    switch (severity) {
        case Severity::kError:
            return "error";
        case Severity::kWarning:
            return "warning";
        case Severity::kNote:
            break;
    }
    return "note";
}

std::string DescribeFinding(const Finding& finding) {
    return std::string(NameOf(finding.severity)) + ' ' + finding.code + ' ' + SubjectOf(finding) +
           ": " + finding.text;
}

bool HasError(const FindingList& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::kError; });
}

std::map<std::pair<std::string, std::string>, FindingList> FindingsBySample(
    const FindingList& findings) {
    std::map<std::pair<std::string, std::string>, FindingList> bySample;
    for (const Finding& finding : findings) {
        if (finding.sample) {
            bySample[{*finding.borehole, *finding.sample}].push_back(finding);
        }
    }
    return bySample;
}

void FindingNotes::Add(Severity severity, const char* code, std::string text,
                       std::optional<double> value) {
    Finding& finding = findings_.emplace_back(subject_);
    finding.severity = severity;
    finding.code = code;
    finding.text = std::move(text);
    finding.value = value;
}

}  // namespace lab
