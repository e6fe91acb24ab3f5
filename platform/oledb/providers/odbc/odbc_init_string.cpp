#include "platform/oledb/providers/odbc/odbc_init_string.h"

#include <cstdlib>

#include "platform/win32/number_text.h"

namespace oledb::odbc {
namespace {

constexpr int kLongestTimeout = 3600;
constexpr const char* kPassword = "Pwd";

struct Synonym {
    const char* name;
    const char* keyword;
};
constexpr Synonym kSynonyms[] = {{"Data Source", "DSN"},
                                 {"User ID", "Uid"},
                                 {"Password", kPassword},
                                 {"Initial Catalog", "Database"}};

std::string KeywordOf(const std::string& given) {
    for (const Synonym& synonym : kSynonyms) {
        if (InitString::SameKeyword(given, synonym.name)) return synonym.keyword;
    }
    return given;
}

/// A value as driver managers read it, in braces where it needs them.
std::string Braced(const std::string& value) {
    const bool braced = value.size() > 1 && value.front() == '{' && value.back() == '}';
    if (braced || value.find_first_of("[]{}(),;?*=!@ ") == std::string::npos) return value;
    std::string text = "{";
    for (const char c : value) text.append(c == '}' ? 2 : 1, c);
    return text + '}';
}

class Reader {
public:
    explicit Reader(ConnectionFacts& facts) : facts_(facts) {}

    bool Read(const InitString& properties, std::string& error) {
        for (const InitString::Entry& entry : properties.Entries()) {
            if (InitString::SameKeyword(entry.keyword, "Provider")) continue;
            if (!InitString::SameKeyword(entry.keyword, "Connect Timeout")) {
                Add(KeywordOf(entry.keyword), entry.value);
            } else if (!ReadTimeout(entry.value)) {
                error = "Connect Timeout is no number of seconds from 1 to " +
                        std::to_string(kLongestTimeout);
                return false;
            }
        }
        if (facts_.text.empty()) error = "neither a DSN nor a Driver is named";
        AddPassword();
        facts_.name = source_.empty() ? server_ + "/" + database_ : source_;
        return !facts_.text.empty();
    }

private:
    bool ReadTimeout(const std::string& text) {
        facts_.timeoutSeconds = win32::ParseInteger(text).value_or(0);
        return facts_.timeoutSeconds >= 1 && facts_.timeoutSeconds <= kLongestTimeout;
    }
    void Add(const std::string& keyword, const std::string& value) {
        const auto is = [&](const char* name) { return InitString::SameKeyword(keyword, name); };
        if (is(kPassword)) {
            facts_.password = value;
            return;
        }
        if (is("DSN")) source_ = value;
        if (is("Server") || is("Servername")) server_ = value;
        if (is("Database")) database_ = value;
        facts_.text += keyword + "=" + Braced(value) + ";";
    }
    void AddPassword() {
        if (const char* given = std::getenv("GRDX_DB_PASSWORD");
            facts_.password.empty() && given != nullptr) {
            facts_.password = given;
        }
        if (!facts_.text.empty() && !facts_.password.empty()) {
            facts_.text += std::string(kPassword) + "=" + Braced(facts_.password) + ";";
        }
    }

    ConnectionFacts& facts_;
    std::string source_;
    std::string server_;
    std::string database_;
};

}  // namespace

bool ReadConnectionFacts(const InitString& properties, ConnectionFacts& facts, std::string& error) {
    facts = ConnectionFacts();
    return Reader(facts).Read(properties, error);
}

}  // namespace oledb::odbc
