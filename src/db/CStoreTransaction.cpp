#include "src/db/CStoreTransaction.h"

#include <utility>

#include "platform/oledb/oledb.h"
#include "src/db/project_database.h"

CStoreTransaction::CStoreTransaction() {
    void* found = nullptr;
    if (!OpenProjectDatabase() ||
        FAILED(ProjectSession()->QueryInterface(IID_ITransactionLocal, &found))) {
        return;
    }
    running_ = static_cast<ITransactionLocal*>(found);
    if (FAILED(running_->StartTransaction(ISOLATIONLEVEL_SERIALIZABLE, 0, nullptr, nullptr))) {
        std::exchange(running_, nullptr)->Release();
    }
}

CStoreTransaction::~CStoreTransaction() {
    Abort();
}

void CStoreTransaction::Abort() {
    if (running_ != nullptr) {
        running_->Abort(nullptr, FALSE, FALSE);
        std::exchange(running_, nullptr)->Release();
    }
}

bool CStoreTransaction::Commit() {
    if (running_ == nullptr) {
        return true;
    }
    ITransactionLocal* const ended = std::exchange(running_, nullptr);
    const HRESULT result = ended->Commit(FALSE, 0, 0);
    ended->Release();
    return SUCCEEDED(result);
}
