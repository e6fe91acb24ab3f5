#pragma once

#include <memory>

#include "platform/oledb/ComObject.h"
#include "platform/oledb/InitString.h"
#include "platform/oledb/Provider.h"
#include "platform/oledb/Transaction.h"
#include "platform/oledb/oledb.h"

namespace oledb {

class Session final : public ComObject<IOpenRowset, IDBCreateCommand, ITransactionLocal> {
public:
    explicit Session(std::shared_ptr<Connection> connection)
        : transaction_(std::make_shared<Transaction>(std::move(connection))) {}

    HRESULT CreateCommand(IUnknown* outer, REFIID riid, IUnknown** command) override;
    HRESULT StartTransaction(ISOLEVEL isolation, ULONG flags, ITransactionOptions* options,
                             ULONG* level) override;
    HRESULT Commit(BOOL retaining, DWORD controls, DWORD reserved) override;
    HRESULT Abort(const void* reason, BOOL retaining, BOOL async) override;

protected:
    IUnknown* Find(REFIID riid) override;

private:
    std::shared_ptr<Transaction> transaction_;
};

class DataSource final : public ComObject<IDBInitialize, IDBCreateSession> {
public:
    /// `provider` must live as long as the data source.
    DataSource(const Provider& provider, InitString properties)
        : provider_(provider), properties_(std::move(properties)) {}

    HRESULT Initialize() override;
    HRESULT CreateSession(IUnknown* outer, REFIID riid, IUnknown** session) override;

protected:
    IUnknown* Find(REFIID riid) override;

private:
    const Provider& provider_;
    InitString properties_;
    std::shared_ptr<Connection> connection_;  ///< null until initialised
};

}  // namespace oledb
