#pragma once

#include "platform/rx/AcRxDynamicLinker.h"

/// The module's two exports. The load message fills the profile paths, registers the curve's class
/// and adds reactor and commands; the unload message takes them away again. Other messages do
/// nothing, and every message is answered with kRetOK.
extern "C" AcRx::EntryPoint acrxEntryPoint;
extern "C" AcRx::GetApiVersion acrxGetApiVersion;
