#pragma once

#include "platform/db/AcDbSymbolTable.h"
#include "platform/dwg/DwgFields.h"

/// What all records of tables have in common.
template <>
struct DwgFields<AcDbSymbolTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& r) {
        v(r.name_, r.referenced_, r.xrefIndex_, r.xrefDependent_);
        v.hardPointers(r.xrefBlock_);
    }
};

/// A table without anything but its records.
template <>
struct DwgFields<AcDbSymbolTable> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& t) {
        v.records(t.records_);
    }
};
