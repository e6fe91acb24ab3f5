#pragma once

#include "platform/oledb/oledb.h"

/// The one connection to the project database that every table shares.

/// True when the data source and the session are open after the call. Steps that were done are not
/// repeated, failed ones start again, including the question for the initialisation string. Shows
/// nothing.
bool OpenProjectDatabase();
/// The session, or null while it is not open. The caller takes no reference of its own.
IOpenRowset* ProjectSession();
/// Closes the connection when the module unloads; tables still open keep it alive until they close.
/// The next table opens it anew, from the initialisation string of that time.
void CloseProjectDatabase();
