#pragma once

#include <memory>
#include <string>

/// A database of a test's own, looked at past the layer: what differs between providers.
class TestDatabase {
public:
    virtual ~TestDatabase() = default;
    /// By which the layer opens it; UTF-8.
    virtual std::string InitString() const = 0;
    /// Runs statements in the database's own dialect; fails the test when one is wrong.
    virtual void Run(const std::string& sql) = 0;
    /// The rows of a select, columns joined by "|", rows by blanks; a null is "null".
    virtual std::string Rows(const std::string& select) = 0;
    /// Keeps everybody else from writing until Unlock.
    virtual void Lock() = 0;
    virtual void Unlock() = 0;
};

struct TestProvider {
    const char* name;
    std::unique_ptr<TestDatabase> (*make)();
};
inline std::ostream& operator<<(std::ostream& out, const TestProvider& provider) {
    return out << provider.name;
}
