#pragma once

#include <vector>

#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgBitReader.h"

/// The values of an entity that is kept, in the codings that entities share.
class KeptBits : public DwgBitReader {
public:
    explicit KeptBits(const AcDbKeptEntity& entity)
        : DwgBitReader(entity.keptFields().bits.data(), 0, entity.keptFields().bitCount) {}

    AcGePoint3d point() {
        const double x = bitDouble();
        const double y = bitDouble();
        return {x, y, bitDouble()};
    }
    AcGeVector3d vector() { return point() - AcGePoint3d(); }
    AcGePoint3d rawPoint(double z) {
        const double x = rawDouble();
        return {x, rawDouble(), z};
    }
    void thickness() {
        if (!bit()) {
            bitDouble();
        }
    }
    AcGeVector3d extrusion() { return bit() ? AcGeVector3d::kZAxis : vector(); }
};

/// The object that a reference of the entity names, the first having number 0; null for none.
AcDbObjectId ReferenceAt(const AcDbKeptEntity& entity, std::size_t index);

/// The entities that belong to one: its references number `first` and the next name the first and
/// the last of them.
std::vector<AcDbKeptEntity*> PartsOf(const AcDbKeptEntity& entity, std::size_t first);
