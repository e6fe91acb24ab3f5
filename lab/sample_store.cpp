#include "lab/sample_store.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "lab/MarkRemoval.h"
#include "lab/Project.h"
#include "lab/SampleWriter.h"
#include "lab/project_database.h"
#include "lab/suite_profiles.h"
#include "platform/win32/code_page.h"
#include "platform/win32/number_text.h"
#include "src/facts/mark_keys.h"

namespace lab {

namespace {
constexpr std::size_t kBetweenReports = 256;

void Report(const StoreOptions& options, std::size_t done, std::size_t all) {
    if (options.progress && done % kBetweenReports == 0) {
        options.progress(static_cast<double>(done) / static_cast<double>(all));
    }
}

oledb::Access AccessFor(const StoreOptions& options) {
    return options.dryRun ? oledb::Access::Read : oledb::Access::Change;
}

/// Nothing when the call only tells what it would do.
std::unique_ptr<oledb::SqlTransaction> Begin(oledb::SqlDatabase& database,
                                             const StoreOptions& options) {
    return options.dryRun ? nullptr : std::make_unique<oledb::SqlTransaction>(database);
}

/// Writes what the marks have lost and then the data, both or neither.
void Commit(oledb::SqlTransaction& transaction, MarkRemoval& marks) {
    marks.Write();
    transaction.Commit();
    marks.Keep();
}

using SamplesByName = std::map<std::string, StoredSample>;

/// The stored samples of the boreholes that are asked for, each read once.
class StoredBoreholes {
public:
    StoredBoreholes(oledb::SqlDatabase& database, int projectIndex)
        : database_(database), projectIndex_(projectIndex) {}

    /// Null when there is no such sample.
    const StoredSample* Find(const Sample& sample) {
        const auto [borehole, isNew] = boreholes_.try_emplace(sample.borehole);
        if (isNew) {
            for (StoredSample& stored :
                 ReadStoredSamples(database_, projectIndex_, &sample.borehole)) {
                std::string name = stored.data.sample;
                borehole->second.emplace(std::move(name), std::move(stored));
            }
        }
        const auto found = borehole->second.find(sample.sample);
        return found == borehole->second.end() ? nullptr : &found->second;
    }

private:
    oledb::SqlDatabase& database_;
    int projectIndex_;
    std::map<std::string, SamplesByName> boreholes_;
};

bool IsAsStored(const Sample& sample, const StoredSample& stored) {
    return stored.hasSampleRow && stored.hasResultRow && stored.unreadable.empty() &&
           sample == stored.data;
}

using Fractions = std::map<int, std::string>;

Fractions FractionsOf(const Layer& layer) {
    Fractions fractions;
    for (const Layer::Percentage& percentage : layer.percentages) {
        fractions[percentage.code] = percentage.text;
    }
    return fractions;
}

/// Equal as numbers: 25.5 and 25.50 are.
bool AreEqual(const Fractions& left, const Fractions& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& a, const auto& b) {
                          return a.first == b.first &&
                                 (a.second == b.second ||
                                  (win32::ParseNumber(a.second) &&
                                   win32::ParseNumber(a.second) == win32::ParseNumber(b.second)));
                      });
}

/// The statements that read and replace one layer's grading. Codes 1100 to 1118 are the class
/// percentages, 1119 to 1128 what was computed from them.
class LayerTable {
public:
    LayerTable(oledb::SqlDatabase& database, int projectIndex)
        : projectIndex_(projectIndex),
          select_(database,
                  "SELECT CSLX, CSV FROM x_SheJi WHERE GCSY = ? AND ZCBH = ? AND YCBH = ? "
                  "AND CSLX BETWEEN 1100 AND 1118"),
          delete_(database,
                  "DELETE FROM x_SheJi WHERE GCSY = ? AND ZCBH = ? AND YCBH = ? "
                  "AND CSLX BETWEEN 1100 AND 1128"),
          insert_(database,
                  "INSERT INTO x_SheJi (GCSY, ZCBH, YCBH, CSLX, CSV) VALUES (?, ?, ?, ?, ?)") {}

    Fractions Read(const Layer& layer) {
        Fractions fractions;
        BindKey(select_, layer);
        while (select_.Step()) {
            fractions[select_.Integer(0)] = select_.Text(1);
        }
        return fractions;
    }
    void Write(const Layer& layer) {
        BindKey(delete_, layer);
        delete_.Run();
        for (const Layer::Percentage& percentage : layer.percentages) {
            BindKey(insert_, layer);
            insert_.Bind(4, percentage.code);
            insert_.Bind(5, percentage.text);
            insert_.Run();
        }
    }

private:
    void BindKey(oledb::SqlStatement& statement, const Layer& layer) const {
        statement.Bind(1, projectIndex_);
        statement.Bind(2, layer.main);
        statement.Bind(3, layer.sub);
    }

    int projectIndex_;
    oledb::SqlStatement select_;
    oledb::SqlStatement delete_;
    oledb::SqlStatement insert_;
};
}  // namespace

StoreSummary StoreSamples(const std::vector<Sample>& samples, const StoreOptions& options) {
    const Project project = ReadProject();
    oledb::SqlDatabase database = OpenProjectDatabase(AccessFor(options));
    const auto transaction = Begin(database, options);
    StoredBoreholes boreholes(database, project.index);
    SampleWriter writer(database, project.index);
    StoreSummary summary;
    std::vector<const Sample*> written;
    std::size_t done = 0;
    for (const Sample& sample : samples) {
        const StoredSample* const stored = boreholes.Find(sample);
        Report(options, ++done, samples.size());
        if (stored != nullptr && IsAsStored(sample, *stored)) {
            ++summary.unchanged;
            continue;
        }
        written.push_back(&sample);
        if (stored != nullptr) {
            summary.changed.push_back(sample.borehole + " " + sample.sample);
        } else {
            ++summary.added;
        }
        if (transaction) {
            writer.Write(sample, stored != nullptr && stored->hasSampleRow,
                         stored != nullptr && stored->hasResultRow);
        }
    }
    if (transaction) {
        MarkRemoval marks(MarkProfilePath());
        const std::string number = win32::GbkFromUtf8(project.profile.number);
        for (const Sample* sample : written) {
            const std::string borehole = win32::GbkFromUtf8(sample->borehole);
            marks.Remove(SampleMarksKey(number, borehole), win32::GbkFromUtf8(sample->sample));
            marks.Remove(BoreholeMarksKey(number), borehole);
        }
        Commit(*transaction, marks);
    }
    return summary;
}

StoreSummary StoreLayers(const std::vector<Layer>& layers, const StoreOptions& options) {
    const Project project = ReadProject();
    oledb::SqlDatabase database = OpenProjectDatabase(AccessFor(options));
    const auto transaction = Begin(database, options);
    LayerTable table(database, project.index);
    StoreSummary summary;
    std::size_t done = 0;
    for (const Layer& layer : layers) {
        const Fractions stored = table.Read(layer);
        Report(options, ++done, layers.size());
        if (AreEqual(stored, FractionsOf(layer))) {
            ++summary.unchanged;
            continue;
        }
        if (stored.empty()) {
            ++summary.added;
        } else {
            summary.changed.push_back(layer.Label());
        }
        if (transaction) {
            table.Write(layer);
        }
    }
    if (transaction) {
        MarkRemoval marks(ProjectProfilePath());
        for (const std::string& label : summary.changed) {
            marks.Remove(LayerMarksKey(win32::GbkFromUtf8(project.profile.number)), label);
        }
        Commit(*transaction, marks);
    }
    return summary;
}

}  // namespace lab
