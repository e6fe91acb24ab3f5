#pragma once

#include <string>

#include "platform/oledb/InitString.h"

namespace oledb::odbc {

/// What an initialisation string says of a connection.
struct ConnectionFacts {
    std::string text;      ///< for the driver manager, UTF-8, password included
    std::string name;      ///< the server and its database, for messages
    std::string password;  ///< empty: none is given
    int timeoutSeconds = 10;
};

/// Takes out what is this system's own: "Provider", and "Connect Timeout", the seconds that a
/// connection may take; the driver gets all the rest. Data Source, User ID, Password and Initial
/// Catalog are other names for DSN, Uid, Pwd and Database. A password that is not given comes from
/// the environment's GRDX_DB_PASSWORD. False with the reason in `error` when the string will not
/// do.
bool ReadConnectionFacts(const InitString& properties, ConnectionFacts& facts, std::string& error);

}  // namespace oledb::odbc
