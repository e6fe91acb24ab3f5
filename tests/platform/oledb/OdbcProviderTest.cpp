#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>

#include "tests/platform/oledb/PostgresTestDatabase.h"
#include "tests/platform/oledb/TestRowset.h"
#include "tests/platform/win32/ScratchFolder.h"

namespace {

constexpr const char* kSecret = "s3;c}r=t'";

/// A server's socket in a folder, behind which nobody answers.
class SilentServer {
public:
    explicit SilentServer(const std::string& folder) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        (folder + "/.s.PGSQL.5432").copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(socket_, 4), 0);
    }
    ~SilentServer() { close(socket_); }

private:
    int socket_ = socket(AF_UNIX, SOCK_STREAM, 0);
};

class OdbcProvider : public testing::Test {
protected:
    std::string With(const std::string& keyword, const std::string& value) const {
        return database_.InitString() + ";" + keyword + "=" + value;
    }
    static HRESULT Open(const std::string& initString) {
        Ref<IDBInitialize> source;
        const HRESULT made = MakeSource(initString, source);
        return FAILED(made) ? made : source->Initialize();
    }
    void MakeRole() const {
        std::string secret = kSecret;
        secret.insert(secret.find('\''), 1, '\'');
        database_.Run("DROP ROLE IF EXISTS tester; CREATE ROLE tester LOGIN PASSWORD '" + secret +
                      "'");
    }

    const PostgresTestDatabase database_;
};

TEST_F(OdbcProvider, AConnectionThatCannotBeHadIsOneLineInItsTime) {
    MakeRole();
    const ScratchFolder empty;
    const ScratchFolder silent;
    const SilentServer server(silent.Path());
    const std::tuple<std::string, HRESULT, const char*> cases[] = {
        {"Provider=MSDASQL", DB_E_BADINITSTRING, "neither a DSN nor a Driver"},
        {With("Connect Timeout", "soon"), DB_E_BADINITSTRING, "Connect Timeout"},
        {With("Connect Timeout", "0"), DB_E_BADINITSTRING, "Connect Timeout"},
        {With("Driver", "{No Such Driver}"), E_FAIL, "No Such Driver"},
        {"Provider=MSDASQL;DSN=nosuchsource", E_FAIL, "nosuchsource"},
        {With("Server", empty.Path()), E_FAIL, "No such file"},
        {With("Server", silent.Path()) + ";Connect Timeout=2", E_FAIL, "timeout"},
        {With("Database", "nosuchbase"), E_FAIL, "\"nosuchbase\" does not exist"},
        {With("Uid", "tester"), E_FAIL, "password"},
        {With("Uid", "tester") + ";Pwd=\"wr;o}ng\"", E_FAIL, "authentication failed"},
        {With("Uid", "nobody") + ";Password=wrong", E_FAIL, "authentication failed"},
    };
    for (const auto& [initString, result, named] : cases) {
        SCOPED_TRACE(initString);
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(Open(initString), result);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(6));
        const std::string& text = oledb::LastErrorText();
        EXPECT_NE(text.find(named), std::string::npos) << text;
        EXPECT_EQ(text.find('\n'), std::string::npos) << text;
        EXPECT_EQ(text.find("wr"), std::string::npos) << text;
    }
}

TEST_F(OdbcProvider, APasswordComesFromTheStringOrTheEnvironment) {
    MakeRole();
    const std::string initString = With("Uid", "tester");
    EXPECT_EQ(Open(initString + ";Pwd=\"" + kSecret + "\""), S_OK) << oledb::LastErrorText();
    setenv("GRDX_DB_PASSWORD", kSecret, 1);
    EXPECT_EQ(Open(initString), S_OK) << oledb::LastErrorText();
    setenv("GRDX_DB_PASSWORD", "wrong", 1);
    EXPECT_EQ(Open(initString), E_FAIL);
    unsetenv("GRDX_DB_PASSWORD");
}

/// A row as tables made by other means have it.
struct Sample {
    float depth;
    DBSTATUS depthStatus;
    char name[8];
};

TEST_F(OdbcProvider, TablesOfOtherTypesAreReadAndChanged) {
    database_.Run(
        "DROP TABLE IF EXISTS Others CASCADE;"
        "CREATE TABLE Others(Depth NUMERIC(9,4), Name CHAR(7) PRIMARY KEY, More XML);"
        "INSERT INTO Others VALUES(161.6,'ZK1'),(NULL,'砂');"
        "CREATE VIEW Seen AS SELECT * FROM Others");
    const auto session = OpenSession(database_.InitString());
    const auto open = [&](TestRowset& set, const char* sql) {
        const HRESULT result = set.Open(*session.operator->(), sql);
        if (FAILED(result)) return result;
        return set.SetBindings(
            {Bind(1, DBTYPE_R4, offsetof(Sample, depth), 4, offsetof(Sample, depthStatus)),
             Bind(2, DBTYPE_STR, offsetof(Sample, name), 8)});
    };
    TestRowset set;
    Sample sample{};
    ASSERT_EQ(open(set, "SELECT DEPTH,name FROM OTHERS ORDER BY DEPTH;"), S_OK)
        << oledb::LastErrorText();
    ASSERT_EQ(set.MoveAndRead(&sample), S_OK) << oledb::LastErrorText();
    EXPECT_EQ(sample.depth, 161.6F);
    EXPECT_STREQ(sample.name, "ZK1");
    sample.depth = 0.00125F;
    EXPECT_EQ(set.Set(&sample), S_OK) << oledb::LastErrorText();
    ASSERT_EQ(set.MoveAndRead(&sample), S_OK) << oledb::LastErrorText();
    sample.depth = 1e9F;
    sample.depthStatus = DBSTATUS_S_OK;
    EXPECT_EQ(set.Set(&sample), DB_E_INTEGRITYVIOLATION);
    EXPECT_NE(oledb::LastErrorText().find("overflow"), std::string::npos);
    EXPECT_EQ(database_.Rows("SELECT * FROM others ORDER BY depth"),
              "0.0013|ZK1    |null null|砂      |null");
    EXPECT_EQ(open(set, "SELECT Depth,Name FROM Seen"), DB_E_ERRORSOCCURRED) << "only to be read";
    for (const auto& [sql, named] : {std::pair{"SELECT Depth,Nam FROM Others", "\"nam\""},
                                     {"SELECT Depth,Name FROM Nowhere", "\"nowhere\""}}) {
        EXPECT_TRUE(FAILED(open(set, sql)));
        EXPECT_NE(oledb::LastErrorText().find(named), std::string::npos) << oledb::LastErrorText();
    }
}

}  // namespace
