#include "apps/grdx/CallTable.h"
#include "apps/grdx/Failure.h"
#include "apps/grdx/InputStream.h"
#include "apps/grdx/data_import.h"
#include "apps/grdx/numbers.h"
#include "apps/grdx/suite_access.h"
#include "apps/terminal/help.h"
#include "lab/project_database.h"

namespace console {

using terminal::Help;

namespace {
void ThrowIfAny(const std::vector<LineError>& errors, const std::string& path) {
    std::string text;
    for (const LineError& error : errors) {
        text += (text.empty() ? "" : "\n") + path + ":" + std::to_string(error.line) + ": " +
                error.reason;
    }
    if (!text.empty()) {
        throw Failure(text);
    }
}

std::string Count(std::size_t count, const std::string& unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

bool ImportSamples(const std::string& suite, const std::string& file, MessageStream& messages) {
    OpenSuite(suite);
    std::vector<LineError> errors;
    const auto samples = ReadSampleFile(ReadInputText(file), errors);
    ThrowIfAny(errors, file);
    oledb::SqlDatabase database = lab::OpenProjectDatabase(oledb::Access::Change);
    StoreSamples(database, CurrentProject().index, samples);
    std::size_t items = 0;
    for (const auto& sample : samples) {
        items += sample.items.size();
    }
    messages.PrintResult(Count(samples.size(), "sample") + ", " + Count(items, "sieve item") +
                         "\n");
    return true;
}

bool ImportLayers(const std::string& suite, const std::string& file, MessageStream& messages) {
    OpenSuite(suite);
    std::vector<LineError> errors;
    const auto layers = ReadLayerFile(ReadInputText(file), errors);
    ThrowIfAny(errors, file);
    oledb::SqlDatabase database = lab::OpenProjectDatabase(oledb::Access::Change);
    StoreLayers(database, CurrentProject().index, layers);
    messages.PrintResult(Count(layers.size(), "layer") + "\n");
    return true;
}
}  // namespace

void AddImportCalls(CallTable& calls) {
    const auto file = std::make_shared<std::string>();
    CLI::App& import = calls.AddGroup(
        "import", Help("read laboratory data into the project", "把试验数据读入工程"));
    CLI::App& samples = calls.Add(
        import, "samples",
        Help("sieve data, one line a sieve, with the columns borehole, sample, depth (of the "
             "sample's "
             "top below ground, m), thickness (of the piece sampled, m), method, total (mass of "
             "the dry sample, g), size (of the sieve, mm) and mass (retained on it, g)",
             "筛分数据，每行一个筛，列为 borehole、sample、depth（取样深度，m）、thickness"
             "（厚度，m）、method、total（总质量，g）、size（孔径，mm）、mass（筛余质量，g）"),
        [&calls, file](MessageStream& messages) {
            return ImportSamples(calls.Suite(), *file, messages);
        });
    CLI::App& layers = calls.Add(
        import, "layers",
        Help("design values of soil layers, with the columns main and sub (layer numbers), size "
             "(mm) and percent",
             "土层设计值，列为 main,sub（主层、亚层号）,size（mm）,percent（%）"),
        [&calls, file](MessageStream& messages) {
            return ImportLayers(calls.Suite(), *file, messages);
        });
    for (CLI::App* call : {&samples, &layers}) {
        call->add_option("file", *file, Help("CSV file, UTF-8 or GBK", "CSV 文件，UTF-8 或 GBK"))
            ->type_name("FILE")
            ->required();
        calls.AddSuite(*call);
        calls.AddWait(*call);
    }
}

}  // namespace console
