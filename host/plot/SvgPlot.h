#pragma once

#include <string>

class AcDbDatabase;

namespace plot {

/// The drawing's model space as one SVG page, UTF-8, one drawing unit a millimetre. The page is the
/// smaller of A4 upright and A3 lengthwise that holds everything drawn, from (0, 0); a drawing that
/// fits neither gets a page around its extents. What stands on layers that are off or frozen is
/// left out. Texts are set with the installed fonts that the font mapping names, each character to
/// the advance of one text height times the width factor, which is what the charts' layouts count
/// with.
std::string SvgOf(AcDbDatabase& database);

}  // namespace plot
