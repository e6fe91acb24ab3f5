#include "host/version.h"

namespace host {

std::string VersionText(const std::string& program) {
    return program + " " GRDX_VERSION " (commit " GRDX_COMMIT
                     ")\n"
                     "drawings: DWG AC1015; project databases: SQLite, ODBC; tables: CSV, XLSX, "
                     "AGS4; pages: PDF, "
                     "SVG, PNG";
}

}  // namespace host
