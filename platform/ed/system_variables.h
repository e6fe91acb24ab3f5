#pragma once

#include "platform/ed/adesk_results.h"

/// Reads a system variable (name without regard to case) into `result`; RTERROR when unknown.
int acedGetVar(const char* name, resbuf* result);
/// Sets a system variable; RTERROR when unknown or of another kind. Known: SDI (RTSHORT 0 or 1).
int acedSetVar(const char* name, const resbuf* value);
