// The least that drawing A4 sheets of two charts can cost: the same statements on the same database
// and the same bytes in as many files, with nothing in between.
//
// usage: bare_sheets DATABASE BOREHOLE SHEETS_FOLDER OUTPUT_FOLDER
//
// SHEETS_FOLDER holds finished sheets of that borehole; their bytes are read beforehand. Prints the
// milliseconds a sheet.

#include <sqlite3.h>

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

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "bare_sheets: %s\n", what.c_str());
    std::exit(1);
}

class Database {
public:
    explicit Database(const char* path) {
        if (sqlite3_open_v2(path, &handle_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
            Fail(path);
        }
        Run("PRAGMA journal_mode=WAL");
        Run("PRAGMA synchronous=NORMAL");
        std::string update = "UPDATE Z_c_KeFen SET ";
        for (const char* c = kResultColumns; *c != '\0'; ++c) {
            update += *c == ',' ? std::string("=?,") : std::string(1, *c);
        }
        update_ = Prepared(update + "=? WHERE rowid=?");
    }
    ~Database() {
        sqlite3_finalize(update_);
        sqlite3_close(handle_);
    }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void Run(const std::string& text) {
        sqlite3_stmt* statement = Prepared(text);
        while (sqlite3_step(statement) == SQLITE_ROW) {
        }
        sqlite3_finalize(statement);
    }
    std::vector<std::string> Texts(const std::string& text) {
        std::vector<std::string> result;
        sqlite3_stmt* statement = Prepared(text);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            result.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
        }
        sqlite3_finalize(statement);
        return result;
    }
    /// Reads a sample's result row and writes every column of it back.
    void ReadAndWriteBack(const std::string& key) {
        sqlite3_stmt* select = Prepared(std::string("SELECT ") + kResultColumns +
                                        ",rowid FROM Z_c_KeFen WHERE GCSY > -1 and " + key);
        if (sqlite3_step(select) != SQLITE_ROW) {
            Fail("no result row for " + key);
        }
        sqlite3_reset(update_);
        for (int column = 0; column < 36; ++column) {
            sqlite3_bind_value(update_, column + 1, sqlite3_column_value(select, column));
        }
        if (sqlite3_step(update_) != SQLITE_DONE) {
            Fail(sqlite3_errmsg(handle_));
        }
        sqlite3_finalize(select);
    }

private:
    sqlite3_stmt* Prepared(const std::string& text) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(handle_, text.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            Fail(text + ": " + sqlite3_errmsg(handle_));
        }
        return statement;
    }
    sqlite3* handle_ = nullptr;
    sqlite3_stmt* update_ = nullptr;
};

void StoreSample(Database& database, const std::string& borehole, const std::string& sample) {
    const std::string key = "GCSY= 1 and ZKBH='" + borehole + "' and QYBH='" + sample + "'";
    database.Run(std::string("SELECT ") + kResultColumns + " FROM Z_c_KeFen WHERE GCSY > -1 and " +
                 key);
    database.Run("SELECT GCSY,ZKBH,QYBH,XH,KLLJ,KLSYZL FROM Z_c_KeFenCSXM WHERE GCSY > -1 and " +
                 key + " ORDER BY XH");
    database.Run("BEGIN IMMEDIATE");
    database.ReadAndWriteBack(key);  // diameters and coefficients
    database.ReadAndWriteBack(key);  // class percentages
    database.Run("COMMIT");
}

std::vector<std::string> ReadSheets(const std::filesystem::path& folder) {
    std::vector<std::string> sheets;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".dwg") {
            std::ifstream file(entry.path(), std::ios::binary);
            sheets.emplace_back(std::istreambuf_iterator<char>(file),
                                std::istreambuf_iterator<char>());
        }
    }
    return sheets;
}

void WriteSheet(const std::filesystem::path& folder, std::size_t number, const std::string& bytes) {
    const std::string name = folder / ("KF" + std::to_string(number) + ".dwg");
    const std::string temporary = name + ".tmp";
    std::FILE* file = std::fopen(temporary.c_str(), "wb");
    if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() ||
        std::fclose(file) != 0 || std::rename(temporary.c_str(), name.c_str()) != 0) {
        Fail(name);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        Fail("usage: bare_sheets DATABASE BOREHOLE SHEETS_FOLDER OUTPUT_FOLDER");
    }
    const std::string borehole = argv[2];
    Database database(argv[1]);
    const std::vector<std::string> samples =
        database.Texts("SELECT DISTINCT QYBH FROM Z_c_KeFenCSXM WHERE ZKBH='" + borehole + "'");
    const std::vector<std::string> sheets = ReadSheets(argv[3]);
    if (sheets.size() * 2 != samples.size()) {
        Fail("the sheets do not hold two charts each");
    }
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        StoreSample(database, borehole, samples[2 * i]);
        StoreSample(database, borehole, samples[2 * i + 1]);
        WriteSheet(argv[4], i, sheets[i]);
    }
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    std::printf("%.3f\n", time.count() / static_cast<double>(sheets.size()));
    return 0;
}
