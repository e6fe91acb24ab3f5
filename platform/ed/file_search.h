#pragma once

#include <string>
#include <vector>

/// Looks a file up on the search path: the name as it stands when it has a folder, else in each
/// search folder in order; a shape font (.shx) also counts as found when the font mapping has an
/// entry for it (name without regard to case). `result` receives the Windows path (the name itself
/// for a mapped font) and must hold 512 bytes; longer paths are not found. RTNORM or RTERROR.
int acedFindFile(const char* fileName, char* result);

namespace ed {
/// Replaces the search folders (Windows paths, GBK).
void SetSearchFolders(std::vector<std::string> folders);
/// Replaces the font mapping by the entries of an INI file (section [Fonts], shape font = installed
/// font); a missing file clears it. Windows path. An entry is read when it is first asked for.
void LoadFontMapping(const std::string& iniPath);
/// The installed font mapped to a shape font; empty when there is none.
std::string MappedFont(const char* shapeFont);
}  // namespace ed
