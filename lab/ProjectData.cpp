#include "lab/ProjectData.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "lab/DrawnMarks.h"
#include "lab/Failure.h"
#include "lab/hydrometer/StoredReadings.h"
#include "lab/numbers.h"
#include "lab/suite_database.h"
#include "lab/suite_profiles.h"
#include "platform/win32/code_page.h"
#include "src/facts/mark_keys.h"

namespace lab {

namespace {
/// The columns of results: classes in the order of kSieveSeries, diameters in that of
/// DiameterIndex, the rest.
constexpr const char* kResultColumns[] = {
    "KL800", "KL400", "KL200",  "KL60",   "KL40",  "KL20",  "KL10",   "KL5",    "KL2",    "KL_5",
    "KL_25", "KL_1",  "KL_075", "KL_074", "KL_05", "KL_01", "KL_005", "KL_002", "KL0",    "KLD95",
    "KLD85", "KLD60", "KLD50",  "KLD30",  "KLD15", "KLD10", "KLD90",  "KLHL",   "KLBJXS", "KLQLXS"};

std::string ResultQuery() {
    std::string query = "SELECT ZKBH, QYBH";
    for (const char* const column : kResultColumns) {
        query += std::string(", ") + column;
    }
    return query + " FROM Z_c_KeFen WHERE GCSY = ?";
}

/// Reads the columns of one row in their order.
class ResultRow {
public:
    ResultRow(const oledb::SqlStatement& row, StoredSample& sample) : row_(row), sample_(sample) {}

    StoredResults Read() {
        StoredResults results;
        for (std::optional<double>& percent : results.classPercent) {
            percent = Next();
        }
        for (std::optional<double>& diameter : results.diameters) {
            diameter = Next();
        }
        results.finePercent = Next();
        results.uniformity = Next();
        results.curvature = Next();
        return results;
    }

private:
    std::optional<double> Next() {
        const int column = next_++;
        if (row_.IsNull(column + 2)) {
            return std::nullopt;
        }
        const std::string text = row_.Text(column + 2);
        const std::string_view bare = win32::TrimBlanks(text);
        const std::optional<double> number = ParseNumber(bare);
        const std::optional<double> stored = number ? StoredNumber(*number) : std::nullopt;
        if (!stored && !bare.empty()) {
            sample_.unreadable.push_back({"Z_c_KeFen", kResultColumns[column], text});
        }
        return stored;
    }

    const oledb::SqlStatement& row_;
    StoredSample& sample_;
    int next_ = 0;
};

void ReadResults(oledb::SqlDatabase& database, int projectIndex,
                 std::vector<ProjectSample>& samples) {
    const auto before = [](const ProjectSample& sample, const auto& key) {
        return std::tie(sample.stored.data.borehole, sample.stored.data.sample) < key;
    };
    oledb::SqlStatement rows(database, ResultQuery());
    rows.Bind(1, projectIndex);
    while (rows.Step()) {
        const std::pair key(rows.Text(0), rows.Text(1));
        const auto sample = std::lower_bound(samples.begin(), samples.end(),
                                             std::tie(key.first, key.second), before);
        if (sample != samples.end() && sample->stored.data.borehole == key.first &&
            sample->stored.data.sample == key.second) {
            sample->results = ResultRow(rows, sample->stored).Read();
        }
    }
}

void ReadJoints(oledb::SqlDatabase& database, int projectIndex,
                std::vector<ProjectSample>& samples) {
    const auto tests = StoredReadings(database, projectIndex).Read();
    for (ProjectSample& sample : samples) {
        const Sample& key = sample.stored.data;
        const auto test = tests.find({key.borehole, key.sample});
        if (test != tests.end() && test->second.IsJoined()) {
            sample.joint = test->second.jump;
        }
    }
}

void ReadSampleMarks(ProjectData& data) {
    const DrawnMarks marks(MarkProfilePath());
    const std::string number = win32::GbkFromUtf8(data.project.profile.number);
    const std::set<std::string> boreholes = marks.Under(BoreholeMarksKey(number));
    const std::string* borehole = nullptr;
    std::set<std::string> drawn;
    for (ProjectSample& sample : data.samples) {
        const Sample& key = sample.stored.data;
        if (borehole == nullptr || key.borehole != *borehole) {
            borehole = &key.borehole;
            const std::string gbk = win32::GbkFromUtf8(key.borehole);
            drawn = marks.Under(SampleMarksKey(number, gbk));
            if (boreholes.contains(gbk)) {
                data.drawnBoreholes.push_back(key.borehole);
            }
        }
        sample.drawn = drawn.contains(win32::GbkFromUtf8(key.sample));
    }
}

/// A layer's number, 0 to 255 as its column holds it.
int LayerNumber(const std::string& text, const char* column, ProjectLayer& layer) {
    constexpr int kMost = 255;
    const std::optional<int> number = ParseInteger(win32::TrimBlanks(text));
    if (!number || *number < 0 || *number > kMost) {
        layer.unreadable.push_back({"x_SheJi", column, text});
    }
    return number.value_or(0);
}

ProjectLayer MakeLayer(const std::string& main, const std::string& sub) {
    ProjectLayer layer;
    layer.label = main + (sub == "0" || sub.empty() ? "" : "-" + sub);
    layer.main = LayerNumber(main, "ZCBH", layer);
    layer.sub = LayerNumber(sub, "YCBH", layer);
    return layer;
}

void ReadLayers(oledb::SqlDatabase& database, ProjectData& data) {
    const std::set<std::string> marks =
        DrawnMarks(ProjectProfilePath())
            .Under(LayerMarksKey(win32::GbkFromUtf8(data.project.profile.number)));
    oledb::SqlStatement rows(database,
                             "SELECT ZCBH, YCBH, CSLX, CSV FROM x_SheJi WHERE GCSY = ? AND "
                             "CSLX BETWEEN 1100 AND 1128 ORDER BY ZCBH, YCBH, CSLX");
    rows.Bind(1, data.project.index);
    while (rows.Step()) {
        ProjectLayer layer = MakeLayer(rows.Text(0), rows.Text(1));
        if (data.layers.empty() || data.layers.back().label != layer.label) {
            layer.drawn = marks.contains(win32::GbkFromUtf8(layer.label));
            data.layers.push_back(std::move(layer));
        }
        if (!rows.IsNull(3)) {
            data.layers.back().values[rows.Integer(2)] = rows.Text(3);
        }
    }
}
}  // namespace

bool ProjectData::IsDrawn(const std::string& borehole) const {
    return std::find(drawnBoreholes.begin(), drawnBoreholes.end(), borehole) !=
           drawnBoreholes.end();
}

void ProjectData::RequireBorehole(const std::string& borehole) const {
    if (std::none_of(samples.begin(), samples.end(), [&](const ProjectSample& sample) {
            return sample.stored.data.borehole == borehole;
        })) {
        throw Failure("there is no sample of borehole \"" + borehole + '"');
    }
}

ProjectData ReadProjectData() {
    ProjectData data;
    data.project = ReadProject();
    oledb::SqlDatabase database = OpenProjectDatabase(oledb::Access::Read);
    for (StoredSample& stored : ReadStoredSamples(database, data.project.index)) {
        data.samples.push_back({std::move(stored), {}, false});
    }
    ReadResults(database, data.project.index, data.samples);
    ReadJoints(database, data.project.index, data.samples);
    ReadSampleMarks(data);
    ReadLayers(database, data);
    return data;
}

}  // namespace lab
