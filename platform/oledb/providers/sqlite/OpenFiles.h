#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace oledb::sqlite {

/// The files of an open database as others find them by their names. Restoring a backup or
/// synchronising a folder puts others in their place; what is written to the open ones is then lost
/// with them, although the library sees nothing wrong.
class OpenFiles {
public:
    /// Takes the files as they are now for the open ones.
    void Remember(const std::string& path);
    /// False when the database's file is gone or another one by now.
    bool DatabaseIsThere() const;
    /// The same of it and of the files of its write-ahead log.
    bool AllAreThere() const;

private:
    struct Identity {
        dev_t device;
        ino_t number;
        bool operator==(const Identity&) const = default;
    };
    struct File {
        std::string path;
        std::optional<Identity> identity;  ///< nothing: there was none
    };
    static std::optional<Identity> IdentityOf(const std::string& path);
    static bool IsThere(const File& file);

    File files_[3];  ///< the database, then what belongs to its log
};

}  // namespace oledb::sqlite
