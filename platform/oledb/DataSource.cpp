#include "platform/oledb/DataSource.h"

#include "platform/oledb/Command.h"
#include "platform/oledb/last_error.h"

namespace oledb {

IUnknown* DataSource::Find(REFIID riid) {
    if (riid == IID_IDBInitialize || riid == IID_IUnknown) return static_cast<IDBInitialize*>(this);
    if (riid == IID_IDBCreateSession) return static_cast<IDBCreateSession*>(this);
    return nullptr;
}

HRESULT DataSource::Initialize() {
    if (connection_) return DB_E_ALREADYINITIALIZED;
    const HRESULT result = provider_.connect(properties_, Access::Change, connection_);
    if (SUCCEEDED(result)) ClearLastError();
    return result;
}

HRESULT DataSource::CreateSession(IUnknown* outer, REFIID riid, IUnknown** session) {
    if (session == nullptr) return E_INVALIDARG;
    *session = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    if (!connection_) return SetLastError(E_UNEXPECTED, "the data source is not initialised");
    return HandOut(new Session(connection_), riid, session);
}

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
