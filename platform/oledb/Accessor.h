#pragma once

#include <cstddef>
#include <vector>

#include "platform/oledb/oledb_types.h"

namespace oledb {

/// The bindings of one accessor, checked.
class Accessor {
public:
    /// `statuses` (may be null) gets one status a binding. DB_E_ERRORSOCCURRED when one is not OK.
    HRESULT Bind(DBCOUNTITEM count, const DBBINDING* bindings, std::size_t columns,
                 DBBINDSTATUS* statuses);

    const std::vector<DBBINDING>& Bindings() const { return bindings_; }
    /// Size of the largest value's place.
    std::size_t LargestPlace() const;

private:
    std::vector<DBBINDING> bindings_;
};

}  // namespace oledb
