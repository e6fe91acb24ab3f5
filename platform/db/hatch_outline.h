#pragma once

#include <vector>

#include "platform/db/AcDbHatch.h"

/// The geometry of a hatch's loops, in the coordinates of its plane.
namespace db {

using Outline = std::vector<AcGePoint2d>;

/// The loop as a closed polygon, curves in short chords; the first point is not repeated.
Outline OutlineOf(const AcDbHatch::Loop& loop);
/// One polygon for several: joined by seams that are walked both ways, so that what lies within an
/// odd number of outlines is inside. Empty for none.
Outline JoinOutlines(const std::vector<Outline>& outlines);

/// A straight stroke of a pattern.
struct Stroke {
    AcGePoint2d start;
    AcGePoint2d end;
};
/// The strokes of one family of pattern lines where they lie within an odd number of outlines. A
/// family so fine that it would take more than 20,000 lines or 100,000 strokes gives none. Those
/// that `context` gives up on are left out.
std::vector<Stroke> StrokesWithin(const AcDbHatch::PatternLine& family,
                                  const std::vector<Outline>& outlines,
                                  const AcGiWorldDraw& context);

}  // namespace db
