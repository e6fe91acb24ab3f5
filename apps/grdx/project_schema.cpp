#include "apps/grdx/project_schema.h"

namespace console {

namespace {
// Primary keys lead with what every filter gives, in the order that the pages ask for: each query
// is one walk over an index, without a sort. Numbers are REAL though 32-bit floats are written,
// since SQLite knows no shorter ones.
constexpr const char* kTables[] = {R"sql(
CREATE TABLE x_GongCheng (
    GCSY INTEGER NOT NULL PRIMARY KEY,
    GCBH VARCHAR(20) NOT NULL,
    GCMC VARCHAR(150) NOT NULL,
    GCBZ SMALLINT NOT NULL DEFAULT 0,
    GCSJ INTEGER NOT NULL DEFAULT 1
)
)sql",
                                   R"sql(
CREATE TABLE z_c_QuYang (
    GCSY INTEGER NOT NULL,
    ZKBH VARCHAR(20) NOT NULL,
    QYBH VARCHAR(12) NOT NULL,
    QYSD REAL,
    QYHD REAL,
    PRIMARY KEY (GCSY, ZKBH, QYBH)
)
)sql",
                                   R"sql(
CREATE TABLE Z_c_KeFen (
    GCSY INTEGER NOT NULL,
    ZKBH VARCHAR(20) NOT NULL,
    QYBH VARCHAR(12) NOT NULL,
    KLSYFF VARCHAR(15),
    KL800 REAL, KL400 REAL, KL200 REAL, KL60 REAL, KL40 REAL, KL20 REAL, KL10 REAL, KL5 REAL,
    KL2 REAL, KL_5 REAL, KL_25 REAL, KL_1 REAL, KL_075 REAL, KL_074 REAL, KL_05 REAL, KL_01 REAL,
    KL_005 REAL, KL_002 REAL, KL0 REAL,
    KLD10 REAL, KLD15 REAL, KLD30 REAL, KLD50 REAL, KLD60 REAL, KLD85 REAL, KLD90 REAL, KLD95 REAL,
    KLTYZL REAL,
    KLHL REAL,
    KLBJXS REAL,
    KLQLXS REAL,
    PRIMARY KEY (GCSY, ZKBH, QYBH)
)
)sql",
                                   R"sql(
CREATE TABLE Z_c_KeFenCSXM (
    GCSY INTEGER NOT NULL,
    ZKBH VARCHAR(20) NOT NULL,
    QYBH VARCHAR(12) NOT NULL,
    XH INTEGER NOT NULL,
    KLLJ REAL,
    KLSYZL REAL,
    PRIMARY KEY (GCSY, ZKBH, QYBH, XH)
)
)sql",
                                   R"sql(
CREATE TABLE x_SheJi (
    GCSY INTEGER NOT NULL,
    ZCBH TINYINT NOT NULL,
    YCBH TINYINT NOT NULL DEFAULT 0,
    CSLX SMALLINT NOT NULL,
    CSV VARCHAR(50),
    PRIMARY KEY (GCSY, ZCBH, YCBH, CSLX)
)
)sql"};
}  // namespace

void MakeProjectTables(oledb::SqlDatabase& database, const ProjectEntry& project) {
    oledb::SqlTransaction transaction(database);
    for (const char* const table : kTables) {
        database.Execute(table);
    }
    oledb::SqlStatement enter(database,
                              "INSERT INTO x_GongCheng (GCSY, GCBH, GCMC, GCBZ, GCSJ) "
                              "VALUES (?, ?, ?, ?, 0)");
    enter.Bind(1, project.index);
    enter.Bind(2, project.number);
    enter.Bind(3, project.name);
    enter.Bind(4, project.code);
    enter.Run();
    transaction.Commit();
}

}  // namespace console
