// Dictionaries, and the objects without fields that some of them name.
#include <algorithm>

#include "platform/db/AcDbDictionary.h"
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"

template <>
struct DwgFields<AcDbDictionary> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& d) {
        constexpr unsigned kLeastNameBits = 2;
        decltype(auto) entries = living(d);
        v.count(entries, kLeastNameBits);
        v(d.cloning_, d.hardOwner_);
        for (auto& [name, id] : entries) {
            v(name);
        }
        for (auto& [name, id] : entries) {
            if (d.hardOwner_ != 0) {
                v.hardOwners(id);
            } else {
                v.softOwners(id);
            }
        }
    }

private:
    static std::vector<AcDbDictionary::Entry>& living(AcDbDictionary& d) { return d.entries_; }
    static std::vector<AcDbDictionary::Entry> living(const AcDbDictionary& d) {
        std::vector<AcDbDictionary::Entry> entries = d.entries_;
        std::erase_if(entries, [](const auto& entry) { return entry.second.isErased(); });
        return entries;
    }
};

template <>
struct DwgFields<AcDbDictionaryWithDefault> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& d) {
        using Base =
            std::conditional_t<std::is_const_v<Object>, const AcDbDictionary, AcDbDictionary>;
        DwgFields<AcDbDictionary>::fields(v, static_cast<Base&>(d));
        v.hardPointers(d.default_);
    }
};

template <>
struct DwgFields<AcDbPlaceHolder> {
    template <class Visitor, class Object>
    static void fields(Visitor& /*v*/, Object& /*p*/) {}
};

void AddDictionaryCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbDictionary>(42));
    codecs.push_back(CodecOf<AcDbDictionaryWithDefault>(
        DatabaseClass("AcDbDictionaryWithDefault", "ACDBDICTIONARYWDFLT")));
    codecs.push_back(CodecOf<AcDbPlaceHolder>(DatabaseClass("AcDbPlaceHolder", "ACDBPLACEHOLDER")));
}
