#pragma once

#include <memory>
#include <utility>

#include "platform/oledb/providers/odbc/odbc_api.h"

namespace oledb::odbc {

/// A handle of the driver manager's, and its release.
template <SQLSMALLINT Type>
class OdbcHandle {
public:
    OdbcHandle() = default;
    /// Null when there is no memory for it.
    explicit OdbcHandle(SQLHANDLE parent) { SQLAllocHandle(Type, parent, &handle_); }
    OdbcHandle(OdbcHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~OdbcHandle() {
        if (handle_ != nullptr) SQLFreeHandle(Type, handle_);
    }
    SQLHANDLE Get() const { return handle_; }

private:
    SQLHANDLE handle_ = nullptr;
};

/// A connection.
class OdbcLink {
public:
    OdbcLink() : environment_(nullptr) {
        SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
        handle_ = OdbcHandle<SQL_HANDLE_DBC>(environment_.Get());
    }
    ~OdbcLink() { SQLDisconnect(Get()); }
    OdbcLink(const OdbcLink&) = delete;
    OdbcLink& operator=(const OdbcLink&) = delete;
    SQLHDBC Get() const { return handle_.Get(); }

private:
    OdbcHandle<SQL_HANDLE_ENV> environment_;
    OdbcHandle<SQL_HANDLE_DBC> handle_;
};

/// A statement of a connection, which lives as long: with a connection all its statements go.
class OdbcStatementHandle {
public:
    OdbcStatementHandle() = default;
    explicit OdbcStatementHandle(std::shared_ptr<OdbcLink> link)
        : link_(std::move(link)), handle_(link_->Get()) {}
    OdbcStatementHandle(OdbcStatementHandle&&) = default;
    OdbcStatementHandle& operator=(OdbcStatementHandle&& other) noexcept {
        std::swap(link_, other.link_);
        std::swap(handle_, other.handle_);
        return *this;
    }
    SQLHSTMT Get() const { return handle_.Get(); }
    const std::shared_ptr<OdbcLink>& Link() const { return link_; }

private:
    std::shared_ptr<OdbcLink> link_;
    OdbcHandle<SQL_HANDLE_STMT> handle_;
};

}  // namespace oledb::odbc
