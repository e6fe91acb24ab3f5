#include "platform/oledb/Accessor.h"

#include <algorithm>
#include <string>

#include "platform/oledb/last_error.h"
#include "platform/oledb/value_conversion.h"

namespace oledb {
namespace {

DBBINDSTATUS Check(const DBBINDING& binding, std::size_t columns) {
    if (binding.iOrdinal < 1 || binding.iOrdinal > columns) return DBBINDSTATUS_BADORDINAL;
    if (!IsBindableType(binding.wType)) return DBBINDSTATUS_UNSUPPORTEDCONVERSION;
    const bool parts = (binding.dwPart & DBPART_VALUE) != 0 &&
                       (binding.dwPart & ~(DBPART_VALUE | DBPART_STATUS)) == 0;
    if (!parts || binding.dwMemOwner != DBMEMOWNER_CLIENTOWNED ||
        binding.cbMaxLen < MinimumLength(binding.wType)) {
        return DBBINDSTATUS_BADBINDINFO;
    }
    return DBBINDSTATUS_OK;
}

}  // namespace

HRESULT Accessor::Bind(DBCOUNTITEM count, const DBBINDING* bindings, std::size_t columns,
                       DBBINDSTATUS* statuses) {
    HRESULT result = S_OK;
    for (DBCOUNTITEM i = 0; i < count; ++i) {
        const DBBINDSTATUS status = Check(bindings[i], columns);
        if (statuses != nullptr) statuses[i] = status;
        if (status == DBBINDSTATUS_OK) continue;
        result = SetLastError(DB_E_ERRORSOCCURRED,
                              "binding " + std::to_string(i + 1) + " of column " +
                                  std::to_string(bindings[i].iOrdinal) + ": not possible");
    }
    if (SUCCEEDED(result)) bindings_.assign(bindings, bindings + count);
    return result;
}

std::size_t Accessor::LargestPlace() const {
    std::size_t largest = 0;
    for (const DBBINDING& binding : bindings_) {
        largest = std::max<std::size_t>(largest, binding.cbMaxLen);
    }
    return largest;
}

}  // namespace oledb
