#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dwg {

/// The lines of a text of several paragraphs (GBK), without the codes that change font, height,
/// colour and the like: a stacked fraction becomes a/b. Paragraphs wider than `width` are broken,
/// counting in characters of the text's height, a narrow one as kNarrowCharacter; 0 breaks none.
std::vector<std::string> PlainLines(std::string_view content, double width);

/// How wide a line is about, counted in the same way.
double LineWidth(std::string_view line);

inline constexpr double kNarrowCharacter = 0.6;

}  // namespace dwg
