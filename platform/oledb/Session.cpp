#include "platform/oledb/Session.h"

#include "platform/oledb/Command.h"

namespace oledb {

IUnknown* Session::Find(REFIID riid) {
    if (riid == IID_IOpenRowset || riid == IID_IUnknown) return static_cast<IOpenRowset*>(this);
    if (riid == IID_IDBCreateCommand) return static_cast<IDBCreateCommand*>(this);
    return nullptr;
}

HRESULT Session::CreateCommand(IUnknown* outer, REFIID riid, IUnknown** command) {
    if (command == nullptr) return E_INVALIDARG;
    *command = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return HandOut(new Command(connection_), riid, command);
}

}  // namespace oledb
