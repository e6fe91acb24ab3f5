#include "apps/grdx/data_import.h"

#include <cmath>
#include <numeric>

#include "apps/grdx/Failure.h"
#include "apps/grdx/InputStream.h"
#include "apps/grdx/Interrupt.h"
#include "apps/grdx/MessageStream.h"
#include "lab/hydrometer/hydrometer_table.h"
#include "lab/layer_store.h"
#include "lab/sample_store.h"

namespace console {

namespace {
std::string Count(std::size_t count, const std::string& unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

/// One import from its files to its summary.
class Import {
public:
    Import(const ImportRequest& request, MessageStream& messages)
        : request_(request), messages_(messages) {
        options_.as = request.as;
        options_.sheet = request.sheet;
        options_.progress = [this](const std::string& name, double done) {
            Show("reading " + name, done);
        };
        if (!request.map.empty()) {
            options_.names.Add(request.map, ReadInputBytes(request.map));
        }
    }

    template <class Data>
    std::vector<Data> Read(std::vector<Data> (*read)(const std::vector<lab::TableFile>&,
                                                     const lab::TableOptions&, lab::Findings&)) {
        std::vector<lab::TableFile> files;
        for (const std::string& name : request_.files) {
            files.push_back({name, ReadInputBytes(name)});
        }
        lab::Findings findings;
        std::vector<Data> data = read(files, options_, findings);
        messages_.ShowProgress("");
        for (const std::string& note : findings.Notes()) {
            messages_.Report(note);
        }
        findings.ThrowIfRefused();
        return data;
    }

    template <class Data>
    void Store(const std::vector<Data>& data,
               lab::StoreSummary (*store)(const std::vector<Data>&, const lab::StoreOptions&),
               const std::string& counted) {
        const lab::StoreSummary summary =
            store(data, {request_.dryRun, [this](double done) { Show("storing", done); }});
        messages_.ShowProgress("");
        for (const std::string& note : summary.notes) {
            messages_.Report(note);
        }
        for (const std::string& name : summary.changed) {
            messages_.PrintResult("changed " + name + "\n");
        }
        messages_.PrintResult(counted + ": " + std::to_string(summary.added) + " new, " +
                              std::to_string(summary.changed.size()) + " changed, " +
                              std::to_string(summary.unchanged) + " unchanged\n");
    }

private:
    void Show(const std::string& what, double done) {
        if (Interrupt::Asked()) {
            throw Failure("stopped; nothing was stored");
        }
        messages_.ShowProgress(what + ": " + std::to_string(std::lround(done * 100.0)) + " %");
    }

    const ImportRequest& request_;
    MessageStream& messages_;
    lab::TableOptions options_;
    Interrupt interrupt_;
};
}  // namespace

void ImportSamples(const ImportRequest& request, MessageStream& messages) {
    Import import(request, messages);
    const std::vector<lab::Sample> samples = import.Read(lab::ReadSamples);
    const std::size_t items = std::accumulate(
        samples.begin(), samples.end(), std::size_t{0},
        [](std::size_t sum, const lab::Sample& sample) { return sum + sample.items.size(); });
    import.Store(samples, lab::StoreSamples,
                 Count(samples.size(), "sample") + ", " + Count(items, "sieve item"));
}

void ImportLayers(const ImportRequest& request, MessageStream& messages) {
    Import import(request, messages);
    const std::vector<lab::Layer> layers = import.Read(lab::ReadLayers);
    import.Store(layers, lab::StoreLayers, Count(layers.size(), "layer"));
}

void ImportHydrometer(const ImportRequest& request, MessageStream& messages) {
    Import import(request, messages);
    const std::vector<lab::HydrometerTest> tests = import.Read(lab::ReadHydrometerTests);
    const std::size_t readings =
        std::accumulate(tests.begin(), tests.end(), std::size_t{0},
                        [](std::size_t sum, const lab::HydrometerTest& test) {
                            return sum + test.readings.size();
                        });
    import.Store(tests, lab::StoreHydrometerTests,
                 Count(tests.size(), "sample") + ", " + Count(readings, "reading"));
}

}  // namespace console
