#pragma once

#include "platform/mfc/resources.h"

class CWnd;

/// Everything that the plug-in brings along as resources: its dialog templates and its icon.
const mfc::ModuleResources& PluginResources();

/// Gives a sheet or dialog the plug-in's icon, big and small.
void SetModuleIcon(CWnd& window);
