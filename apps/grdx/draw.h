#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/grdx/MessageStream.h"
#include "lab/draw_choice.h"

namespace console {

/// What the option and annotation pages are to be set to; what is missing stays as the settings
/// have it. Texts are UTF-8.
struct PageChoices {
    std::optional<std::string> unit;
    std::optional<std::string> tester;
    std::optional<std::string> checker;
    std::optional<std::string> date;  ///< YYYY-MM-DD
    // The check boxes beside these four.
    std::optional<bool> showUnit;
    std::optional<bool> showTester;
    std::optional<bool> showChecker;
    std::optional<bool> showDate;

    std::optional<bool> outerFrame;
    std::optional<bool> rightAxis;
    std::optional<bool> recompute;  ///< of layer charts only
};

/// What one run of a chart command is to draw: samples of one borehole, or layers.
struct DrawRequest {
    bool layers = false;
    std::string borehole;            ///< of sample charts
    std::vector<std::string> items;  ///< sample numbers or layer labels
    bool all = false;                ///< everything that the page offers, instead of `items`
    PageChoices choices;
};

/// What a call is to draw.
struct DrawOrder {
    bool layers = false;
    std::vector<std::string> items;  ///< layer labels
    bool all = false;                ///< all layers, instead of `items`
    lab::DrawChoice samples;
    bool skipFaulty = false;  ///< leaves out samples with an error
    std::string pdf;          ///< file for all sheets made; empty for none
    PageChoices choices;
    std::optional<std::string> curve;  ///< "guarded" or "plain", for this run; else as set
};

/// Runs the chart commands in the suite folder, one for each borehole, and answers their dialogs.
/// Prints the path of every sheet on standard output as it is saved, and that of the PDF file.
/// False when anything asked for was not drawn, stored or plotted; the reasons are told. Failure
/// when the work cannot start.
bool DrawCharts(const std::string& suiteFolder, const DrawOrder& order, MessageStream& messages);

}  // namespace console
