#pragma once

#include "platform/db/AcDbDatabase.h"

/// Adds an object of nearly every kind that files have and that nothing here draws: records of all
/// tables, blocks in blocks, dictionaries, application data, and entities that are only kept.
void DrawManyKinds(AcDbDatabase& drawing);
