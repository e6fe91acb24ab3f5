#pragma once

#include <vector>

/// What the module of the linker's tests is to do, and what it saw. The test program owns it; the
/// module finds it by name.
struct ModuleScript {
    int apiVersion = 15;
    int answer = 0;      ///< to every message
    bool unlock = true;  ///< ask to be unloadable during the load message
    bool unlocked = false;
    bool foreignPacketTaken = false;
    std::vector<int> messages;
};

extern "C" ModuleScript moduleScript;
