#include "platform/oledb/ComObject.h"
#include "platform/oledb/DataSource.h"
#include "platform/oledb/oledb.h"
#include "platform/win32/code_page.h"

namespace oledb {
namespace {

class DataInitialize final : public ComObject<IDataInitialize> {
public:
    HRESULT GetDataSource(IUnknown* outer, DWORD clsContext, LPCOLESTR initString, REFIID riid,
                          IUnknown** dataSource) override;

protected:
    IUnknown* Find(REFIID riid) override {
        return riid == IID_IDataInitialize || riid == IID_IUnknown ? this : nullptr;
    }
};

HRESULT DataInitialize::GetDataSource(IUnknown* outer, DWORD clsContext, LPCOLESTR initString,
                                      REFIID riid, IUnknown** dataSource) {
    if (dataSource == nullptr || *dataSource != nullptr || initString == nullptr ||
        (clsContext & CLSCTX_INPROC_SERVER) == 0) {
        return E_INVALIDARG;
    }
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    InitString properties;
    const Provider* provider = nullptr;
    const HRESULT result = ReadInitString(win32::Utf8FromUtf16(initString), properties, provider);
    if (FAILED(result)) return result;
    return HandOut(new DataSource(*provider, std::move(properties)), riid, dataSource);
}

}  // namespace
}  // namespace oledb

HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* outer, DWORD clsContext, REFIID riid,
                         void** object) {
    if (object == nullptr || (clsContext & CLSCTX_INPROC_SERVER) == 0) return E_INVALIDARG;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    if (rclsid != CLSID_MSDAINITIALIZE) return REGDB_E_CLASSNOTREG;
    IUnknown* made = nullptr;
    const HRESULT result = oledb::HandOut(new oledb::DataInitialize, riid, &made);
    *object = made;
    return result;
}
