#include "platform/oledb/providers/sqlite/write_protected.h"

#include <sqlite3.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <utility>

namespace oledb::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargest = 512U << 20U;
/// Where the header says by which kind of log the file is written and read.
constexpr std::size_t kWriteVersion = 18;
constexpr std::size_t kReadVersion = 19;
constexpr std::size_t kHeaderSize = 100;
constexpr unsigned char kWithoutLog = 1;
constexpr char kWithLog = 2;

/// By which a change of the file shows.
struct FileState {
    std::uintmax_t size = 0;
    fs::file_time_type written;
    bool operator==(const FileState&) const = default;
};

/// Nothing while changes wait in a log, or without a file.
std::optional<FileState> StateOf(const std::string& path) {
    std::error_code fault;
    for (const char* const log : {"-wal", "-journal"}) {
        const std::uintmax_t waiting = fs::file_size(path + log, fault);
        if (!fault && waiting > 0) return std::nullopt;
    }
    FileState state;
    state.size = fs::file_size(path, fault);
    if (!fault) state.written = fs::last_write_time(path, fault);
    if (fault) return std::nullopt;
    return state;
}

struct Free {
    void operator()(unsigned char* bytes) const { sqlite3_free(bytes); }
};

}  // namespace

bool MayBeWriteProtected(int code) {
    const int kind = code & 0xFF;
    return kind == SQLITE_READONLY || kind == SQLITE_CANTOPEN;
}

bool WouldLeaveLog(const std::string& path) {
    if (access(path.c_str(), W_OK) == 0) return false;
    char header[kHeaderSize] = {};
    std::ifstream(path, std::ios::binary).read(header, sizeof(header));
    return header[kReadVersion] == kWithLog;
}

sqlite3* OpenSnapshot(const std::string& path) {
    const std::optional<FileState> state = StateOf(path);
    if (!state || state->size < kHeaderSize || state->size > kLargest) return nullptr;
    std::unique_ptr<unsigned char, Free> bytes(
        static_cast<unsigned char*>(sqlite3_malloc64(state->size)));
    std::ifstream file(path, std::ios::binary);
    const auto size = static_cast<std::streamsize>(state->size);
    if (bytes == nullptr || !file.read(reinterpret_cast<char*>(bytes.get()), size) ||
        StateOf(path) != state) {
        return nullptr;
    }
    bytes.get()[kWriteVersion] = bytes.get()[kReadVersion] = kWithoutLog;
    sqlite3* handle = nullptr;
    int code =
        sqlite3_open_v2(":memory:", &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code == SQLITE_OK) {
        code = sqlite3_deserialize(handle, "main", bytes.release(), size, size,
                                   SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY);
    }
    if (code != SQLITE_OK) sqlite3_close_v2(std::exchange(handle, nullptr));
    return handle;
}

}  // namespace oledb::sqlite
