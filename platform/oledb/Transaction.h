#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/oledb/Provider.h"

namespace oledb {

/// The changes that go through one session: each by itself, or those of a transaction together.
///
/// A transaction begins with the first row that is read or changed in it. A row that the database
/// refuses for what is in it leaves the transaction as it is; any other failure, such as a lock
/// that cannot be had or a full disk, ends it, and nothing of it is written. Every change that was
/// not written is told with its row and values.
class Transaction {
public:
    explicit Transaction(std::shared_ptr<Connection> connection)
        : connection_(std::move(connection)) {}
    ~Transaction() { Abort(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// XACT_E_XTIONEXISTS within a transaction; there is none within another.
    HRESULT Start();
    /// XACT_E_NOTRANSACTION without one. When it gives a failure nothing of it is written.
    HRESULT Commit();
    HRESULT Abort();

    HRESULT Select(std::string_view statement, std::unique_ptr<Selection>& selection);
    /// Makes a change. `what` describes it for the message; `make` leaves the reason of a failure.
    HRESULT Change(const std::function<std::string()>& what,
                   const std::function<HRESULT(std::string& reason)>& make);

private:
    enum class State { None, Started, Begun, Failed };

    void Begin();
    void Fail(HRESULT result, const std::string& reason);

    std::shared_ptr<Connection> connection_;
    State state_ = State::None;
    std::vector<std::string> made_;  ///< the changes made since it has begun
    HRESULT failure_ = S_OK;         ///< by which it failed, and why
    std::string reason_;
};

}  // namespace oledb
