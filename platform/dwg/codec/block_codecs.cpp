// Block definitions, the entities around them, and references to them.
#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/codec/block_record_fields.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"

template <>
struct DwgFields<AcDbBlockTable> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& t) {
        v.blockRecords(t.records_);
    }
};

template <>
struct DwgFields<AcDbBlockBegin> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& b) {
        v(b.name_);
    }
};

template <>
struct DwgFields<AcDbBlockEnd> {
    template <class Visitor, class Object>
    static void fields(Visitor& /*v*/, Object& /*b*/) {}
};

template <>
struct DwgFields<AcDbBlockReference> {
    enum Scale : std::uint8_t { kAllGiven = 0, kXIsOne = 1, kUniform = 2, kNone = 3 };

    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& r) {
        v(r.position_);
        scaleFields(v, r.scale_);
        v(r.rotation_, r.normal_);
        bool hasAttributes = false;
        v(hasAttributes);
        v.accept(!hasAttributes);
        v.hardPointers(r.block_);
    }

private:
    template <class Visitor, class AnyScale>
    static void scaleFields(Visitor& v, AnyScale& s) {
        std::uint8_t scale = scaleOf(s);
        v.smallBits(scale, 2);
        if (scale == kUniform) {
            v.rawDouble(s.sx);
            if constexpr (Visitor::kReads) {
                s.sy = s.sz = s.sx;
            }
        } else if (scale != kNone) {
            if (scale == kAllGiven) {
                v.rawDouble(s.sx);
            }
            v.doubleWithDefault(s.sy, s.sx);
            v.doubleWithDefault(s.sz, s.sx);
        }
    }

    static std::uint8_t scaleOf(const AcGeScale3d& s) {
        if (s.sx == s.sy && s.sx == s.sz) {
            return s.sx == 1.0 ? kNone : kUniform;
        }
        return s.sx == 1.0 ? kXIsOne : kAllGiven;
    }
};

void AddBlockCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbBlockBegin>(4));
    codecs.push_back(CodecOf<AcDbBlockEnd>(5));
    codecs.push_back(CodecOf<AcDbBlockReference>(7));
    codecs.push_back(CodecOf<AcDbBlockTable>(48));
    codecs.push_back(CodecOf<AcDbBlockTableRecord>(49));
}
