#pragma once

#include "src/core/GrainSizeRecord.h"

// What curves of drawings have stored while the module is loaded: a curve may be taken back to a
// state in which it counted as stored, and the database holds other values by then.

/// The record's diameters stand in the database.
void NoteStoredValues(const GrainSizeRecord& record);
/// True when other diameters than the record's were stored last for its sample or layer; false when
/// none were.
bool AreOtherValuesStored(const GrainSizeRecord& record);
