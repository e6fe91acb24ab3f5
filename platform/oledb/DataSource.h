#pragma once

#include <memory>

#include "platform/oledb/ComObject.h"
#include "platform/oledb/InitString.h"
#include "platform/oledb/Provider.h"
#include "platform/oledb/oledb.h"

namespace oledb {

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
