#include "platform/oledb/Provider.h"
#include "platform/oledb/last_error.h"
#include "platform/oledb/providers/odbc/OdbcConnection.h"
#include "platform/oledb/providers/sqlite/SqliteConnection.h"

namespace oledb {

HRESULT ReadInitString(std::string_view utf8, InitString& properties, const Provider*& provider) {
    static constexpr Provider kProviders[] = {{"SQLite", sqlite::Connect},
                                              {"MSDASQL", odbc::Connect}};
    std::string error;
    if (!properties.Parse(utf8, error)) return SetLastError(DB_E_BADINITSTRING, error);
    const std::string* const name = properties.Find("Provider");
    if (name == nullptr) {
        return SetLastError(DB_E_BADINITSTRING, "initialisation string: no Provider is named");
    }
    for (const Provider& known : kProviders) {
        if (InitString::SameKeyword(known.name, *name)) {
            provider = &known;
            return S_OK;
        }
    }
    return SetLastError(REGDB_E_CLASSNOTREG,
                        "initialisation string: there is no provider \"" + *name + "\"");
}

}  // namespace oledb
