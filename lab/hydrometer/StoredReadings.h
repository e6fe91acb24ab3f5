#pragma once

#include <map>
#include <string>

#include "lab/hydrometer/joint.h"
#include "platform/oledb/SqlDatabase.h"

namespace lab {

/// Readings as they are stored, with what became of them.
struct StoredTest {
    HydrometerTest test;
    std::vector<HydrometerPoint> points;
    std::optional<double> jump;  ///< percent; nothing without sieves

    /// Whether a size is that of an item which came from the readings.
    bool Made(double size) const;
    bool IsJoined() const;
};

/// The readings of a project in the table Z_c_KeFenMDJ, which is the project's own: it stands
/// beside the documented ones once readings were stored, and its columns are told in
/// docs/hydrometer.md.
class StoredReadings {
public:
    StoredReadings(oledb::SqlDatabase& database, int projectIndex);

    /// The tests of a borehole (null: of all) by borehole and sample; none without the table.
    std::map<std::pair<std::string, std::string>, StoredTest> Read(
        const std::string* borehole = nullptr);
    /// Replaces those of the sample. The first call makes the table where it is missing.
    void Write(const StoredTest& stored);

private:
    void MakeTable();

    oledb::SqlDatabase& database_;
    int projectIndex_;
    bool hasTable_;
};

}  // namespace lab
