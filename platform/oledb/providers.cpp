#include "platform/oledb/Provider.h"
#include "platform/oledb/providers/sqlite/SqliteConnection.h"

namespace oledb {

const Provider* FindProvider(std::string_view name) {
    static constexpr Provider kProviders[] = {{"SQLite", sqlite::Connect}};
    for (const Provider& provider : kProviders) {
        if (InitString::SameKeyword(provider.name, name)) return &provider;
    }
    return nullptr;
}

}  // namespace oledb
