#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/db/AcDbObject.h"

/// A named record of a symbol table. Names compare without regard to case (double-byte characters
/// as they are).
class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    const char* name() const { return name_.c_str(); }
    /// eInvalidInput for an empty name, eAlreadyInDb for a record that is in a table.
    Acad::ErrorStatus setName(const char* name);

protected:
    AcDbSymbolTableRecord() = default;
    AcDbSymbolTableRecord(const AcDbSymbolTableRecord&) = default;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbSymbolTable;
    /// Gives a record that is being added what its drawing sets where nothing was set.
    virtual void takeDefaults(const AcDbDatabase& database);

    std::string name_;
    bool referenced_ = true;      ///< by an entity when last edited, as files note it
    bool xrefDependent_ = false;  ///< came from a drawing attached to this one
    Adesk::Int16 xrefIndex_ = 0;  ///< 1 above the number of that drawing; 0 for this one's own
    AcDbObjectId xrefBlock_;      ///< the block that stands for that drawing
};

/// A table of named records, in the order they were added.
class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);
    AcDbSymbolTable() = default;
    /// Null: a table is not copied, its records are.
    std::unique_ptr<AcDbObject> clone() const override;

    bool has(const char* name) const;
    /// eKeyNotFound, and a null id, when there is no such record (erased ones do not count).
    Acad::ErrorStatus getAt(const char* name, AcDbObjectId& id, bool getErased = false) const;
    /// Adds a free record, which the database owns from then on and which stays open for write:
    /// close it. Refused, and still the caller's: eNullObjectPtr, eAlreadyInDb, eInvalidInput (no
    /// name), eDuplicateRecordName, eNotInDatabase (this table is in no database).
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    /// All records, erased ones too.
    const std::vector<AcDbObjectId>& records() const { return records_; }
    std::vector<AcDbObjectId>* growingList() override;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    AcDbObjectId find(const char* name) const;
    void bringIndexUpToDate() const;

    std::vector<AcDbObjectId> records_;
    // Of the first `indexed_` records; the rest is looked at when a name is next asked for.
    mutable std::unordered_map<std::string, AcDbObjectId> byFoldedName_;
    mutable std::size_t indexed_ = 0;
};
