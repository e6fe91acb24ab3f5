#pragma once

/// Result of an operation of the drawing database, the documents or the runtime.
/// Only the two values that modules compare by number are fixed; the others are ours.
namespace Acad {
enum ErrorStatus {
    eOk = 0,
    eInvalidInput,          ///< an argument is outside its documented range
    eNotApplicable,         ///< the operation has no meaning for this object
    eNullObjectPtr,         ///< a required pointer is null
    eNullObjectId,          ///< the id names no object
    eNotInDatabase,         ///< the object belongs to no database
    eWrongDatabase,         ///< the object belongs to another database
    eAlreadyInDb,           ///< the object was appended before
    eKeyNotFound,           ///< no entry of that name
    eDuplicateKey,          ///< an entry of that name exists
    eDuplicateRecordName,   ///< a symbol-table record of that name exists
    eInvalidIndex,          ///< an index or a colour outside its range
    eWasErased,             ///< the object is erased and erased objects were not asked for
    eWasOpenForRead,        ///< open for read, so it cannot be opened for write
    eWasOpenForWrite,       ///< open for write, so it cannot be opened again
    eNotOpenForRead,        ///< the operation needs at least read access
    eNotOpenForWrite,       ///< the operation needs write access
    eInvalidOpenState,      ///< an open mode outside the list
    eOnLockedLayer,         ///< the entity's layer is locked
    eDegenerateGeometry,    ///< too few or coinciding points
    eNoDocument,            ///< there is no such document
    eNoDatabase,            ///< there is no working database
    eLockViolation,         ///< the document is locked by somebody else
    eEndOfFile,             ///< a read went past the end of its data
    eNotAnEntity = 46,      ///< the object opened is not an entity
    eFileInternalErr,       ///< the file's own checks fail
    eFileNotFound,          ///< there is no such file
    eFileAccessErr,         ///< the file cannot be opened, read or written
    eNotADrawing,           ///< the file is not a drawing
    eDwgVersionRefused,     ///< the drawing is of a version that is not read
    eDrawingNotOpened = 53  ///< a document could not be made of the file
};
}  // namespace Acad

namespace Adesk {
using Boolean = bool;
using Int8 = signed char;
using UInt8 = unsigned char;
using Int16 = short;
using UInt16 = unsigned short;
using Int32 = int;
using UInt32 = unsigned int;
inline constexpr bool kTrue = true;
inline constexpr bool kFalse = false;
}  // namespace Adesk
