#pragma once

#include "host/picture/DisplayList.h"

class AcDbDatabase;

namespace picture {

class FontLibrary;

/// How far the chords of a curve may be from it, drawing units: below what a print shows.
inline constexpr double kChordError = 0.002;

/// What the drawing's model space looks like. What stands on layers that are off, entities on
/// frozen ones, invisible and erased ones are left out. Curves that are told as points keep within
/// `chordError` of their true course; a view that would show more than half a pixel of that asks
/// for less. A drawing whose blocks and patterns multiply beyond what anybody looks at gives a
/// part, which says so.
DisplayList PictureOf(AcDbDatabase& database, FontLibrary& fonts, double chordError = kChordError);

}  // namespace picture
