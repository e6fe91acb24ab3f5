#pragma once

/// Letters for the kinds of values that a class files, to tell later which it has filed.
namespace filer_kinds {
inline constexpr char kBoolean = 'B';
inline constexpr char kShort = 'S';
inline constexpr char kLong = 'L';
inline constexpr char kDouble = 'D';
inline constexpr char kPoint = 'P';
inline constexpr char kText = 'T';
inline constexpr char kPointer = 'H';
}  // namespace filer_kinds
