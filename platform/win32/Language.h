#pragma once

namespace win32 {

/// The languages in which programs speak to their users.
enum class Language { kEnglish, kChinese };

}  // namespace win32
