#include "host/version.h"

namespace host {

std::string VersionText(const std::string& program) {
    return program + " " GRDX_VERSION " (commit " GRDX_COMMIT
                     ")\n"
                     "drawings: DWG AC1015; project databases: SQLite; tables: CSV; pages: PDF, "
                     "SVG, PNG";
}

}  // namespace host
