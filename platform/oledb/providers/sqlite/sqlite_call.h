#pragma once

#include <sqlite3.h>

#include <string>
#include <type_traits>

#include "platform/oledb/trace.h"

/// Every call to the database library goes through here, so that one switch shows them all.
#define SQLITE_CALL(function, ...) ::oledb::sqlite::Traced(#function, ::function, __VA_ARGS__)

namespace oledb::sqlite {

inline void AppendShown(std::string& line, const char* text) {
    line += text == nullptr ? "" : text;
}
inline void AppendShown(std::string& line, const unsigned char* text) {
    AppendShown(line, reinterpret_cast<const char*>(text));
}
template <class T>
void AppendShown(std::string& line, const T& value) {
    if constexpr (std::is_arithmetic_v<T>) {
        line += std::to_string(value);
    } else {
        line += '*';
    }
}

template <class Function, class... Arguments>
auto Traced(const char* name, Function function, Arguments... arguments) {
    const auto result = function(arguments...);
    if (const TraceFunction trace = Trace()) {
        std::string line = std::string(name) + "(";
        ((AppendShown(line, arguments), line += ", "), ...);
        line.resize(line.size() - 2);
        line += ") = ";
        AppendShown(line, result);
        trace(line.c_str());
    }
    return result;
}

}  // namespace oledb::sqlite
