#pragma once

#include <utility>

/// Owns one reference to an interface, or null.
template <class Interface>
class CComPtr {
public:
    CComPtr() = default;
    CComPtr(CComPtr&& other) noexcept : pointer_(other.Detach()) {}
    CComPtr& operator=(CComPtr&& other) noexcept {
        Attach(other.Detach());
        return *this;
    }
    ~CComPtr() { Release(); }

    /// Takes over a reference that a call has handed out, as the pointer to any interface that the
    /// wanted one derives from.
    template <class Given>
    void Attach(Given* reference) {
        Release();
        pointer_ = static_cast<Interface*>(reference);
    }
    /// Gives the reference to the caller.
    Interface* Detach() { return std::exchange(pointer_, nullptr); }
    void Release() {
        if (Interface* const reference = Detach()) reference->Release();
    }

    Interface* operator->() const { return pointer_; }
    // NOLINTNEXTLINE(google-explicit-constructor): handed to calls that take a plain pointer
    operator Interface*() const { return pointer_; }

private:
    Interface* pointer_ = nullptr;
};
