#include "host/picture/ShapePen.h"

#include <array>
#include <cmath>
#include <numbers>

namespace picture {

namespace {

enum Command {
    kEnd = 0,
    kPenDown = 1,
    kPenUp = 2,
    kDivide = 3,
    kMultiply = 4,
    kKeepPlace = 5,
    kReturn = 6,
    kSubshape = 7,
    kStep = 8,
    kSteps = 9,
    kOctantArc = 10,
    kFractionalArc = 11,
    kBulgeArc = 12,
    kBulgeArcs = 13,
    kVerticalOnly = 14,
};

constexpr int kDeepest = 16;       // shapes within shapes
constexpr int kMostSteps = 20000;  // commands of one character
constexpr std::size_t kMostKept = 64;
constexpr double kOctant = std::numbers::pi / 4.0;
constexpr double kBulgeUnit = 127.0;
constexpr double kOffsetUnit = 256.0;

constexpr std::array<Point, 16> kDirections{{{1.0, 0.0},
                                             {1.0, 0.5},
                                             {1.0, 1.0},
                                             {0.5, 1.0},
                                             {0.0, 1.0},
                                             {-0.5, 1.0},
                                             {-1.0, 1.0},
                                             {-1.0, 0.5},
                                             {-1.0, 0.0},
                                             {-1.0, -0.5},
                                             {-1.0, -1.0},
                                             {-0.5, -1.0},
                                             {0.0, -1.0},
                                             {0.5, -1.0},
                                             {1.0, -1.0},
                                             {1.0, -0.5}}};

}  // namespace

/// A shape's commands from first to last; past the end it reads zeros and says so.
class ShapePen::Commands {
public:
    explicit Commands(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool isOverrun() const { return overrun_; }
    int next() {
        if (position_ == bytes_.size()) {
            overrun_ = true;
            return 0;
        }
        return bytes_[position_++];
    }
    int nextSigned() { return static_cast<std::int8_t>(next()); }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    bool overrun_ = false;
};

bool ShapePen::draw(int number) {
    return follow(number);
}

bool ShapePen::follow(int number) {
    if (++depth_ > kDeepest) {
        return false;
    }
    Commands commands(font_.commands(number));
    penDown_ = true;
    bool good = true;
    for (int command = commands.next(); good && command != kEnd; command = commands.next()) {
        good = ++steps_ <= kMostSteps && follow(command, commands) && !commands.isOverrun();
    }
    --depth_;
    return good && !commands.isOverrun();
}

bool ShapePen::follow(int command, Commands& commands) {
    if (command > kVerticalOnly + 1) {
        stepAlong(command);
        return true;
    }
    switch (command) {
        case kPenDown:
        case kPenUp:
            penDown_ = command == kPenDown;
            inStroke_ = false;
            return true;
        case kDivide:
        case kMultiply: {
            const int factor = commands.next();
            scale_ = scale_ * (command == kMultiply ? factor : 1.0 / factor);
            return factor != 0;
        }
        case kKeepPlace:
            kept_.push_back(place_);
            return kept_.size() <= kMostKept;
        case kReturn:
            if (kept_.empty()) {
                return false;
            }
            place_ = kept_.back();
            kept_.pop_back();
            inStroke_ = false;
            return true;
        case kSubshape:
            return followSubshape(commands);
        case kStep: {
            const int dx = commands.nextSigned();
            step(dx, commands.nextSigned());
            return true;
        }
        case kSteps:
            for (int dx = commands.nextSigned(), dy = commands.nextSigned(); dx != 0 || dy != 0;
                 dx = commands.nextSigned(), dy = commands.nextSigned()) {
                step(dx, dy);
            }
            return true;
        case kOctantArc: {
            const int radius = commands.next();
            octantArc(radius, commands.next(), 0.0, 0.0);
            return true;
        }
        case kFractionalArc: {
            const double start = commands.next() / kOffsetUnit;
            const double end = commands.next() / kOffsetUnit;
            const int high = commands.next();
            const int radius = 256 * high + commands.next();
            octantArc(radius, commands.next(), start, end);
            return true;
        }
        case kBulgeArc: {
            const int dx = commands.nextSigned();
            const int dy = commands.nextSigned();
            bulgeArc(dx, dy, commands.nextSigned());
            return true;
        }
        case kBulgeArcs:
            for (int dx = commands.nextSigned(), dy = commands.nextSigned(); dx != 0 || dy != 0;
                 dx = commands.nextSigned(), dy = commands.nextSigned()) {
                bulgeArc(dx, dy, commands.nextSigned());
            }
            return true;
        case kVerticalOnly:
            skip(commands);
            return true;
        default:
            return false;
    }
}

/// A shape that the font does not have is passed over: fonts refer to shapes of their makers'.
bool ShapePen::followSubshape(Commands& commands) {
    int number = commands.next();
    if (font_.kind() == ShapeFontFile::Kind::kUnifont) {
        number = 256 * number + commands.next();
    } else if (font_.kind() == ShapeFontFile::Kind::kBigFont && number == 0) {
        return followPart(commands);
    }
    return font_.commands(number).empty() || follow(number);
}

/// A part of a composed character: shape, place and size in units of the character.
bool ShapePen::followPart(Commands& commands) {
    const int high = commands.next();
    const int number = 256 * high + commands.next();
    const int x = commands.nextSigned();
    const int y = commands.nextSigned();
    const double width = commands.next();
    const double height = commands.next();
    const double unit = font_.width() > 0.0 ? font_.width() : font_.height();
    composed_ = true;
    if (font_.commands(number).empty() || unit == 0.0 || font_.height() == 0.0) {
        return true;
    }
    const Point place = place_;
    const Point scale = scale_;
    place_ = place + Point{x * scale.x, y * scale.y};
    scale_ = {scale.x * width / unit, scale.y * height / font_.height()};
    inStroke_ = false;
    const bool good = follow(number);
    place_ = place;
    scale_ = scale;
    inStroke_ = false;
    return good;
}

/// Passes over one command with all that belongs to it.
void ShapePen::skip(Commands& commands) {
    ShapePen unseen(font_);
    const int command = commands.next();
    if (command != kSubshape) {
        unseen.kept_.push_back({});
        unseen.follow(command, commands);
    } else if (const int number = commands.next(); font_.kind() == ShapeFontFile::Kind::kUnifont) {
        commands.next();
    } else if (font_.kind() == ShapeFontFile::Kind::kBigFont && number == 0) {
        constexpr int kBytesOfPart = 6;
        for (int i = 0; i < kBytesOfPart; ++i) {
            commands.next();
        }
    }
}

void ShapePen::stepAlong(int lengthAndDirection) {
    const Point direction = kDirections[static_cast<std::size_t>(lengthAndDirection & 15)];
    const int length = lengthAndDirection >> 4;
    step(direction.x * length, direction.y * length);
}

void ShapePen::step(double dx, double dy) {
    lineTo(place_ + Point{dx * scale_.x, dy * scale_.y});
}

void ShapePen::lineTo(Point place) {
    if (penDown_) {
        if (!inStroke_) {
            strokes_.push_back({place_});
        }
        strokes_.back().push_back(place);
    }
    inStroke_ = penDown_;
    place_ = place;
}

/// An arc whose ends lie on eighths of the circle: bits 4 to 6 the first, bits 0 to 2 how many (0
/// for all), bit 7 clockwise. Offsets, in parts of an eighth, move the start on and let
/// the arc end within its last eighth.
void ShapePen::octantArc(double radius, int octants, double startOffset, double endOffset) {
    const double turn = (octants & 0x80) != 0 ? -1.0 : 1.0;
    const int first = (octants >> 4) & 7;
    const int count = (octants & 7) == 0 ? 8 : octants & 7;
    const double span = endOffset > 0.0 ? count - 1 + endOffset : count;
    const double start = first * kOctant + turn * startOffset * kOctant;
    const double sweep = turn * (span - startOffset) * kOctant;
    const auto at = [&](double angle) {
        return Point{std::cos(angle) * radius * scale_.x, std::sin(angle) * radius * scale_.y};
    };
    const Point center = place_ - at(start);
    constexpr double kChord = std::numbers::pi / 36.0;
    const int chords = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / kChord)));
    for (int i = 1; i <= chords; ++i) {
        lineTo(center + at(start + sweep * i / chords));
    }
}

/// An arc over a chord; `bulge` is 127 times its height over half the chord, positive for
/// counter-clockwise.
void ShapePen::bulgeArc(double dx, double dy, int bulge) {
    const double b = bulge / kBulgeUnit;
    if (bulge == 0 || (dx == 0.0 && dy == 0.0)) {
        step(dx, dy);
        return;
    }
    const double offset = (1.0 - b * b) / (4.0 * b);
    const Point center{0.5 * dx - dy * offset, 0.5 * dy + dx * offset};
    const double radius = std::hypot(center.x, center.y);
    const double start = std::atan2(-center.y, -center.x);
    const double sweep = 4.0 * std::atan(b);
    const Point from = place_;
    constexpr double kChord = std::numbers::pi / 36.0;
    const int chords = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / kChord)));
    for (int i = 1; i < chords; ++i) {
        const double angle = start + sweep * i / chords;
        lineTo(from + Point{(center.x + radius * std::cos(angle)) * scale_.x,
                            (center.y + radius * std::sin(angle)) * scale_.y});
    }
    lineTo(from + Point{dx * scale_.x, dy * scale_.y});
}

}  // namespace picture
