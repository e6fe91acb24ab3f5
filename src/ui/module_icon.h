#pragma once

class CWnd;

/// Gives a sheet or dialog the plug-in's icon, big and small.
void SetModuleIcon(CWnd& window);
