#include "platform/oledb/Transaction.h"

#include <utility>

#include "platform/oledb/last_error.h"

namespace oledb {
namespace {

/// Failures that concern the database and not the row that was to be changed.
bool ConcernsAll(HRESULT result) {
    return result == DB_E_TIMEOUT || result == DB_SEC_E_PERMISSIONDENIED || result == E_FAIL;
}

HRESULT NotWritten(HRESULT result, const std::string& what, const std::string& reason) {
    return SetLastError(result, what + ": " + reason);
}

}  // namespace

HRESULT Transaction::Start() {
    if (state_ != State::None) return XACT_E_XTIONEXISTS;
    state_ = State::Started;
    return S_OK;
}

void Transaction::Begin() {
    std::string reason;
    const HRESULT result = connection_->Begin(reason);
    state_ = State::Begun;
    if (FAILED(result)) Fail(result, reason);
}

void Transaction::Fail(HRESULT result, const std::string& reason) {
    connection_->Rollback();
    state_ = State::Failed;
    failure_ = result;
    reason_ = reason;
    for (const std::string& what : std::exchange(made_, {})) NotWritten(result, what, reason);
}

HRESULT Transaction::Commit() {
    if (state_ == State::None) return XACT_E_NOTRANSACTION;
    if (state_ == State::Begun) {
        std::string reason;
        const HRESULT result = connection_->Commit(reason);
        if (FAILED(result)) Fail(result, reason);
    }
    const bool failed = std::exchange(state_, State::None) == State::Failed;
    made_.clear();
    return failed ? XACT_E_ABORTED : S_OK;
}

HRESULT Transaction::Abort() {
    if (state_ == State::None) return XACT_E_NOTRANSACTION;
    if (std::exchange(state_, State::None) == State::Begun) connection_->Rollback();
    made_.clear();
    return S_OK;
}

HRESULT Transaction::Select(std::string_view statement, std::unique_ptr<Selection>& selection) {
    // What is read here decides what is written: nobody else writes in between.
    if (state_ == State::Started) Begin();
    return connection_->Select(statement, selection);
}

HRESULT Transaction::Change(const std::function<std::string()>& what,
                            const std::function<HRESULT(std::string& reason)>& make) {
    if (state_ == State::Started) Begin();
    if (state_ == State::Failed) return NotWritten(failure_, what(), reason_);
    std::string reason;
    const HRESULT result = make(reason);
    if (SUCCEEDED(result)) {
        if (state_ == State::Begun) made_.push_back(what());
        return result;
    }
    if (state_ == State::Begun && ConcernsAll(result)) Fail(result, reason);
    return NotWritten(result, what(), reason);
}

}  // namespace oledb
