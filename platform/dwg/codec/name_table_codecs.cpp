// Named coordinate systems, names of applications, headers of viewports.
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"
#include "platform/dwg/codec/symbol_fields.h"

template <>
struct DwgFields<AcDbUCSTable> : DwgFields<AcDbSymbolTable> {};

template <>
struct DwgFields<AcDbUCSTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& u) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, u);
        v(u.origin_, u.xAxis_, u.yAxis_, u.elevation_, u.orthographicView_);
        v.hardPointers(u.base_, u.named_);
        auto number = static_cast<Adesk::Int16>(u.viewOrigins_.size());
        v(number);
        v.accept(number >= 0);
        if constexpr (Visitor::kReads) {
            u.viewOrigins_.resize(number < 0 ? 0 : static_cast<std::size_t>(number));
        }
        for (auto& view : u.viewOrigins_) {
            v(view.view, view.origin);
        }
    }
};

template <>
struct DwgFields<AcDbRegAppTable> : DwgFields<AcDbSymbolTable> {};

template <>
struct DwgFields<AcDbRegAppTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& a) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, a);
        v(a.flags_);
    }
};

template <>
struct DwgFields<AcDbVXTable> : DwgFields<AcDbSymbolTable> {};

template <>
struct DwgFields<AcDbVXTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& x) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, x);
        v(x.on_);
        v.softPointers(x.viewport_);
        v.hardPointers(x.previous_);
    }
};

void AddNameTableCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbUCSTable>(62));
    codecs.push_back(CodecOf<AcDbUCSTableRecord>(63));
    codecs.push_back(CodecOf<AcDbRegAppTable>(66));
    codecs.push_back(CodecOf<AcDbRegAppTableRecord>(67));
    codecs.push_back(CodecOf<AcDbVXTable>(70));
    codecs.push_back(CodecOf<AcDbVXTableRecord>(71));
}
