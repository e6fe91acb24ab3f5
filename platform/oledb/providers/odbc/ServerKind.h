#pragma once

#include <string>
#include <string_view>

#include "platform/oledb/oledb_errors.h"

namespace oledb::odbc {

/// In what database servers differ: everything that is not standard stands here.
struct ServerKind {
    const char* name = "";  ///< as its driver tells it
    /// Statements for every new connection; empty for none. No statement may wait for a lock for
    /// longer than a moment: whether to wait on is not the server's to decide.
    const char* setUp = "";
    /// The same for a connection that changes nothing.
    const char* setUpReading = "";
    /// A select that takes the right to write for the rest of the transaction, which only one of
    /// this system's programs has at a time, without waiting for it: 1, or 0 when another one has
    /// it. Empty: there is no such thing.
    const char* tryWriteLock = "";
    /// A select of 1 when the user may insert, change and delete rows of the table whose name is
    /// its parameter, else 0. Empty: everybody who may read may.
    const char* mayChange = "";
    /// A column that tells rows of a table without keys apart, and what makes an update give it
    /// anew. Empty: there is none that the catalogue does not know.
    const char* rowId = "";
    const char* returningRowId = "";
    /// Behind a column's type: its texts sort by their bytes.
    const char* binaryOrder = "";
};

/// By the name that a driver tells; what is true of every server when it is unknown.
const ServerKind& ServerKindOf(std::string_view name);

/// What a failure stands for. `state` is standard, `native` the driver's own number.
HRESULT ResultOf(const ServerKind& server, std::string_view state, int native,
                 std::string_view message);
/// True when `state` says that the connection is no more.
bool IsConnectionLoss(std::string_view state);

}  // namespace oledb::odbc
