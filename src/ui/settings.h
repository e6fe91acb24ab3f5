#pragma once

#include <string>

/// What the option and annotation pages remember, by key in the settings profile. A missing profile
/// or key reads as off, or as an empty text; a failed write is not told.
bool ReadSettingFlag(const char* key);
/// At most 49 bytes, cut at a whole character.
std::string ReadSettingText(const char* key);
/// Whether the charts' curves are to be guarded: for this run of the program, or else by the
/// settings profile.
bool ReadGuardedCurves();
void WriteSettingFlag(const char* key, bool on);
void WriteSettingText(const char* key, const std::string& text);

/// The whole text of a key, however long; empty when file, section or key is missing.
std::string ReadProfileText(const char* section, const std::string& key, const std::string& path);
