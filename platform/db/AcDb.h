#pragma once

#include <cstdint>

#include "platform/rx/Acad.h"

namespace AcDb {
/// How an object is opened.
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
/// What an entity's graphics are asked for.
enum SaveType { kR12Save = 0, kR13Save = 1 };
/// Which operands of an intersection are extended beyond their ends.
enum Intersect { kOnBothOperands = 0 };
enum Visibility { kInvisible = 1, kVisible = 0 };
/// Weight of a line, hundredths of a millimetre of paper, or whose weight it takes.
enum LineWeight : Adesk::Int16 {
    kLnWtByLayer = -1,
    kLnWtByBlock = -2,
    kLnWtByLwDefault = -3,
    kLnWt000 = 0,
    kLnWt005 = 5,
    kLnWt009 = 9,
    kLnWt013 = 13,
    kLnWt015 = 15,
    kLnWt018 = 18,
    kLnWt020 = 20,
    kLnWt025 = 25,
    kLnWt030 = 30,
    kLnWt035 = 35,
    kLnWt040 = 40,
    kLnWt050 = 50,
    kLnWt053 = 53,
    kLnWt060 = 60,
    kLnWt070 = 70,
    kLnWt080 = 80,
    kLnWt090 = 90,
    kLnWt100 = 100,
    kLnWt106 = 106,
    kLnWt120 = 120,
    kLnWt140 = 140,
    kLnWt158 = 158,
    kLnWt200 = 200,
    kLnWt211 = 211
};
/// What a filer works for.
enum FilerType { kFileFiler = 0, kCopyFiler = 1, kUndoFiler = 2 };
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
