#include "src/frame/ChartFamily.h"

#include "src/chart/cumulative_chart.h"
#include "src/chart/result_chart.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/core/sample_and_sheet_names.h"
#include "src/frame/chart_openers.h"
#include "src/ui/CKefenSheet.h"

namespace {

std::string SampleFileKey(const std::string& sample) {
    return SheetNames::KeyOf({CurrentBorehole, sample});
}

std::vector<std::string> TakeSamples(const CKefenSheet& sheet) {
    return sheet.SamplePage().ChosenSamples();
}

void MakeSampleCurrent(const std::string& sample) {
    CurrentSample = sample;
}

std::string LayerFileKey(const std::string& label) {
    return label;
}

std::vector<std::string> TakeLayers(const CKefenSheet& sheet) {
    RecomputePercentages = sheet.OptionPage().Recompute();
    return sheet.LayerPage().ChosenLayers();
}

/// A label is the main layer's number, with "-" and the sub-layer's number where it has one.
void MakeLayerCurrent(const std::string& label) {
    CurrentSample = label;
    const std::size_t hyphen = FindChar(label, '-');
    CurrentMainLayer = label.substr(0, hyphen);
    CurrentSubLayer = hyphen == std::string::npos ? "0" : label.substr(hyphen + 1);
    CurrentMethod.clear();  // design values come from no test
}

}  // namespace

const ChartFamily& SampleCharts() {
    static const ChartFamily family = {.guardCaption = "生成颗分试验曲线"_gbk,
                                       .filePrefix = "KF",
                                       .fileKey = SampleFileKey,
                                       .takeChoice = TakeSamples,
                                       .makeCurrent = MakeSampleCurrent,
                                       .drawResultChart = DrawResultChart,
                                       .drawCumulativeChart = DrawCumulativeChart,
                                       .openCharts = OpenSampleChart};
    return family;
}

const ChartFamily& LayerCharts() {
    static const ChartFamily family = {.guardCaption = "生成土层颗分曲线"_gbk,
                                       .filePrefix = "KFSJ",
                                       .fileKey = LayerFileKey,
                                       .takeChoice = TakeLayers,
                                       .makeCurrent = MakeLayerCurrent,
                                       .drawResultChart = DrawLayerResultChart,
                                       .drawCumulativeChart = DrawLayerCumulativeChart,
                                       .openCharts = OpenLayerChart};
    return family;
}
