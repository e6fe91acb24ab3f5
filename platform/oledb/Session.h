#pragma once

#include <memory>

#include "platform/oledb/ComObject.h"
#include "platform/oledb/Provider.h"
#include "platform/oledb/oledb.h"

namespace oledb {

class Session final : public ComObject<IOpenRowset, IDBCreateCommand> {
public:
    explicit Session(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    HRESULT CreateCommand(IUnknown* outer, REFIID riid, IUnknown** command) override;

protected:
    IUnknown* Find(REFIID riid) override;

private:
    std::shared_ptr<Connection> connection_;
};

}  // namespace oledb
