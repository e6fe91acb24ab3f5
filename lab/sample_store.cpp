#include "lab/sample_store.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "lab/Failure.h"
#include "lab/SampleWriter.h"
#include "lab/hydrometer/StoredReadings.h"
#include "lab/numbers.h"
#include "lab/suite_profiles.h"
#include "platform/win32/code_page.h"
#include "src/facts/mark_keys.h"

namespace lab {

namespace {
/// What the project has of a sample.
struct Known {
    std::optional<StoredSample> sample;
    std::optional<StoredTest> test;
};

/// What is stored of the boreholes that are asked for, each read once.
class StoredBoreholes {
public:
    StoredBoreholes(oledb::SqlDatabase& database, StoredReadings& readings, int projectIndex)
        : database_(database), readings_(readings), projectIndex_(projectIndex) {}

    const Known& Find(const std::string& borehole, const std::string& sample) {
        const auto [samples, isNew] = boreholes_.try_emplace(borehole);
        if (isNew) {
            for (StoredSample& stored : ReadStoredSamples(database_, projectIndex_, &borehole)) {
                std::string name = stored.data.sample;
                samples->second[std::move(name)].sample = std::move(stored);
            }
            for (auto& [key, test] : readings_.Read(&borehole)) {
                samples->second[key.second].test = std::move(test);
            }
        }
        return samples->second[sample];
    }

private:
    oledb::SqlDatabase& database_;
    StoredReadings& readings_;
    int projectIndex_;
    std::map<std::string, std::map<std::string, Known>> boreholes_;
};

bool IsAsStored(const Sample& sample, const std::optional<StoredSample>& stored) {
    return stored && stored->hasSampleRow && stored->hasResultRow && stored->unreadable.empty() &&
           sample == stored->data;
}

std::string NameOf(const Sample& sample) {
    return sample.borehole + " " + sample.sample;
}

/// One storing of samples.
class SampleStore {
public:
    explicit SampleStore(const StoreOptions& options)
        : run_(options),
          readings_(run_.Database(), run_.OfProject().index),
          boreholes_(run_.Database(), readings_, run_.OfProject().index),
          writer_(run_.Database(), run_.OfProject().index) {}

    void Store(const Sample& sample) {
        const Known& known = boreholes_.Find(sample.borehole, sample.sample);
        if (!known.test || !known.test->IsJoined()) {
            Write(sample, known.sample);
        } else if (std::any_of(sample.items.begin(), sample.items.end(), [&](const auto& item) {
                       return item.size && known.test->Made(*item.size);
                   })) {
            if (Write(sample, known.sample)) {
                Part(*known.test);
            }
        } else {
            WriteJoined(sample, known, known.test->test);
        }
    }

    void Store(const HydrometerTest& test) {
        const Known& known = boreholes_.Find(test.borehole, test.sample);
        WriteJoined(SievesFor(test, known), known, test);
    }

    void Report(std::size_t done, std::size_t all) const { run_.Report(done, all); }

    StoreSummary Finish() {
        if (run_.Writes()) {
            MarkRemoval marks(MarkProfilePath());
            for (const auto& [name, sample] : written_) {
                const std::string borehole = win32::GbkFromUtf8(name);
                marks.Remove(SampleMarksKey(run_.ProjectNumber(), borehole),
                             win32::GbkFromUtf8(sample));
                marks.Remove(BoreholeMarksKey(run_.ProjectNumber()), borehole);
            }
            run_.Commit(marks);
        }
        return std::move(summary_);
    }

private:
    /// False when the sample is as stored.
    bool Write(const Sample& sample, const std::optional<StoredSample>& stored) {
        if (IsAsStored(sample, stored)) {
            ++summary_.unchanged;
            return false;
        }
        if (stored) {
            summary_.changed.push_back(NameOf(sample));
        } else {
            ++summary_.added;
        }
        written_.emplace_back(sample.borehole, sample.sample);
        if (run_.Writes()) {
            writer_.Write(sample, stored && stored->hasSampleRow, stored && stored->hasResultRow);
        }
        return true;
    }

    void WriteJoined(Sample sample, const Known& known, const HydrometerTest& test) {
        Joint joint = Join(sample, test);
        if (joint.jump && std::abs(*joint.jump) > kGreatestJump) {
            summary_.notes.push_back("sample " + sample.sample + " of " + sample.borehole +
                                     ": sieves and hydrometer are " +
                                     ShortestText(std::round(*joint.jump * 10.0) / 10.0) +
                                     " % apart at their joint");
        }
        sample.items = std::move(joint.items);
        const bool changed = Write(sample, known.sample);
        if (run_.Writes() && (changed || !known.test || !(known.test->test == test))) {
            readings_.Write({test, std::move(joint.points), joint.jump});
        }
    }

    /// The readings stay, but are nobody's part any more.
    void Part(StoredTest stored) {
        stored.jump.reset();
        for (HydrometerPoint& point : stored.points) {
            point.joined = false;
        }
        summary_.notes.push_back("sample " + stored.test.sample + " of " + stored.test.borehole +
                                 ": its items are no longer those of its hydrometer readings");
        if (run_.Writes()) {
            readings_.Write(stored);
        }
    }

    /// What was measured of the sample without a hydrometer.
    static Sample SievesFor(const HydrometerTest& test, const Known& known) {
        Sample sample;
        if (known.sample) {
            if (!known.sample->unreadable.empty()) {
                const StoredSample::Unreadable& cell = known.sample->unreadable.front();
                throw Failure("sample " + test.sample + " of " + test.borehole + ": table " +
                              cell.table + ", column " + cell.column + ": \"" + cell.text +
                              "\" is no number");
            }
            sample = known.sample->data;
        }
        sample.borehole = test.borehole;
        sample.sample = test.sample;
        std::erase_if(sample.items, [&](const SieveItem& item) {
            return item.size && (*item.size == 0.0 || (known.test && known.test->Made(*item.size)));
        });
        if (sample.items.empty()) {
            sample.total = StoredNumber(test.dryMass);
        }
        return sample;
    }

    StoreRun run_;
    StoredReadings readings_;
    StoredBoreholes boreholes_;
    SampleWriter writer_;
    StoreSummary summary_;
    std::vector<std::pair<std::string, std::string>> written_;
};

template <class Data>
StoreSummary StoreAll(const std::vector<Data>& all, const StoreOptions& options) {
    SampleStore store(options);
    std::size_t done = 0;
    for (const Data& data : all) {
        store.Store(data);
        store.Report(++done, all.size());
    }
    return store.Finish();
}
}  // namespace

StoreSummary StoreSamples(const std::vector<Sample>& samples, const StoreOptions& options) {
    return StoreAll(samples, options);
}

StoreSummary StoreHydrometerTests(const std::vector<HydrometerTest>& tests,
                                  const StoreOptions& options) {
    return StoreAll(tests, options);
}

}  // namespace lab
