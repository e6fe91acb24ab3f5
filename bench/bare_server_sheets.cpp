// What bare_sheets is for files, for a database server: the same statements by ODBC as the provider
// sends, and the same bytes in as many files, with nothing in between.
//
// usage: bare_server_sheets CONNECTION BOREHOLE SHEETS_FOLDER OUTPUT_FOLDER
//
// CONNECTION is the driver manager's. SHEETS_FOLDER holds finished sheets of that borehole, of two
// charts each, whose samples are numbered from 1. Prints the milliseconds a sheet.

#include <sql.h>
#include <sqlext.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr const char* kResultColumns =
    "GCSY,ZKBH,QYBH,KLSYFF,KL800,KL400,KL200,KL60,KL40,KL20,KL10,KL5,KL2,KL_5,KL_25,KL_1,KL_075,"
    "KL_074,KL_05,KL_01,KL_005,KL_002,KL0,KLD10,KLD15,KLD30,KLD50,KLD60,KLD85,KLD90,KLD95,KLTYZL,"
    "KLHL,KLBJXS,KLQLXS";
constexpr const char* kOfSample = " WHERE GCSY=1 AND ZKBH=? AND QYBH=?";

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "bare_server_sheets: %s\n", what.c_str());
    std::exit(1);
}

SQLPOINTER AsPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

SQLCHAR* Text(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

class Server {
public:
    explicit Server(const std::string& connection) {
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &link_);
        if (!SQL_SUCCEEDED(SQLDriverConnect(link_, nullptr, Text(connection), SQL_NTS, nullptr, 0,
                                            nullptr, SQL_DRIVER_NOPROMPT))) {
            Fail("no connection");
        }
    }
    SQLHSTMT Prepared(const std::string& sql) {
        SQLHSTMT statement = nullptr;
        SQLAllocHandle(SQL_HANDLE_STMT, link_, &statement);
        if (!SQL_SUCCEEDED(SQLPrepare(statement, Text(sql), SQL_NTS))) {
            Fail(sql);
        }
        return statement;
    }
    void SetAutocommit(bool on) {
        SQLSetConnectAttr(link_, SQL_ATTR_AUTOCOMMIT,
                          AsPointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0);
    }
    void Commit() { SQLEndTran(SQL_HANDLE_DBC, link_, SQL_COMMIT); }

private:
    SQLHENV environment_ = nullptr;
    SQLHDBC link_ = nullptr;
};

/// Runs a prepared statement with texts; the last row's columns.
std::vector<std::string> Run(SQLHSTMT statement, const std::vector<std::string>& values) {
    std::vector<SQLLEN> lengths(values.size(), SQL_NTS);
    for (std::size_t i = 0; i < values.size(); ++i) {
        SQLBindParameter(statement, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_CHAR,
                         SQL_VARCHAR, values[i].size() + 1, 0, Text(values[i]), 0, &lengths[i]);
        if (values[i].empty()) {
            lengths[i] = SQL_NULL_DATA;
        }
    }
    if (!SQL_SUCCEEDED(SQLExecute(statement))) {
        Fail("a statement");
    }
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    std::vector<std::string> row;
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement))) {
        row.clear();
        for (SQLSMALLINT column = 1; column <= columns; ++column) {
            char text[256] = "";
            SQLLEN length = 0;
            SQLGetData(statement, static_cast<SQLUSMALLINT>(column), SQL_C_CHAR, text, sizeof(text),
                       &length);
            row.emplace_back(text);
        }
    }
    SQLFreeStmt(statement, SQL_CLOSE);
    return row;
}

/// The statements about one sample, prepared once.
class SampleStore {
public:
    SampleStore(Server& server, std::string borehole)
        : server_(server), borehole_(std::move(borehole)) {
        std::string assignments = "=?";
        for (const char* c = kResultColumns; *c != '\0'; ++c) {
            assignments.insert(assignments.size() - 2, *c == ',' ? "=?," : std::string(1, *c));
        }
        update_ = server.Prepared("UPDATE Z_c_KeFen SET " + assignments + kOfSample);
    }
    void Store(const std::string& sample) {
        const std::vector<std::string> key{borehole_, sample};
        Run(result_, key);
        Run(items_, key);
        server_.SetAutocommit(false);
        Run(lock_, {});
        for (int time = 0; time < 2; ++time) {  // diameters and coefficients; class percentages
            std::vector<std::string> row = Run(result_, key);
            row.insert(row.end(), key.begin(), key.end());
            Run(update_, row);
        }
        server_.Commit();
        server_.SetAutocommit(true);
    }

private:
    Server& server_;
    std::string borehole_;
    SQLHSTMT result_ =
        server_.Prepared(std::string("SELECT ") + kResultColumns + " FROM Z_c_KeFen" + kOfSample);
    SQLHSTMT items_ =
        server_.Prepared(std::string("SELECT GCSY,ZKBH,QYBH,XH,KLLJ,KLSYZL FROM Z_c_KeFenCSXM") +
                         kOfSample + " ORDER BY XH");
    SQLHSTMT lock_ = server_.Prepared("SELECT pg_try_advisory_xact_lock(1)");
    SQLHSTMT update_ = nullptr;
};

std::vector<std::string> ReadSheets(const std::filesystem::path& folder) {
    std::vector<std::string> sheets;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        sheets.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return sheets;
}

void WriteSheet(const std::filesystem::path& folder, std::size_t number, const std::string& bytes) {
    const std::filesystem::path name = folder / ("KF" + std::to_string(number) + ".dwg");
    std::ofstream(name.string() + ".tmp", std::ios::binary) << bytes;
    std::filesystem::rename(name.string() + ".tmp", name);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        Fail("usage: bare_server_sheets CONNECTION BOREHOLE SHEETS_FOLDER OUTPUT_FOLDER");
    }
    Server server(argv[1]);
    SampleStore store(server, argv[2]);
    const std::vector<std::string> sheets = ReadSheets(argv[3]);
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        store.Store(std::to_string(2 * i + 1));
        store.Store(std::to_string(2 * i + 2));
        WriteSheet(argv[4], i, sheets[i]);
    }
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    std::printf("%.3f\n", time.count() / static_cast<double>(sheets.size()));
    return 0;
}
