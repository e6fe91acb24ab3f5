#pragma once

#include <memory>
#include <vector>

#include "platform/db/AcDbBlockTable.h"
#include "platform/dwg/codec/symbol_fields.h"

/// A block definition. Its entities are told by the first and the last of them: each names the
/// next.
template <>
struct DwgFields<AcDbBlockTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& b) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, b);
        v(b.anonymous_, b.hasAttributes_, b.isXref_, b.isOverlay_, b.isXrefLoaded_);
        v(b.origin_, b.xrefPath_);
        v.blockReferenceCount(b, b.insertIds_);
        v(b.description_);
        v.sizedBytes(b.preview_);
        v.hardOwners(b.blockBegin_);
        if (!b.isXref_ && !b.isOverlay_) {
            v.blockEntities(b, b.entities_);
        }
        v.hardOwners(b.blockEnd_);
        v.blockReferences(b.insertIds_);
        v.hardPointers(b.layoutId_);
    }

    static AcDbObjectId& begin(AcDbBlockTableRecord& block) { return block.blockBegin_; }
    static AcDbObjectId& end(AcDbBlockTableRecord& block) { return block.blockEnd_; }
    static std::vector<AcDbObjectId>& entities(AcDbBlockTableRecord& block) {
        return block.entities_;
    }
    /// The references that the file lists which the block was read from.
    static const std::vector<AcDbObjectId>& references(const AcDbBlockTableRecord& block) {
        return block.insertIds_;
    }
    /// A free definition with the same properties and no entities; without a name.
    static std::unique_ptr<AcDbBlockTableRecord> copyWithoutContent(
        const AcDbBlockTableRecord& block) {
        auto copy = std::make_unique<AcDbBlockTableRecord>();
        copy->origin_ = block.origin_;
        copy->anonymous_ = block.anonymous_;
        copy->hasAttributes_ = block.hasAttributes_;
        copy->description_ = block.description_;
        return copy;
    }
    static void setOrigin(AcDbBlockTableRecord& block, const AcGePoint3d& origin) {
        block.origin_ = origin;
    }
};
