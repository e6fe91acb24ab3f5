#pragma once

#include <functional>
#include <utility>

#include "platform/db/AcDbObjectId.h"
#include "platform/dwg/DwgFields.h"

/// Visitor that replaces the ids among an object's fields and leaves the values alone.
class DwgIdTranslator {
public:
    static constexpr bool kReads = false;
    using Replacement = std::function<AcDbObjectId(AcDbObjectId)>;

    /// `replacement` is asked for every id that is not null.
    explicit DwgIdTranslator(Replacement replacement) : replacement_(std::move(replacement)) {}

    template <class... Id>
    void softOwners(Id&... ids) {
        (replace(ids), ...);
    }
    template <class... Id>
    void hardOwners(Id&... ids) {
        (replace(ids), ...);
    }
    template <class... Id>
    void softPointers(Id&... ids) {
        (replace(ids), ...);
    }
    template <class... Id>
    void hardPointers(Id&... ids) {
        (replace(ids), ...);
    }
    /// Ids without a replacement are taken out.
    void softPointerList(AcDbObjectIdArray& ids) {
        AcDbObjectIdArray replaced;
        for (AcDbObjectId id : ids) {
            replace(id);
            if (!id.isNull()) {
                replaced.append(id);
            }
        }
        ids = replaced;
    }
    void linetype(AcDbObjectId& id) { replace(id); }
    template <class Source>
    void plotStyle(Source& /*source*/, AcDbObjectId& id) {
        replace(id);
    }
    void replace(AcDbObjectId& id) {
        if (!id.isNull()) {
            id = replacement_(id);
        }
    }

    // Values.
    template <class... T>
    void operator()(T&... /*values*/) {}
    template <class... T>
    void rawDouble(T... /*values*/) {}
    void doubleWithDefault(double /*value*/, double /*other*/) {}
    template <class... T>
    void bitPoint(T&... /*points*/) {}
    void thickness(double /*value*/) {}
    template <class Vector>
    void normal(Vector& /*vector*/) {}
    void smallBits(unsigned /*value*/, unsigned /*count*/) {}
    template <class E>
    void code(E /*value*/, E /*last*/) {}
    template <class List>
    void count(List& /*list*/, unsigned /*least*/) {}
    template <class Bytes>
    void bytes(Bytes& /*bytes*/) {}
    template <class Bytes>
    void sizedBytes(Bytes& /*bytes*/) {}
    void accept(bool /*condition*/) {}

    // Lists of tables and blocks are made anew in the other drawing.
    template <class... Lists>
    void records(Lists&... /*lists*/) {}
    template <class... Lists>
    void blockRecords(Lists&... /*lists*/) {}
    template <class... Lists>
    void linetypeRecords(Lists&... /*lists*/) {}
    template <class... Lists>
    void blockEntities(Lists&... /*lists*/) {}
    template <class... Lists>
    void blockReferenceCount(Lists&... /*lists*/) {}
    template <class... Lists>
    void blockReferences(Lists&... /*lists*/) {}

private:
    Replacement replacement_;
};
