#include "apps/paint/GlyphFont.h"

#include <QFont>

namespace paint {

namespace {

/// Size in which the font is asked for its measures; everything drawn is scaled from it.
constexpr int kPixelSize = 64;

quint32 GlyphIndex(const QRawFont& font, char32_t character) {
    const QList<quint32> glyphs = font.glyphIndexesForString(QString::fromUcs4(&character, 1));
    return glyphs.isEmpty() ? 0 : glyphs[0];
}

double Advance(const QRawFont& font, quint32 glyph) {
    const QList<QPointF> advances = font.advancesForGlyphIndexes({glyph});
    return advances.isEmpty() ? 0.0 : advances[0].x();
}

QRawFont Unhinted(const QString& family) {
    QFont font(family);
    font.setPixelSize(kPixelSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return QRawFont::fromFont(font, QFontDatabase::SimplifiedChinese);
}

}  // namespace

GlyphFont::GlyphFont(const QString& family, bool fullWidth) : raw_(Unhinted(family)) {
    // A character that fills its box, and one that is as wide as digits are.
    const quint32 measured = GlyphIndex(raw_, fullWidth ? U'国' : U'H');
    const QRectF box = raw_.boundingRect(measured);
    if (measured == 0 || box.isEmpty()) {
        heightScale_ = widthScale_ = 1.0 / kPixelSize;
        return;
    }
    heightScale_ = 1.0 / box.height();
    drop_ = box.bottom();
    widthScale_ = 1.0 / Advance(raw_, fullWidth ? measured : GlyphIndex(raw_, U'0'));
}

const GlyphFont::Glyph& GlyphFont::glyph(char32_t character) const {
    const auto [place, isNew] = glyphs_.try_emplace(character);
    if (isNew) {
        const quint32 index = GlyphIndex(raw_, character);
        place->second = {index, Advance(raw_, index) * widthScale_};
    }
    return place->second;
}

const QPainterPath& GlyphFont::outline(quint32 index) const {
    const auto [place, isNew] = outlines_.try_emplace(index);
    if (isNew) {
        place->second = raw_.pathForGlyph(index);
    }
    return place->second;
}

}  // namespace paint
