// Drawing files: a large one read and written back, a sheet written.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbText.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/DwgFileWriter.h"
#include "platform/win32/file_replace.h"
#include "src/entity/append_entity.h"

namespace {

constexpr std::size_t kLargeFile = 5'000'000;

template <class T, class... Argument>
void Add(AcDbDatabase& drawing, Argument... arguments) {
    AppendOrDrop(&drawing, std::make_unique<T>(arguments...));
}

/// Lines, texts, circles and polylines as drawings have them, `groups` of each ten.
std::unique_ptr<AcDbDatabase> Drawing(int groups) {
    auto drawing = std::make_unique<AcDbDatabase>();
    for (int i = 0; i < groups; ++i) {
        const double x = 1.37 * i;
        for (int k = 0; k < 6; ++k) {
            Add<AcDbLine>(*drawing, AcGePoint3d(x, 0.1 * k, 0), AcGePoint3d(x + 0.9, 0.3 * k, 0));
        }
        Add<AcDbText>(*drawing, AcGePoint3d(x, 5.3, 0), "ZK1-3 0.075", AcDbObjectId::kNull, 2.4);
        Add<AcDbText>(*drawing, AcGePoint3d(x, 9.1, 0), "12.34", AcDbObjectId::kNull, 2.4);
        Add<AcDbCircle>(*drawing, AcGePoint3d(x, 7.7, 0), AcGeVector3d(0, 0, 1), 0.8);
        auto polyline = std::make_unique<AcDbPolyline>();
        for (unsigned vertex = 0; vertex < 8; ++vertex) {
            polyline->addVertexAt(vertex, {x + 0.17 * vertex, 3.1 * vertex});
        }
        AppendOrDrop(drawing.get(), std::move(polyline));
    }
    return drawing;
}

std::string FileOf(AcDbDatabase& drawing) {
    return DwgFileWriter(drawing).write();
}

const std::string& LargeFile() {
    static const std::string file = [] {
        constexpr int kGroups = 10'000;
        const std::size_t one = FileOf(*Drawing(kGroups / 10)).size();
        return FileOf(*Drawing(static_cast<int>(kLargeFile / (one * 10 / kGroups))));
    }();
    return file;
}

std::unique_ptr<AcDbDatabase> Read(const std::string& file) {
    auto drawing = std::make_unique<AcDbDatabase>(false);
    DwgFileReader reader(*drawing, file);
    reader.read();
    drawing->setFileRemains(reader.takeRemains());
    return drawing;
}

void CountBytes(benchmark::State& state, std::size_t size) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
    state.counters["file MB"] = static_cast<double>(size) / 1e6;
}

void ReadLargeDrawing(benchmark::State& state) {
    const std::string& file = LargeFile();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(Read(file));
    }
    CountBytes(state, file.size());
}
BENCHMARK(ReadLargeDrawing)->Unit(benchmark::kMillisecond);

void WriteLargeDrawingBack(benchmark::State& state) {
    const auto drawing = Read(LargeFile());
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(FileOf(*drawing));
    }
    CountBytes(state, LargeFile().size());
}
BENCHMARK(WriteLargeDrawingBack)->Unit(benchmark::kMillisecond);

/// A number of kilobytes that the system tells of this process.
std::size_t KilobytesOf(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == name) {
            std::size_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes;
        }
    }
    return 0;
}

/// The memory that a step takes at most, beyond what the process has before.
class PeakMemory {
public:
    PeakMemory() {
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << 5;  // the peak starts from here
        before_ = KilobytesOf("VmRSS:");
    }
    std::size_t Bytes() const { return 1024 * (KilobytesOf("VmHWM:") - before_); }

private:
    std::size_t before_;
};

/// From file to file, through the file system as a person's OPEN and QSAVE do, except for the wait
/// for the disk. "memory" is the peak in sizes of the file.
void OpenAndSaveLargeDrawing(benchmark::State& state) {
    const std::string path = "bench-" + std::to_string(getpid()) + ".dwg";
    std::string error;
    if (!win32::ReplaceFileWhole(path, LargeFile(), error)) {
        throw std::runtime_error(error);
    }
    std::size_t most = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        const PeakMemory peak;
        state.ResumeTiming();
        AcDbDatabase drawing(false);
        drawing.readDwgFile(path.c_str());
        drawing.saveAs(path.c_str());
        state.PauseTiming();
        most = std::max(most, peak.Bytes());
        state.ResumeTiming();
    }
    unlink(path.c_str());
    CountBytes(state, LargeFile().size());
    state.counters["memory"] = static_cast<double>(most) / static_cast<double>(LargeFile().size());
}
BENCHMARK(OpenAndSaveLargeDrawing)->Unit(benchmark::kMillisecond);

/// As many entities as a sheet of two charts has.
void WriteSheet(benchmark::State& state) {
    constexpr int kGroupsOfSheet = 43;
    const auto drawing = Drawing(kGroupsOfSheet);
    std::size_t size = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        size = FileOf(*drawing).size();
    }
    CountBytes(state, size);
}
BENCHMARK(WriteSheet)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
