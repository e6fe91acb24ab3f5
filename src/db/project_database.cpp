#include "src/db/project_database.h"

#include <utility>

#include "platform/mfc/message_box.h"
#include "platform/oledb/oledb.h"
#include "platform/suite/orvik8.h"
#include "src/core/gbk_text.h"

namespace {

/// The flags, not the pointers, tell what has been done.
struct ConnectionState {
    CComPtr<IDBInitialize> dataSource;
    CComPtr<IOpenRowset> session;
    int dataSourceOpen = 0;
    int sessionOpen = 0;
};
ConnectionState connection;

/// The data source for the string, not initialised; null when there is none.
CComPtr<IDBInitialize> MakeDataSource(const char* initString) {
    CComPtr<IDBInitialize> made;
    void* found = nullptr;
    if (FAILED(CoCreateInstance(CLSID_MSDAINITIALIZE, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IDataInitialize, &found))) {
        return made;
    }
    CComPtr<IDataInitialize> initialize;
    initialize.Attach(static_cast<IDataInitialize*>(found));
    IUnknown* source = nullptr;
    if (SUCCEEDED(initialize->GetDataSource(nullptr, CLSCTX_INPROC_SERVER,
                                            WideText(initString).c_str(), IID_IDBInitialize,
                                            &source))) {
        made.Attach(source);
    }
    return made;
}

bool OpenDataSource() {
    char initString[1024] = "";
    if (GetDatabaseInitString(initString) == 0) return false;
    CComPtr<IDBInitialize> source = MakeDataSource(initString);
    if (source == nullptr || FAILED(source->Initialize())) return false;
    connection.dataSource = std::move(source);
    connection.dataSourceOpen = 1;
    return true;
}

bool OpenSession() {
    const auto sessions =
        QueryInterface<IDBCreateSession>(connection.dataSource, IID_IDBCreateSession);
    IUnknown* session = nullptr;
    if (sessions == nullptr ||
        FAILED(sessions->CreateSession(nullptr, IID_IOpenRowset, &session))) {
        return false;
    }
    connection.session.Attach(session);
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
    connection.session.Release();
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
