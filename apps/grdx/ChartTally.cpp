#include "apps/grdx/ChartTally.h"

#include <algorithm>

#include "apps/grdx/Failure.h"
#include "apps/grdx/sheet_lists.h"
#include "apps/grdx/suite_access.h"
#include "lab/suite_database.h"
#include "platform/win32/code_page.h"
#include "src/core/curve_shape.h"
#include "src/facts/control_ids.h"

namespace console {

namespace {
/// Why no chart of a sample can be drawn although nobody says so; empty when there is no such
/// reason.
std::string SilentSampleReason(oledb::SqlDatabase& database, int projectIndex,
                               const std::string& borehole, const std::string& sample) {
    oledb::SqlStatement row(database,
                            "SELECT KLTYZL FROM Z_c_KeFen WHERE GCSY=? AND ZKBH=? AND QYBH=?");
    row.Bind(1, projectIndex);
    row.Bind(2, borehole);
    row.Bind(3, sample);
    if (!row.Step()) {
        return "it has no row of results (table Z_c_KeFen)";
    }
    return row.Number(0) ? "" : "its row of results has no total mass";
}

/// The same of a layer, by the label that the page gave it.
std::string SilentLayerReason(oledb::SqlDatabase& database, int projectIndex,
                              const std::string& label) {
    const std::size_t hyphen = label.find('-');
    oledb::SqlStatement row(database, "SELECT 1 FROM x_SheJi WHERE GCSY=? AND ZCBH=? AND YCBH=?");
    row.Bind(1, projectIndex);
    row.Bind(2, std::stoi(label));
    row.Bind(3, hyphen == std::string::npos ? 0 : std::stoi(label.substr(hyphen + 1)));
    return row.Step() ? "" : "it has no design values any more (table x_SheJi)";
}

}  // namespace

std::size_t ChartsPerSheet(int standardCode) {
    return ChartKindOf(standardCode) == ChartKind::cumulative ? 6 : 2;
}

std::string SheetCount(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " sheet" : " sheets");
}

void ChartTally::NoteConfirmed(mfc::FrameModel& window) {
    const mfc::ListBoxModel* const items = FindSheetList(window, IDC_SAMPLES);
    if (items == nullptr) {
        return;
    }
    const mfc::ListBoxModel* const boreholes = FindSheetList(window, IDC_BOREHOLES);
    const auto text = [](const mfc::ListBoxModel::Item& item) {
        return win32::Utf8FromGbk(WithoutMark(item.text));
    };
    borehole_ = boreholes != nullptr && boreholes->Valid(boreholes->Caret())
                    ? text(boreholes->Items()[static_cast<std::size_t>(boreholes->Caret())])
                    : "";
    for (const mfc::ListBoxModel::Item& item : items->Items()) {
        if (item.selected) {
            picked_.push_back(text(item));
        }
    }
    perSheet_ = ChartsPerSheet(CurrentProject().code);
    saved_ = 0;
}

bool ChartTally::Judge() {
    const bool complete = saved_ >= Expected();
    if (!complete) {
        ReportMissing();
    }
    picked_.clear();
    saved_ = 0;
    return complete;
}

/// Sheets are made in the order of the page; the first that cannot be made is the last tried.
void ChartTally::ReportMissing() const {
    const std::size_t first = saved_ * perSheet_;
    std::string names;
    for (std::size_t i = first; i < picked_.size(); ++i) {
        names += (i == first ? "" : ", ") + picked_[i];
    }
    messages_.Report(SheetCount(Expected() - saved_) + " not made; not drawn: " + names);
    ReportSilentReasons(first, std::min(first + perSheet_, picked_.size()));
}

void ChartTally::ReportSilentReasons(std::size_t first, std::size_t end) const {
    try {
        oledb::SqlDatabase database = lab::OpenProjectDatabase(oledb::Access::Read);
        const int index = CurrentProject().index;
        for (std::size_t i = first; i < end; ++i) {
            const std::string reason =
                borehole_.empty() ? SilentLayerReason(database, index, picked_[i])
                                  : SilentSampleReason(database, index, borehole_, picked_[i]);
            if (!reason.empty()) {
                messages_.Report(NameOf(picked_[i]) + ": " + reason);
            }
        }
    } catch (const Failure& failure) {
        messages_.Report(failure.what());
    }
}

std::string ChartTally::NameOf(const std::string& item) const {
    return borehole_.empty() ? "layer \"" + item + '"'
                             : "sample \"" + item + "\" of borehole \"" + borehole_ + '"';
}

}  // namespace console
