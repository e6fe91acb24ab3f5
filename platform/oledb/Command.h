#pragma once

#include <memory>
#include <string>

#include "platform/oledb/ComObject.h"
#include "platform/oledb/RowsetProperties.h"
#include "platform/oledb/Transaction.h"
#include "platform/oledb/oledb.h"

namespace oledb {

class Command final : public ComObject<ICommandText, ICommandProperties> {
public:
    explicit Command(std::shared_ptr<Transaction> transaction)
        : transaction_(std::move(transaction)) {}

    HRESULT SetCommandText(REFGUID dialect, LPCOLESTR text) override;
    HRESULT SetProperties(ULONG count, DBPROPSET* propertySets) override;
    HRESULT Execute(IUnknown* outer, REFIID riid, DBPARAMS* params, DBROWCOUNT* rowsAffected,
                    IUnknown** rowset) override;

protected:
    IUnknown* Find(REFIID riid) override;

private:
    std::shared_ptr<Transaction> transaction_;
    std::string text_;  ///< UTF-8; empty: none set
    RowsetProperties properties_;
};

}  // namespace oledb
