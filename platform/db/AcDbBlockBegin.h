#pragma once

#include <string>
#include <utility>

#include "platform/db/AcDbEntity.h"

/// Opens a block definition in drawing files; stands before its entities, not among them.
class AcDbBlockBegin : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
    AcDbBlockBegin() = default;
    explicit AcDbBlockBegin(std::string name) : name_(std::move(name)) {}

    /// The block's name; unlike the record's own it tells several paper spaces apart.
    const char* name() const { return name_.c_str(); }

private:
    template <class T>
    friend struct DwgFields;
    std::string name_;
};

/// Closes a block definition.
class AcDbBlockEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
    AcDbBlockEnd() = default;
};
