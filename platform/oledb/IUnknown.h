#pragma once

#include "platform/win32/win_types.h"

inline constexpr IID IID_IUnknown{
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// An interface pointer that a call hands out counts as one reference of the receiver. Objects are
/// used on one thread only.
struct IUnknown {
    IUnknown() = default;
    IUnknown(const IUnknown&) = delete;
    IUnknown& operator=(const IUnknown&) = delete;

    /// E_NOINTERFACE with `*object` null when the object has no such interface.
    virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG AddRef() = 0;
    /// Destroys the object with the last reference. Returns the references left.
    virtual ULONG Release() = 0;

    virtual ~IUnknown() = default;
};
