#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/grdx/MessageStream.h"
#include "platform/mfc/FrameModel.h"

namespace console {

/// Holds the sheets that a chart command makes against what was chosen in its property sheet: not
/// for every chart that cannot be drawn the command says so.
class ChartTally {
public:
    explicit ChartTally(MessageStream& messages) : messages_(messages) {}

    /// To be told of every dialog that was confirmed; of chart commands' sheets the choice is
    /// noted.
    void NoteConfirmed(mfc::FrameModel& window);
    /// To be told of every drawing saved.
    void NoteSaved() { ++saved_; }

    /// Whether a choice was noted.
    bool Begun() const { return !picked_.empty(); }
    std::size_t Saved() const { return saved_; }
    /// Sheets of the choice.
    std::size_t Expected() const { return (picked_.size() + perSheet_ - 1) / perSheet_; }

    /// Once the command has ended: false, after saying which charts are missing and why, when there
    /// are too few sheets. Then all is forgotten.
    bool Judge();

private:
    void ReportMissing() const;
    void ReportSilentReasons(std::size_t first, std::size_t end) const;
    std::string NameOf(const std::string& item) const;

    MessageStream& messages_;
    std::vector<std::string> picked_;  ///< in the order of the page, without marks, UTF-8
    std::string borehole_;             ///< UTF-8; empty for layers
    std::size_t perSheet_ = 1;
    std::size_t saved_ = 0;
};

/// How many charts a sheet of a project of that standard code has room for.
std::size_t ChartsPerSheet(int standardCode);
/// "1 sheet", "2 sheets".
std::string SheetCount(std::size_t count);

}  // namespace console
