#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/paint/sheet_pages.h"

namespace plot {

enum class Format { kPdf, kSvg, kPng };

/// What is to be plotted. Paths are of the file system, UTF-8.
struct Request {
    std::vector<std::string> drawings;
    Format format = Format::kPdf;
    /// The file to write; empty for one beside each drawing, with the format's ending. Several
    /// drawings become the pages of one PDF file; other formats take one drawing with it.
    std::string output;
    paint::PlotOptions options;
};

/// Where the calls tell what they did.
struct Report {
    std::function<void(const std::string& path)> written;
    std::function<void(const std::string& finding)> refused;
    std::function<void(const std::string& finding)> noted;  ///< plotted all the same
};

/// Plots model spaces. Curves draw themselves when the plug-in is loaded, and as their proxy
/// graphics when it is not. A drawing that cannot be read or a file that cannot be written is
/// refused by name and the others go on; a file of several pages is written only when all of its
/// drawings could be read. What a damaged drawing still has is plotted, and what is missing noted.
/// True when nothing was refused and nothing was missing.
bool Plot(const Request& request, const Report& report);

}  // namespace plot
