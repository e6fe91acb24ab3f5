#pragma once

#include "platform/oledb/oledb_types.h"

namespace oledb {

/// What a command was asked its row set to be capable of.
class RowsetProperties {
public:
    /// All that can be granted, or nothing when a required one cannot; see ICommandProperties.
    HRESULT Set(ULONG count, DBPROPSET* sets);

    /// True when the row set shall offer changes.
    bool Changes() const { return rowsetChange_ || updatability_ != 0; }
    /// True when the command must fail where changes are not possible.
    bool ChangesRequired() const { return changesRequired_; }
    /// True when one of the kinds of change DBPROPVAL_UP_… was asked for.
    bool Allows(LONG kind) const { return (updatability_ & kind) != 0; }

private:
    DBPROPSTATUS Apply(const DBPROP& property);

    bool rowsetChange_ = false;
    bool changesRequired_ = false;
    LONG updatability_ = 0;
};

}  // namespace oledb
