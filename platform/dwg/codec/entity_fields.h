#pragma once

#include <utility>

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
        plotStyle(v, e);
        v.code(e.visibility_, AcDb::kInvisible);
        v(e.lineWeight_);
    }

private:
    template <class Visitor, class Object>
    static void plotStyle(Visitor& v, Object& e) {
        const AcDbObjectFileData& data = std::as_const(e).fileData();
        std::uint8_t source = data.plotStyleSource;
        AcDbObjectId style = data.plotStyle;
        v.plotStyle(source, style);
        if constexpr (!std::is_const_v<Object>) {
            if (source != data.plotStyleSource || style != data.plotStyle) {
                e.fileData().plotStyleSource = source;
                e.fileData().plotStyle = style;
            }
        }
    }
};
