#pragma once

#include "platform/rx/Acad.h"

/// Colour by index: 0 by block, 1 to 255, 256 by layer, 257 none of its own (shown as by layer).
class AcCmColor {
public:
    static constexpr Adesk::UInt16 kByBlock = 0;
    static constexpr Adesk::UInt16 kByLayer = 256;
    static constexpr Adesk::UInt16 kNone = 257;

    Adesk::UInt16 colorIndex() const { return index_; }
    /// eInvalidIndex, and no change, above 257.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index) {
        if (index > kNone) {
            return Acad::eInvalidIndex;
        }
        index_ = index;
        return Acad::eOk;
    }

private:
    Adesk::UInt16 index_ = kByLayer;
};
