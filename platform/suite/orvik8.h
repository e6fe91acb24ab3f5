#pragma once

/// The suite library's operations, as the plug-in imports them. They answer from the suite folder
/// that the host opened (platform/suite/suite_folder.h); texts are zero-terminated GBK. The library
/// has these operations without names, by the ordinals given; a shared library of this system is
/// linked by names only.

/// Fill a buffer of 256 bytes with the full path of a profile file; with an empty text when no
/// suite folder is open.
void GetProjectProfilePath(char* buffer);   // 29
void GetSettingsProfilePath(char* buffer);  // 30
void GetMarkProfilePath(char* buffer);      // 31

/// Fills a buffer of 1024 bytes with the initialisation string of the project's database.
/// 1 done; 0 no suite folder is open, and the text is empty.
int GetDatabaseInitString(char* buffer);  // 15
/// Fills a buffer of 260 bytes with the suite's folder, without a backslash at its end unless it
/// is the root. 1 done; 0 no suite folder is open, and the text is empty.
int GetRegisteredFolder(char* buffer);  // 28
