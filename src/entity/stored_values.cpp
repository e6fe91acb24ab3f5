#include "src/entity/stored_values.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Key = std::tuple<int, std::string, std::string, int, int>;

Key KeyOf(const GrainSizeRecord& record) {
    return {record.projectIndex, record.borehole, record.sample, record.mainLayer, record.subLayer};
}

std::map<Key, std::vector<double>>& StoredDiameters() {
    static std::map<Key, std::vector<double>> stored;
    return stored;
}

}  // namespace

void NoteStoredValues(const GrainSizeRecord& record) {
    StoredDiameters()[KeyOf(record)] = record.diameters;
}

bool AreOtherValuesStored(const GrainSizeRecord& record) {
    const auto found = StoredDiameters().find(KeyOf(record));
    return found != StoredDiameters().end() && found->second != record.diameters;
}
