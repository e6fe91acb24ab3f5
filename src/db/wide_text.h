#pragma once

#include <string>

#include "platform/win32/win_types.h"

/// GBK as UTF-16, the way the database takes texts.
std::basic_string<WCHAR> WideText(const std::string& text);
