#pragma once

#include "platform/db/AcDbSymbolTable.h"
#include "platform/db/DimensionVariables.h"

/// A dimension style: one set of dimension variables.
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord() = default;

    const DimensionVariables& variables() const { return variables_; }
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    DimensionVariables variables_;
    bool flag_ = false;  ///< of no known meaning
};

/// The table of dimension styles.
class AcDbDimStyleTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTable);

private:
    template <class T>
    friend struct DwgFields;
    AcDbObjectIdArray furtherStyles_;  ///< named a second time by some programs
};
