#include "src/db/CStoreTransaction.h"

#include <utility>

#include "platform/oledb/oledb.h"
#include "src/db/project_database.h"

CStoreTransaction::CStoreTransaction() {
    if (OpenProjectDatabase()) {
        running_ = QueryInterface<ITransactionLocal>(ProjectSession(), IID_ITransactionLocal);
    }
    if (running_ != nullptr &&
        FAILED(running_->StartTransaction(ISOLATIONLEVEL_SERIALIZABLE, 0, nullptr, nullptr))) {
        running_.Release();
    }
}

CStoreTransaction::~CStoreTransaction() {
    Abort();
}

void CStoreTransaction::Abort() {
    if (running_ != nullptr) {
        running_->Abort(nullptr, FALSE, FALSE);
        running_.Release();
    }
}

bool CStoreTransaction::Commit() {
    const CComPtr<ITransactionLocal> ended = std::move(running_);
    return ended == nullptr || SUCCEEDED(ended->Commit(FALSE, 0, 0));
}
