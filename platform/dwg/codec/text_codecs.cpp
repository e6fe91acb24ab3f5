// Texts and text styles.
#include "platform/db/AcDbText.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"
#include "platform/dwg/codec/symbol_fields.h"

template <>
struct DwgFields<AcDbText> {
    // Set where a field has its usual value and is not there.
    enum Omitted : std::uint8_t {
        kElevation = 0x01,
        kAlignmentPoint = 0x02,
        kOblique = 0x04,
        kRotation = 0x08,
        kWidthFactor = 0x10,
        kGeneration = 0x20,
        kHorizontalMode = 0x40,
        kVerticalMode = 0x80
    };

    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& t) {
        std::uint8_t omitted = omittedOf(t);
        v(omitted);
        const auto has = [&](Omitted field) { return (omitted & field) == 0; };
        if (has(kElevation)) {
            v.rawDouble(t.position_.z);
        }
        v.rawDouble(t.position_.x, t.position_.y);
        if (has(kAlignmentPoint)) {
            v.doubleWithDefault(t.alignment_.x, t.position_.x);
            v.doubleWithDefault(t.alignment_.y, t.position_.y);
            if constexpr (Visitor::kReads) {
                t.alignment_.z = t.position_.z;
            }
        }
        v.normal(t.normal_);
        v.thickness(t.thickness_);
        if (has(kOblique)) {
            v.rawDouble(t.oblique_);
        }
        if (has(kRotation)) {
            v.rawDouble(t.rotation_);
        }
        v.rawDouble(t.height_);
        if (has(kWidthFactor)) {
            v.rawDouble(t.widthFactor_);
        }
        v(t.text_);
        if (has(kGeneration)) {
            v(t.generation_);
        }
        if (has(kHorizontalMode)) {
            v.code(t.horizontalMode_, AcDb::kTextFit);
        }
        if (has(kVerticalMode)) {
            v.code(t.verticalMode_, AcDb::kTextTop);
        }
        v.hardPointers(t.style_);
    }

private:
    static std::uint8_t omittedOf(const AcDbText& t) {
        const bool aligned =
            t.horizontalMode_ != AcDb::kTextLeft || t.verticalMode_ != AcDb::kTextBase;
        const bool hasPoint = aligned || t.alignment_.x != 0.0 || t.alignment_.y != 0.0;
        return static_cast<std::uint8_t>(
            (t.position_.z == 0.0 ? kElevation : 0) | (hasPoint ? 0 : kAlignmentPoint) |
            (t.oblique_ == 0.0 ? kOblique : 0) | (t.rotation_ == 0.0 ? kRotation : 0) |
            (t.widthFactor_ == 1.0 ? kWidthFactor : 0) | (t.generation_ == 0 ? kGeneration : 0) |
            (t.horizontalMode_ == AcDb::kTextLeft ? kHorizontalMode : 0) |
            (t.verticalMode_ == AcDb::kTextBase ? kVerticalMode : 0));
    }
};

template <>
struct DwgFields<AcDbTextStyleTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& s) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, s);
        v(s.shapeFile_, s.vertical_, s.textSize_, s.xScale_, s.obliquingAngle_, s.generation_,
          s.priorSize_, s.fileName_, s.bigFontFileName_);
    }
};

template <>
struct DwgFields<AcDbTextStyleTable> : DwgFields<AcDbSymbolTable> {};

void AddTextCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbText>(1));
    codecs.push_back(CodecOf<AcDbTextStyleTable>(52));
    codecs.push_back(CodecOf<AcDbTextStyleTableRecord>(53));
}
