#pragma once

/// Makes the folder (a Windows path) the current one. 0 done, -1 not.
int _chdir(const char* path);
/// Makes the folder; its parent must exist. 0 done, -1 not, also when it exists already. Any other
/// failure is a file fault.
int _mkdir(const char* path);
