#pragma once

#include <cstdint>
#include <memory>

#include "platform/db/AcDbObjectId.h"

/// One entry of a database's object table; what an object id points to. The object behind it is
/// owned by the entry. An entry without an object stands for a reference whose target the file did
/// not hold. For the layer's own rooms; modules see ids only.
struct AcDbStub {
    AcDbDatabase* database = nullptr;
    AcDbHandle handle = 0;
    std::unique_ptr<AcDbObject> object;
    int readers = 0;      ///< how many times it is open for read
    bool writer = false;  ///< open for write
    bool erased = false;
    /// Where the object stands in the file that the drawing was read from; 0 for a new object.
    std::uint32_t filePosition = 0;
    /// The entry's place among the entries; set anew whenever the drawing is written or copied.
    std::uint32_t index = 0;
};
