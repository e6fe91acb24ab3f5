#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Texts are GBK inside the system and UTF-16 in windows.
namespace windows {

QString FromGbk(std::string_view gbk);
/// A character that GBK does not have becomes '?'.
std::string ToGbk(const QString& text);
/// False when a character has no GBK form.
bool IsGbk(const QString& text);

}  // namespace windows
