#pragma once

#include <string>
#include <vector>

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDbObject.h"

/// A style of multiple lines.
class AcDbMlineStyle : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbMlineStyle);
    AcDbMlineStyle() = default;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    /// One of the parallel lines.
    struct Element {
        double offset = 0.0;
        AcCmColor color;
        Adesk::Int16 linetypeIndex = kByLayerLinetype;
    };
    static constexpr Adesk::Int16 kByLayerLinetype = 32767;

    std::string name_;
    std::string description_;
    Adesk::Int16 flags_ = 0;
    AcCmColor fillColor_;
    double startAngle_ = 1.57079632679489662;
    double endAngle_ = 1.57079632679489662;
    std::vector<Element> elements_;
};
