// The parts of the visitors that need not be inlined into every class's codec.
#include <algorithm>

#include "platform/db/AcDbDatabase.h"
#include "platform/dwg/DwgFieldReader.h"
#include "platform/dwg/DwgFieldWriter.h"

void DwgFieldWriter::softPointerList(const AcDbObjectIdArray& ids) {
    const auto living = [](AcDbObjectId id) { return !id.isErased(); };
    data_.bitLong(static_cast<std::int32_t>(std::count_if(ids.begin(), ids.end(), living)));
    for (const AcDbObjectId id : ids) {
        if (living(id)) {
            reference(4, id);
        }
    }
}

void DwgFieldReader::softPointerList(AcDbObjectIdArray& ids) {
    constexpr unsigned kLeastHandleBits = 8;
    const std::size_t number = count(data_, 0);
    if (number > handles_.remaining() / kLeastHandleBits) {
        handles_.fail();
        return;
    }
    ids.setLogicalLength(static_cast<int>(number));
    for (AcDbObjectId& id : ids) {
        id = reference();
    }
}

AcDbObjectId DwgFieldReader::idOf(AcDbHandle handle) {
    return handle == 0 ? AcDbObjectId::kNull : database_.idOfHandle(handle);
}

std::size_t DwgFieldReader::count(DwgBitReader& from, unsigned least) {
    const std::int32_t number = from.bitLong();
    if (number < 0 || static_cast<std::size_t>(number) * least > from.remaining()) {
        from.fail();
        return 0;
    }
    return static_cast<std::size_t>(number);
}
