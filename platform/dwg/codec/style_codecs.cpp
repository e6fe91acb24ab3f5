// Layers, line types, dimension styles and styles of multiple lines.
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"
#include "platform/dwg/codec/symbol_fields.h"

template <>
struct DwgFields<AcDbLayerTable> : DwgFields<AcDbSymbolTable> {};

template <>
struct DwgFields<AcDbLayerTableRecord> {
    enum Flag : unsigned {
        kFrozen = 1,
        kOff = 2,
        kFrozenInNewViewports = 4,
        kLocked = 8,
        kPlottable = 16,
        kLineWeight = 0x1FU << 5U,
        kAll = 0x3FF
    };

    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& l) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, l);
        auto flags = static_cast<Adesk::Int16>(flagsOf(l));
        v(flags);
        v.accept((static_cast<unsigned>(flags) & ~kAll) == 0);
        if constexpr (Visitor::kReads) {
            setFlags(l, static_cast<unsigned>(flags));
        }
        v(l.color_);
        v.hardPointers(l.plotStyleId_, l.linetypeId_);
    }

private:
    static unsigned flagsOf(const AcDbLayerTableRecord& l) {
        return (l.frozen_ ? kFrozen : 0U) | (l.off_ ? kOff : 0U) |
               (l.frozenInNewViewports_ ? kFrozenInNewViewports : 0U) | (l.locked_ ? kLocked : 0U) |
               (l.plottable_ ? kPlottable : 0U) |
               (static_cast<unsigned>(l.lineWeight_) << 5U & kLineWeight);
    }

    static void setFlags(AcDbLayerTableRecord& l, unsigned flags) {
        l.frozen_ = (flags & kFrozen) != 0;
        l.off_ = (flags & kOff) != 0;
        l.frozenInNewViewports_ = (flags & kFrozenInNewViewports) != 0;
        l.locked_ = (flags & kLocked) != 0;
        l.plottable_ = (flags & kPlottable) != 0;
        l.lineWeight_ = static_cast<std::uint8_t>((flags & kLineWeight) >> 5U);
    }
};

template <>
struct DwgFields<AcDbLinetypeTable> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& t) {
        v.linetypeRecords(t.records_);
    }
};

template <>
struct DwgFields<AcDbLinetypeTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& l) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, l);
        v(l.description_, l.patternLength_, l.alignment_);
        auto number = static_cast<std::uint8_t>(l.dashes_.size());
        v(number);
        if constexpr (Visitor::kReads) {
            l.dashes_.resize(number);
        }
        for (auto& dash : l.dashes_) {
            v(dash.length, dash.shapeCode);
            v.hardPointers(dash.styleId);
            v.rawDouble(dash.xOffset, dash.yOffset);
            v(dash.scale, dash.rotation, dash.flags);
        }
        v.bytes(l.texts_);
    }
};

template <>
struct DwgFields<AcDbDimStyleTable> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& t) {
        v.records(t.records_);
        auto number = static_cast<std::uint8_t>(t.furtherStyles_.length());
        v(number);
        if constexpr (Visitor::kReads) {
            t.furtherStyles_.setLogicalLength(number);
        }
        for (auto& style : t.furtherStyles_) {
            v.hardPointers(style);
        }
    }
};

template <>
struct DwgFields<AcDbDimStyleTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& d) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, d);
        DimensionVariables::dimensionFields(v, d.variables_);
        v(d.flag_);
    }
};

template <>
struct DwgFields<AcDbMlineStyle> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& s) {
        v(s.name_, s.description_, s.flags_, s.fillColor_, s.startAngle_, s.endAngle_);
        auto number = static_cast<std::uint8_t>(s.elements_.size());
        v(number);
        if constexpr (Visitor::kReads) {
            s.elements_.resize(number);
        }
        for (auto& element : s.elements_) {
            v(element.offset, element.color, element.linetypeIndex);
        }
    }
};

void AddStyleCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbLayerTable>(50));
    codecs.push_back(CodecOf<AcDbLayerTableRecord>(51));
    codecs.push_back(CodecOf<AcDbLinetypeTable>(56));
    codecs.push_back(CodecOf<AcDbLinetypeTableRecord>(57));
    codecs.push_back(CodecOf<AcDbDimStyleTable>(68));
    codecs.push_back(CodecOf<AcDbDimStyleTableRecord>(69));
    codecs.push_back(CodecOf<AcDbMlineStyle>(73));
}
