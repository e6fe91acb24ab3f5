#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lab {

/// An error is what a chart would be refused for, or be nonsense with; a warning what should be
/// looked at before a sheet is signed.
enum class Severity { kError, kWarning, kNote };

/// Something that the checks found in a project. Texts are UTF-8.
struct Finding {
    Severity severity = Severity::kError;
    /// Its kind, for programs: "mass-loss".
    const char* code = "";
    // Whom it concerns: a sample, a layer by its label, or with neither the project.
    std::optional<std::string> borehole;
    std::optional<std::string> sample;
    std::optional<std::string> layer;
    std::string text;  ///< what and how much
    /// The figure of the text, in its unit: percent, mm or a count.
    std::optional<double> value;
};
using FindingList = std::vector<Finding>;

/// "error", "warning", "note"
const char* NameOf(Severity severity);
/// A line for people: severity, code, whom it concerns, what and how much.
std::string DescribeFinding(const Finding& finding);
bool HasError(const FindingList& findings);
/// Those of samples, by borehole and sample.
std::map<std::pair<std::string, std::string>, FindingList> FindingsBySample(
    const FindingList& findings);

/// Notes findings of one sample, or of one layer.
class FindingNotes {
public:
    /// `subject` says whom they concern.
    FindingNotes(FindingList& findings, Finding subject)
        : findings_(findings), subject_(std::move(subject)) {}

    void Add(Severity severity, const char* code, std::string text,
             std::optional<double> value = std::nullopt);

private:
    FindingList& findings_;
    Finding subject_;
};

}  // namespace lab
