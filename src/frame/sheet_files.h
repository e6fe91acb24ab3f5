#pragma once

#include <memory>
#include <string>

#include "platform/db/AcDbDatabase.h"
#include "src/chart/CDrawTools.h"

/// A new drawing in memory with the charts' layer current; null, after telling the user, when the
/// layer cannot be made so.
std::unique_ptr<AcDbDatabase> NewSheet(const CDrawTools& tools);

/// File name of a sheet, without folder: `prefix`, the key of its first chart and, when another
/// chart is the last one, `separator` and that chart's key.
std::string SheetFileName(const std::string& prefix, const std::string& firstKey,
                          const std::string& separator, const std::string& lastKey);

/// Writes the sheet into the folder (which ends with a backslash) and notes it in MadeSheets and
/// LastSheetPath. False, and nothing noted, when it cannot be written.
bool SaveSheet(AcDbDatabase& sheet, const std::string& folder, const std::string& fileName);
