#include "lab/checks/findings_json.h"

#include <nlohmann/json.hpp>

namespace lab {

namespace {
template <class Value>
nlohmann::ordered_json OrNull(const std::optional<Value>& value) {
    return value ? nlohmann::ordered_json(*value) : nlohmann::ordered_json();
}
}  // namespace

nlohmann::ordered_json FindingsAsJson(const FindingList& findings) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Finding& finding : findings) {
        list.push_back({{"level", NameOf(finding.severity)},
                        {"code", finding.code},
                        {"borehole", OrNull(finding.borehole)},
                        {"sample", OrNull(finding.sample)},
                        {"layer", OrNull(finding.layer)},
                        {"text", finding.text},
                        {"value", OrNull(finding.value)}});
    }
    return list;
}

}  // namespace lab
