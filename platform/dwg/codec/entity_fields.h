#pragma once

#include "platform/db/AcDbEntity.h"
#include "platform/dwg/DwgFields.h"

/// What all entities have in common, apart from their place in the drawing.
template <>
struct DwgFields<AcDbEntity> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& e) {
        v(e.color_, e.linetypeScale_);
        v.hardPointers(e.layerId_);
        v.linetype(e.linetypeId_);
        v.plotStyle(e.fileData().plotStyleSource, e.fileData().plotStyle);
        v.code(e.visibility_, AcDb::kInvisible);
        v(e.lineWeight_);
    }
};
