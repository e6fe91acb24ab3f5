#pragma once

#include <cstdint>

namespace AcDb {
/// How an object is opened.
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
/// What an entity's graphics are asked for.
enum SaveType { kR12Save = 0, kR13Save = 1 };
/// Which operands of an intersection are extended beyond their ends.
enum Intersect { kOnBothOperands = 0 };
enum Visibility { kInvisible = 1, kVisible = 0 };
/// What a filer works for.
enum FilerType { kFileFiler = 0, kCopyFiler = 1 };
enum TextHorzMode {
    kTextLeft = 0,
    kTextCenter = 1,
    kTextRight = 2,
    kTextAlign = 3,
    kTextMid = 4,
    kTextFit = 5
};
enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
/// How a reference binds: what is copied with its holder, and what is owned by it.
enum ReferenceType { kSoftPointerRef, kHardPointerRef, kSoftOwnershipRef, kHardOwnershipRef };
}  // namespace AcDb

/// Handle of an object: unique within its drawing for ever, written in the file.
using AcDbHandle = std::uint64_t;
