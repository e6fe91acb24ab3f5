#pragma once

#include "platform/oledb/SqlDatabase.h"

namespace lab {

/// The open suite folder's project database; Failure when it cannot be opened.
oledb::SqlDatabase OpenProjectDatabase(oledb::Access access);

}  // namespace lab
