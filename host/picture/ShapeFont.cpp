#include "host/picture/ShapeFont.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "host/picture/ShapePen.h"

namespace picture {

namespace {

constexpr int kByte = 256;

/// A sign that fonts have under numbers of their own.
struct Sign {
    int code;         ///< by which texts name it
    int shapeNumber;  ///< in shape fonts that count beyond single bytes
};
constexpr Sign kSigns[] = {{127, 256}, {128, 257}, {129, 258}};

}  // namespace

ShapeFont::ShapeFont(ShapeFontFile file)
    : file_(std::move(file)), height_(file_.height() > 0.0 ? file_.height() : measuredHeight()) {}

/// A font that does not say how tall its characters are is measured by one that fills its box.
double ShapeFont::measuredHeight() const {
    constexpr int kFullBox = 0xB9FA;
    Box box;
    for (const int number : {kFullBox, static_cast<int>('H')}) {
        ShapePen pen(file_);
        if (!file_.commands(number).empty() && pen.draw(number)) {
            for (const std::vector<Point>& stroke : pen.strokes()) {
                std::for_each(stroke.begin(), stroke.end(), [&](Point p) { box.add(p); });
            }
        }
    }
    return box.isEmpty() || box.top <= 0.0 ? 1.0 : box.top;
}

int ShapeFont::numberOf(const TextCharacter& character) const {
    switch (file_.kind()) {
        case ShapeFontFile::Kind::kUnifont:
            return static_cast<int>(character.unicode);
        case ShapeFontFile::Kind::kBigFont:
            return character.doubleByte && file_.isLeadByte(character.gbk / kByte) ? character.gbk
                                                                                   : 0;
        case ShapeFontFile::Kind::kShapes:
            break;
    }
    if (character.doubleByte) {
        return 0;
    }
    for (const Sign& sign : kSigns) {
        if (character.gbk == sign.code && !file_.commands(sign.shapeNumber).empty()) {
            return sign.shapeNumber;
        }
    }
    return character.gbk;
}

const StrokeGlyph* ShapeFont::glyph(const TextCharacter& character) {
    const int number = numberOf(character);
    if (number == 0) {
        return nullptr;
    }
    const auto [place, isNew] = glyphs_.try_emplace(number);
    if (isNew) {
        place->second = read(number);
    }
    return place->second ? &*place->second : nullptr;
}

std::optional<StrokeGlyph> ShapeFont::read(int number) {
    if (file_.commands(number).empty()) {
        return std::nullopt;
    }
    ShapePen pen(file_);
    if (!pen.draw(number)) {
        if (!faultTold_) {
            char text[80];
            std::snprintf(text, sizeof text, "byte %zu: the commands of shape %d make no character",
                          file_.place(number), number);
            fault_ = text;
        }
        return std::nullopt;
    }
    StrokeGlyph glyph{pen.strokes(), pen.place().x / height_};
    for (std::vector<Point>& stroke : glyph.strokes) {
        for (Point& point : stroke) {
            point = point * (1.0 / height_);
        }
    }
    if (pen.isComposed() && glyph.advance == 0.0) {
        glyph.advance = (file_.width() > 0.0 ? file_.width() : height_) / height_;
    }
    if (!(glyph.advance > 0.0)) {
        glyph.advance = 1.0;  // what layouts count with where a font says nothing
    }
    return glyph;
}

std::string ShapeFont::takeFault() {
    faultTold_ = faultTold_ || !fault_.empty();
    return std::exchange(fault_, {});
}

}  // namespace picture
