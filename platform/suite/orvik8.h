#pragma once

/// The suite library's operations, as the plug-in imports them. They answer from the suite folder
/// that the host opened (platform/suite/suite_folder.h); texts are zero-terminated GBK.

/// Fill a buffer of 256 bytes with the full path of a profile file; with an empty text when no
/// suite folder is open.
void GetProjectProfilePath(char* buffer);
void GetSettingsProfilePath(char* buffer);
void GetMarkProfilePath(char* buffer);

/// Fills a buffer of 1024 bytes with the initialisation string of the project's database.
/// 1 done; 0 no suite folder is open, and the text is empty.
int GetDatabaseInitString(char* buffer);
/// Fills a buffer of 260 bytes with the suite's folder, without a backslash at its end unless it
/// is the root. 1 done; 0 no suite folder is open, and the text is empty.
int GetRegisteredFolder(char* buffer);
