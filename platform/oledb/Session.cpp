#include "platform/oledb/Session.h"

#include "platform/oledb/Command.h"

namespace oledb {

IUnknown* Session::Find(REFIID riid) {
    if (riid == IID_IOpenRowset || riid == IID_IUnknown) return static_cast<IOpenRowset*>(this);
    if (riid == IID_IDBCreateCommand) return static_cast<IDBCreateCommand*>(this);
    if (riid == IID_ITransactionLocal || riid == IID_ITransaction) {
        return static_cast<ITransactionLocal*>(this);
    }
    return nullptr;
}

HRESULT Session::CreateCommand(IUnknown* outer, REFIID riid, IUnknown** command) {
    if (command == nullptr) return E_INVALIDARG;
    *command = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return HandOut(new Command(transaction_), riid, command);
}

HRESULT Session::StartTransaction(ISOLEVEL /*isolation*/, ULONG flags, ITransactionOptions* options,
                                  ULONG* level) {
    if (flags != 0 || options != nullptr) return E_INVALIDARG;
    if (level != nullptr) *level = 1;
    return transaction_->Start();
}

HRESULT Session::Commit(BOOL retaining, DWORD /*controls*/, DWORD /*reserved*/) {
    return retaining != FALSE ? E_INVALIDARG : transaction_->Commit();
}

HRESULT Session::Abort(const void* /*reason*/, BOOL retaining, BOOL /*async*/) {
    return retaining != FALSE ? E_INVALIDARG : transaction_->Abort();
}

}  // namespace oledb
