#include "platform/oledb/DataSource.h"

#include "platform/oledb/Session.h"
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

}  // namespace oledb
