#pragma once

#include <QPainterPath>
#include <QRawFont>
#include <QString>
#include <unordered_map>

namespace paint {

/// An installed font fitted to the cells of a display list: a capital letter (or the box of a
/// double-byte character) stands on the cell's bottom and reaches its top.
class GlyphFont {
public:
    /// A family that is not installed is replaced by the system's nearest.
    GlyphFont(const QString& family, bool fullWidth);

    const QRawFont& raw() const { return raw_; }
    /// Cells per unit of the font, upwards and along.
    double heightScale() const { return heightScale_; }
    double widthScale() const { return widthScale_; }
    /// Units of the font below the baseline at which a cell's bottom is.
    double drop() const { return drop_; }

    struct Glyph {
        quint32 index = 0;
        double advance = 0.0;  ///< in cells; at most 1 is drawn as it is, more is squeezed
    };
    /// The glyph of a character; index 0 when the font has none.
    const Glyph& glyph(char32_t character) const;
    /// The glyph's outline in units of the font, y downwards from the baseline.
    const QPainterPath& outline(quint32 index) const;

private:
    QRawFont raw_;
    mutable std::unordered_map<char32_t, Glyph> glyphs_;
    mutable std::unordered_map<quint32, QPainterPath> outlines_;
    double heightScale_ = 1.0;
    double widthScale_ = 1.0;
    double drop_ = 0.0;
};

}  // namespace paint
