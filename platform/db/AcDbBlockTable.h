#pragma once

#include <cstdint>
#include <vector>

#include "platform/db/AcDbSymbolTable.h"
#include "platform/ge/AcGePoint3d.h"

class AcDbEntity;

/// A block definition: an ordered list of entities.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;

    /// Appends a free entity: the database owns it from then on, gives it an id and the defaults
    /// still unset, and leaves it open for write: close it. Refused, and still the caller's:
    /// eNullObjectPtr, eAlreadyInDb, eNotInDatabase (this block is in no database), eNullObjectId
    /// (a block reference without a definition).
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// Ids in drawing order, erased ones too.
    const std::vector<AcDbObjectId>& entityIds() const { return entities_; }
    AcGePoint3d origin() const { return origin_; }
    bool isAnonymous() const { return anonymous_; }
    /// True for model space and the paper spaces.
    bool isLayout() const { return !layoutId_.isNull(); }
    /// The copy lists the entities of the source, where they stay.
    std::unique_ptr<AcDbObject> clone() const override;
    std::vector<AcDbObjectId>* growingList() override { return &entities_; }

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    std::vector<AcDbObjectId> entities_;
    AcGePoint3d origin_;
    bool anonymous_ = false;
    bool hasAttributes_ = false;
    bool isXref_ = false;
    bool isOverlay_ = false;
    bool isXrefLoaded_ = false;
    std::string xrefPath_;
    std::string description_;
    std::vector<std::uint8_t> preview_;
    AcDbObjectId blockBegin_;  ///< the file's own entities around a definition
    AcDbObjectId blockEnd_;
    AcDbObjectId layoutId_;
    std::vector<AcDbObjectId> insertIds_;  ///< references to this block, as the file lists them
};

class AcDbBlockTableRecord;

inline constexpr const char* ACDB_MODEL_SPACE = "*Model_Space";
inline constexpr const char* ACDB_PAPER_SPACE = "*Paper_Space";

/// The table of block definitions, model space and paper space among them.
class AcDbBlockTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTable);
    using AcDbSymbolTable::getAt;
    /// Looks the record up and opens it.
    Acad::ErrorStatus getAt(const char* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
};
