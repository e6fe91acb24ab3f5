#include "platform/oledb/providers/sqlite/OpenFiles.h"

#include <algorithm>
#include <iterator>

namespace oledb::sqlite {

std::optional<OpenFiles::Identity> OpenFiles::IdentityOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

void OpenFiles::Remember(const std::string& path) {
    const char* const kEndings[] = {"", "-wal", "-shm"};
    for (std::size_t i = 0; i < std::size(files_); ++i) {
        const std::string file = path + kEndings[i];
        files_[i] = {file, IdentityOf(file)};
    }
}

bool OpenFiles::IsThere(const File& file) {
    return !file.identity || IdentityOf(file.path) == file.identity;
}

bool OpenFiles::DatabaseIsThere() const {
    return IsThere(files_[0]);
}

bool OpenFiles::AllAreThere() const {
    return std::all_of(std::begin(files_), std::end(files_), IsThere);
}

}  // namespace oledb::sqlite
