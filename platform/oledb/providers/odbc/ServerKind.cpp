#include "platform/oledb/providers/odbc/ServerKind.h"

#include <iterator>

namespace oledb::odbc {
namespace {

constexpr const char* kSqlite = "SQLite";

constexpr ServerKind kServers[] = {
    {.name = "PostgreSQL",
     .setUp = "SET lock_timeout = 100; SET extra_float_digits = 3; "
              "SET client_min_messages = warning",
     .setUpReading = "SET default_transaction_read_only = on",
     .tryWriteLock = "SELECT CASE WHEN pg_try_advisory_xact_lock(1196573784) THEN 1 ELSE 0 END",
     .mayChange = "SELECT CASE WHEN bool_and(has_table_privilege(CAST(? AS TEXT), kind)) AND NOT "
                  "pg_is_in_recovery() THEN 1 ELSE 0 END "
                  "FROM unnest(ARRAY['INSERT', 'UPDATE', 'DELETE']) kind",
     .rowId = "ctid",
     .returningRowId = " RETURNING ctid",
     .binaryOrder = " COLLATE \"C\""},
    {.name = kSqlite, .setUpReading = "PRAGMA query_only = ON"},
};
constexpr ServerKind kOther;

/// A row of its own that the server refuses: the others may do.
constexpr std::string_view kRowClasses[] = {"21", "22", "23", "44"};

/// The library's own numbers: its driver knows one state for all failures.
HRESULT ResultOfSqlite(int native, std::string_view message) {
    switch (native & 0xFF) {
        case 5:
        case 6:
            return DB_E_TIMEOUT;
        case 8:
            return DB_SEC_E_PERMISSIONDENIED;
        case 19:
            return DB_E_INTEGRITYVIOLATION;
        case 1:
            return message.find("no such table") != std::string_view::npos ? DB_E_NOTABLE
                                                                           : DB_E_ERRORSINCOMMAND;
        default:
            return E_FAIL;
    }
}

}  // namespace

const ServerKind& ServerKindOf(std::string_view name) {
    for (const ServerKind& server : kServers) {
        if (name == server.name) return server;
    }
    return kOther;
}

HRESULT ResultOf(const ServerKind& server, std::string_view state, int native,
                 std::string_view message) {
    const auto isOneOf = [&](auto... states) { return ((state == states) || ...); };
    if (server.name == std::string_view(kSqlite)) return ResultOfSqlite(native, message);
    // Locks not had at once or in time, deadlocks, and transactions that others have overtaken.
    if (isOneOf("55P03", "40P01", "40001", "HYT00")) return DB_E_TIMEOUT;
    if (isOneOf("42501", "25006")) return DB_SEC_E_PERMISSIONDENIED;
    if (isOneOf("42P01", "42S02")) return DB_E_NOTABLE;
    for (const std::string_view row : kRowClasses) {
        if (state.starts_with(row)) return DB_E_INTEGRITYVIOLATION;
    }
    return state.starts_with("42") || state == "37000" ? DB_E_ERRORSINCOMMAND : E_FAIL;
}

bool IsConnectionLoss(std::string_view state) {
    return state.starts_with("08") || state.starts_with("57P");
}

}  // namespace oledb::odbc
