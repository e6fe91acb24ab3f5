#pragma once

#include "platform/db/AcDbEntity.h"

/// Lets the user pick an entity. Gives it open in `mode` and highlighted, for the caller to
/// unhighlight and close, with its id in `id`; null, after a line on the command line, when nothing
/// was picked or the pick cannot be opened. `prompt` is GBK.
AcDbEntity* SelectEntity(const char* prompt, AcDbObjectId& id, AcDb::OpenMode mode);
