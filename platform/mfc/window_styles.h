#pragma once

#include "platform/win32/win_types.h"

// Styles of windows and controls that have a meaning in this layer, with their published values.
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;

inline constexpr DWORD DS_MODALFRAME = 0x80;

inline constexpr DWORD ES_AUTOHSCROLL = 0x80;

inline constexpr DWORD BS_PUSHBUTTON = 0x0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x1;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x3;
inline constexpr DWORD BS_LEFTTEXT = 0x20;

/// Without it a list box does not tell its parent of selections.
inline constexpr DWORD LBS_NOTIFY = 0x1;
inline constexpr DWORD LBS_SORT = 0x2;
inline constexpr DWORD LBS_MULTIPLESEL = 0x8;

// Window classes of controls, by the names that templates give them.
inline constexpr const char* WC_BUTTON = "Button";
inline constexpr const char* WC_EDIT = "Edit";
inline constexpr const char* WC_STATIC = "Static";
inline constexpr const char* WC_LISTBOX = "ListBox";
inline constexpr const char* DATETIMEPICK_CLASS = "SysDateTimePick32";

/// Id of a control that nobody addresses.
inline constexpr WORD IDC_STATIC = 0xFFFF;
