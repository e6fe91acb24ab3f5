#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "platform/ge/AcGePoint3d.h"
#include "platform/gi/AcGiTextStyle.h"

/// Outlines of the shapes that drawing contexts take, for contexts that only know points.
namespace gi {

/// The corners of a line with widths, around it. A line without length has all of them in it.
std::array<AcGePoint3d, 4> WideLineCorners(const AcGePoint3d& start, const AcGePoint3d& end,
                                           double startWidth, double endWidth);

/// The part of a text that is drawn: `length` bytes, all of it for -1. Null is an empty text.
std::string_view TextPart(const char* message, int length);
/// The corners of a text's frame, counter-clockwise from its left end on the baseline: as wide as
/// text size × width factor a character, as high as the text size.
std::array<AcGePoint3d, 4> TextCorners(const AcGePoint3d& position, const AcGeVector3d& normal,
                                       const AcGeVector3d& direction, std::string_view gbk,
                                       const AcGiTextStyle& style);

/// Points along an arc in the plane z = const, both ends included; `sweepAngle` may be negative.
std::vector<AcGePoint3d> ArcPoints(const AcGePoint3d& center, double radius, double startAngle,
                                   double sweepAngle);
/// Points around a circle, the first repeated at the end.
std::vector<AcGePoint3d> CirclePoints(const AcGePoint3d& center, double radius,
                                      const AcGeVector3d& normal);

}  // namespace gi
