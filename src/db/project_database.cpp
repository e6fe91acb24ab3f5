#include "src/db/project_database.h"

#include "platform/mfc/message_box.h"
#include "platform/oledb/oledb.h"
#include "platform/suite/orvik8.h"
#include "src/core/gbk_text.h"

namespace {

/// The flags, not the pointers, tell what has been done.
struct ConnectionState {
    IDBInitialize* dataSource = nullptr;
    IOpenRowset* session = nullptr;
    int dataSourceOpen = 0;
    int sessionOpen = 0;
};
ConnectionState connection;

template <class Interface>
void Release(Interface*& pointer) {
    if (pointer != nullptr) pointer->Release();
    pointer = nullptr;
}

/// The data source for the string, not initialised; null when there is none.
IDBInitialize* MakeDataSource(const char* initString) {
    void* made = nullptr;
    if (FAILED(CoCreateInstance(CLSID_MSDAINITIALIZE, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IDataInitialize, &made))) {
        return nullptr;
    }
    auto* const initialize = static_cast<IDataInitialize*>(made);
    IUnknown* source = nullptr;
    const HRESULT result = initialize->GetDataSource(
        nullptr, CLSCTX_INPROC_SERVER, WideText(initString).c_str(), IID_IDBInitialize, &source);
    initialize->Release();
    return FAILED(result) ? nullptr : static_cast<IDBInitialize*>(source);
}

bool OpenDataSource() {
    char initString[1024] = "";
    if (GetDatabaseInitString(initString) == 0) return false;
    connection.dataSource = MakeDataSource(initString);
    if (connection.dataSource == nullptr) return false;
    if (FAILED(connection.dataSource->Initialize())) {
        Release(connection.dataSource);
        return false;
    }
    connection.dataSourceOpen = 1;
    return true;
}

bool OpenSession() {
    void* found = nullptr;
    if (FAILED(connection.dataSource->QueryInterface(IID_IDBCreateSession, &found))) return false;
    auto* const sessions = static_cast<IDBCreateSession*>(found);
    IUnknown* session = nullptr;
    const HRESULT result = sessions->CreateSession(nullptr, IID_IOpenRowset, &session);
    sessions->Release();
    if (FAILED(result)) return false;
    connection.session = static_cast<IOpenRowset*>(session);
    connection.sessionOpen = 1;
    return true;
}

}  // namespace

bool OpenProjectDatabase() {
    if (connection.dataSourceOpen == 0 && !OpenDataSource()) return false;
    return connection.sessionOpen != 0 || OpenSession();
}

IOpenRowset* ProjectSession() {
    return connection.session;
}

void CloseProjectDatabase() {
    Release(connection.session);
    Release(connection.dataSource);
    connection = {};
}

void ReportTableOpenError(int code) {
    switch (code) {
        case kSampleTableError:
            AfxMessageBox("不能打开常规试验表,请检查数据!"_gbk);
            break;
        case kGrainSizeTableError:
            AfxMessageBox("不能打开颗分试验表!请检查!"_gbk);
            break;
        case kTestItemTableError:
            AfxMessageBox("不能打开颗分试验项目表,请检查数据!"_gbk);
            break;
        case kProjectTableError:
            AfxMessageBox("不能打开工点信息数据表,请检查数据!"_gbk);
            break;
        default:
            break;
    }
}

bool QueryRegisteredFolder(std::string& folder) {
    char buffer[260] = "";
    if (GetRegisteredFolder(buffer) != 1) return false;
    folder = buffer;
    return true;
}
