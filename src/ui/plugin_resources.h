#pragma once

#include "platform/mfc/resources.h"

/// Everything that the plug-in brings along as resources: its dialog templates and its icon.
const mfc::ModuleResources& PluginResources();
