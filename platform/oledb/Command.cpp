#include "platform/oledb/Command.h"

#include "platform/oledb/Rowset.h"
#include "platform/oledb/last_error.h"
#include "platform/win32/code_page.h"

namespace oledb {

IUnknown* Command::Find(REFIID riid) {
    if (riid == IID_ICommandText || riid == IID_ICommand || riid == IID_IUnknown) {
        return static_cast<ICommandText*>(this);
    }
    if (riid == IID_ICommandProperties) return static_cast<ICommandProperties*>(this);
    return nullptr;
}

HRESULT Command::SetCommandText(REFGUID dialect, LPCOLESTR text) {
    if (dialect != DBGUID_DEFAULT) {
        return SetLastError(DB_E_DIALECTNOTSUPPORTED, "command text in an unknown dialect");
    }
    text_ = text == nullptr ? std::string() : win32::Utf8FromUtf16(text);
    return S_OK;
}

HRESULT Command::SetProperties(ULONG count, DBPROPSET* propertySets) {
    if (count != 0 && propertySets == nullptr) return E_INVALIDARG;
    return properties_.Set(count, propertySets);
}

HRESULT Command::Execute(IUnknown* outer, REFIID riid, DBPARAMS* params, DBROWCOUNT* rowsAffected,
                         IUnknown** rowset) {
    if (rowset == nullptr || params != nullptr) return E_INVALIDARG;
    *rowset = nullptr;
    if (rowsAffected != nullptr) *rowsAffected = -1;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    if (text_.empty()) return SetLastError(DB_E_NOCOMMAND, "no command text was set");

    std::unique_ptr<Selection> selection;
    const HRESULT result = transaction_->Select(text_, selection);
    if (FAILED(result)) return result;
    RowsetProperties granted = properties_;
    if (const std::string fault = selection->ChangeFault(); granted.Changes() && !fault.empty()) {
        if (granted.ChangesRequired()) {
            return SetLastError(DB_E_ERRORSOCCURRED,
                                selection->Title() + ": changes were required of " + fault);
        }
        granted = RowsetProperties();
    }
    ClearLastError();
    return HandOut(new Rowset(transaction_, std::move(selection), granted), riid, rowset);
}

}  // namespace oledb
