#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/db/AcDbObjectId.h"
#include "platform/rx/Acad.h"

/// A reference as a drawing file writes it. Codes 2 to 5: soft and hard ownership, soft and hard
/// pointer; 6, 8, 10 and 12 are pointers written relative to the object's own handle.
struct AcDbKeptReference {
    std::uint8_t code = 0;
    AcDbObjectId id;
};

/// Fields of an object of a drawing file that nothing here reads: kept to be written back.
struct AcDbKeptFields {
    std::vector<std::uint8_t> bits;  ///< from the highest bit of the first byte
    std::size_t bitCount = 0;
    std::vector<AcDbKeptReference> references;
    /// For the rest that a class's own reader left: the kinds of values it read before, one letter
    /// a value; empty otherwise.
    std::string kindsReadBefore;
};

/// A class as the classes section of a drawing lists it.
struct AcDbFileClass {
    std::string appName;
    std::string className;
    std::string dxfName;
    Adesk::Int16 proxyFlags = 0;
    bool wasProxy = false;  ///< the program that wrote the file did not know the class
    bool isEntity = false;
};
