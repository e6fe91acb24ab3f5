#pragma once

#include "platform/oledb/oledb.h"
#include "platform/oledb/oledb_errors.h"

namespace oledb {

/// Reference counting and interface look-up for an object with the given interfaces. It starts
/// with one reference, its maker's.
template <class... Interfaces>
class ComObject : public Interfaces... {
public:
    HRESULT QueryInterface(REFIID riid, void** object) final {
        if (object == nullptr) return E_INVALIDARG;
        IUnknown* found = Find(riid);
        *object = found;
        if (found == nullptr) return E_NOINTERFACE;
        found->AddRef();
        return S_OK;
    }
    ULONG AddRef() final { return ++references_; }
    ULONG Release() final {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    /// The object as the interface `riid` (whose address is that of its IUnknown part), or null.
    virtual IUnknown* Find(REFIID riid) = 0;

private:
    ULONG references_ = 1;
};

/// Gives the caller the wanted interface of a new object and drops the maker's reference, so that
/// an object without that interface goes away again.
template <class Object>
HRESULT HandOut(Object* made, REFIID riid, IUnknown** out) {
    void* found = nullptr;
    const HRESULT result = made->QueryInterface(riid, &found);
    made->Release();
    *out = static_cast<IUnknown*>(found);
    return result;
}

}  // namespace oledb
