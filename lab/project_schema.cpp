#include "lab/project_schema.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "lab/Failure.h"

namespace lab {

namespace {
constexpr const char* kNames[] = {"x_GongCheng",   "z_c_QuYang", "Z_c_KeFen",
                                  "Z_c_KeFenCSXM", "x_SheJi",    "Z_c_KeFenMDJ"};

// Primary keys lead with what every filter gives, in the order that the pages ask for: each query
// is one walk over an index, without a sort. Numbers are REAL, which are 32-bit floats on servers;
// SQLite knows no shorter ones than doubles.
constexpr const char* kColumns[] = {R"sql((
    GCSY INTEGER NOT NULL PRIMARY KEY,
    GCBH VARCHAR(20) NOT NULL,
    GCMC VARCHAR(150) NOT NULL,
    GCBZ SMALLINT NOT NULL DEFAULT 0,
    GCSJ INTEGER NOT NULL DEFAULT 1
))sql",
                                    R"sql((
    GCSY INTEGER NOT NULL,
    ZKBH VARCHAR(20) NOT NULL,
    QYBH VARCHAR(12) NOT NULL,
    QYSD REAL,
    QYHD REAL,
    PRIMARY KEY (GCSY, ZKBH, QYBH)
))sql",
                                    R"sql((
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
))sql",
                                    R"sql((
    GCSY INTEGER NOT NULL,
    ZKBH VARCHAR(20) NOT NULL,
    QYBH VARCHAR(12) NOT NULL,
    XH INTEGER NOT NULL,
    KLLJ REAL,
    KLSYZL REAL,
    PRIMARY KEY (GCSY, ZKBH, QYBH, XH)
))sql",
                                    R"sql((
    GCSY INTEGER NOT NULL,
    ZCBH SMALLINT NOT NULL,
    YCBH SMALLINT NOT NULL DEFAULT 0,
    CSLX SMALLINT NOT NULL,
    CSV VARCHAR(50),
    PRIMARY KEY (GCSY, ZCBH, YCBH, CSLX)
))sql",
                                    R"sql((
    GCSY INTEGER NOT NULL,
    ZKBH VARCHAR(20) NOT NULL,
    QYBH VARCHAR(12) NOT NULL,
    XH INTEGER NOT NULL,
    MDJLX VARCHAR(4) NOT NULL,
    GTZL DOUBLE PRECISION NOT NULL,
    TLBZ DOUBLE PRECISION NOT NULL,
    SJ DOUBLE PRECISION NOT NULL,
    DS DOUBLE PRECISION NOT NULL,
    WD DOUBLE PRECISION NOT NULL,
    WYMXZ DOUBLE PRECISION NOT NULL,
    FSJXZ DOUBLE PRECISION NOT NULL,
    CJ0 DOUBLE PRECISION NOT NULL,
    CJXS DOUBLE PRECISION NOT NULL,
    KLLJ DOUBLE PRECISION NOT NULL,
    XYBFS DOUBLE PRECISION NOT NULL,
    SFJR SMALLINT NOT NULL,
    JFTY DOUBLE PRECISION,
    PRIMARY KEY (GCSY, ZKBH, QYBH, XH)
))sql"};
static_assert(std::size(kNames) == std::size(kColumns));

constexpr int kGreatestIndex = 32767;  // a curve is stored into its own project up to this one

/// Behind the type of every text comes what makes it sort by its bytes.
std::string WithOrder(std::string columns, const std::string& order) {
    constexpr std::string_view kText = "VARCHAR(";
    for (std::size_t at = 0; (at = columns.find(kText, at)) != std::string::npos;) {
        at = columns.find(')', at) + 1;
        columns.insert(at, order);
    }
    return columns;
}

bool HasTable(const oledb::SqlDatabase& database, const std::string& name) {
    return !database.Columns(name).empty();
}

/// The indices that the tables have, also those whose project is gone.
std::set<int> Indices(oledb::SqlDatabase& database) {
    std::set<int> indices{0};
    for (const char* const name : kNames) {
        if (HasTable(database, name)) {
            oledb::SqlStatement row(database, std::string("SELECT DISTINCT GCSY FROM ") + name);
            while (row.Step()) {
                indices.insert(row.Integer(0));
            }
        }
    }
    return indices;
}

int FreeIndex(oledb::SqlDatabase& database, int wanted) {
    const std::set<int> taken = Indices(database);
    if (!taken.contains(wanted)) {
        return wanted;
    }
    const int greatest = *taken.rbegin();
    if (greatest >= kGreatestIndex) {
        throw Failure("the database has no index left for a project: " + std::to_string(greatest) +
                      " is the last one in use");
    }
    return greatest + 1;
}
}  // namespace

std::span<const char* const> ProjectTables() {
    return kNames;
}

void MakeProjectTable(oledb::SqlDatabase& database, const std::string& name) {
    if (HasTable(database, name)) {
        return;
    }
    const auto place = std::find(std::begin(kNames), std::end(kNames), name) - kNames;
    database.Execute("CREATE TABLE " + name + " " +
                     WithOrder(kColumns[place], database.BinaryOrder()));
}

int MakeRoom(oledb::SqlDatabase& database, int wanted) {
    for (const char* const name : kNames) {
        MakeProjectTable(database, name);
    }
    return FreeIndex(database, wanted);
}

void EnterProject(oledb::SqlDatabase& database, ProjectEntry& project) {
    oledb::SqlTransaction transaction(database);
    project.index = MakeRoom(database);
    oledb::SqlStatement enter(database,
                              "INSERT INTO x_GongCheng (GCSY, GCBH, GCMC, GCBZ, GCSJ) "
                              "VALUES (?, ?, ?, ?, ?)");
    enter.Bind(1, project.index);
    enter.Bind(2, project.number);
    enter.Bind(3, project.name);
    enter.Bind(4, project.code);
    enter.Bind(5, project.checked ? 0 : 1);
    enter.Run();
    transaction.Commit();
}

ProjectEntry FindProject(oledb::SqlDatabase& database, int index) {
    if (!HasTable(database, kNames[0])) {
        throw Failure(std::string("the database has no table ") + kNames[0]);
    }
    oledb::SqlStatement row(database,
                            "SELECT GCSY, GCBH, GCMC, GCBZ, GCSJ FROM x_GongCheng ORDER BY GCSY");
    std::string others;
    while (row.Step()) {
        if (row.Integer(0) == index) {
            const bool checked = !row.IsNull(4) && row.Integer(4) <= 0;
            return {index, row.Text(1), row.Text(2), row.Integer(3), checked};
        }
        others += (others.empty() ? "" : ", ") + row.Text(0) + " " + row.Text(1);
    }
    throw Failure("the database has no project " + std::to_string(index) +
                  (others.empty() ? "" : "; it has " + others));
}

}  // namespace lab
