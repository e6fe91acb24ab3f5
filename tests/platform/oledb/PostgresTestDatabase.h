#pragma once

#include <gtest/gtest.h>
#include <libpq-fe.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/platform/oledb/TestDatabase.h"

/// An empty database of the server that tools/test_server.sh runs, used by PostgreSQL's own
/// library.
class PostgresTestDatabase final : public TestDatabase {
public:
    PostgresTestDatabase() {
        if (std::getenv("GRDX_TEST_SERVER") == nullptr) {
            ADD_FAILURE() << "there is no PostgreSQL server: run this by tools/test_server.sh";
        } else {
            Run("DROP SCHEMA public CASCADE; CREATE SCHEMA public");
        }
    }

    std::string InitString() const override {
        const char* const server = std::getenv("GRDX_TEST_SERVER");
        return server == nullptr ? "" : server;
    }
    std::vector<std::string> RowList(const std::string& sql) const override {
        const std::unique_ptr<PGresult, void (*)(PGresult*)> result(
            PQexec(handle_.get(), sql.c_str()), PQclear);
        const auto status = PQresultStatus(result.get());
        EXPECT_TRUE(status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK)
            << sql << ": " << PQerrorMessage(handle_.get());
        std::vector<std::string> rows;
        for (int row = 0; row < PQntuples(result.get()); ++row) {
            std::string& line = rows.emplace_back();
            for (int column = 0; column < PQnfields(result.get()); ++column) {
                const bool isNull = PQgetisnull(result.get(), row, column) != 0;
                line += column > 0 ? "|" : "";
                line += isNull ? "null" : PQgetvalue(result.get(), row, column);
            }
        }
        return rows;
    }
    void Lock() const override { Run("BEGIN; LOCK TABLE t IN EXCLUSIVE MODE"); }
    bool CutConnections() const override {
        Run("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity "
            "WHERE pid <> pg_backend_pid() AND datname = current_database()");
        return true;
    }
    std::string Native(const std::string& sql) const override {
        const std::pair<std::string, std::string> words[] = {
            {"BLOB", "BYTEA"}, {"x'31'", "'\\x31'"}, {"x'00'", "'\\x00'"}, {"9e999", "'Infinity'"}};
        std::string native = sql;
        for (const auto& [word, own] : words) {
            const std::size_t at = native.find(word);
            if (at != std::string::npos) native.replace(at, word.size(), own);
        }
        return native;
    }

private:
    std::unique_ptr<PGconn, void (*)(PGconn*)> handle_{PQconnectdb(""), PQfinish};
};
