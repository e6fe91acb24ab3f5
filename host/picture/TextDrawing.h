#pragma once

#include <span>
#include <vector>

#include "host/picture/DisplayList.h"
#include "host/picture/ShapeFont.h"
#include "host/picture/text_characters.h"
#include "platform/gi/AcGiTextStyle.h"

namespace picture {

class FontLibrary;

/// Draws the characters of one text into a display list. A character is stroked when a shape font
/// of the style has it, and advances as that says. Any other is one of an installed font: a
/// double-byte character advances by text height × width factor, which is what the charts' layouts
/// count with, a single-byte one by 0.8 of it: the charts count with the whole there too, but leave
/// room for no more in their tables. Tracking sets characters of installed fonts apart, never into
/// each other.
class TextDrawing {
public:
    /// `frame` maps widths of the text's height × width factor and heights to the drawing.
    TextDrawing(DisplayList& list, FontLibrary& fonts, const AcGiTextStyle& style,
                const Affine& frame, int colorIndex, float lineWeight)
        : list_(list),
          fonts_(fonts),
          style_(style),
          frame_(frame),
          colorIndex_(colorIndex),
          lineWeight_(lineWeight),
          tracking_(style.trackingPercent() / 100.0) {}

    void draw(std::span<const TextCharacter> characters);

private:
    const StrokeGlyph* strokesOf(const TextCharacter& character);
    void drawStrokes(const StrokeGlyph& glyph);
    void drawInstalled(const TextCharacter& character);
    void endRun();
    void drawBars(std::span<const TextCharacter> characters, const std::vector<double>& pens,
                  bool TextCharacter::*drawn, double height);

    DisplayList& list_;
    FontLibrary& fonts_;
    const AcGiTextStyle& style_;
    const Affine& frame_;
    int colorIndex_;
    float lineWeight_;
    double tracking_;
    double pen_ = 0.0;  ///< in the frame's widths
    GlyphRun run_;      ///< not yet in the list
};

}  // namespace picture
