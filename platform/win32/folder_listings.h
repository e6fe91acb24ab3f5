#pragma once

#include <sys/stat.h>

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace win32 {

/// The names in folders, by their form without case. A folder is read once and again only when its
/// modification time says that it changed, so that looking a name up costs the same in a large
/// folder as in a small one.
///
/// Two doubts remain with modification times and are met as follows. A change within the same tick
/// of the file system's clock as the one before is not visible, so a listing read that soon after a
/// change is not trusted. Changes of our own are entered without reading, but might hide another
/// program's change at the same moment, so a listing amended that way is read again when it is a
/// second old.
class FolderListings {
public:
    static FolderListings& Get();

    /// The name (UTF-8) in `folder` that equals `gbkName` without regard to case; among several,
    /// the first in byte order. Empty when there is none.
    std::string Find(const std::string& folder, std::string_view gbkName);

    /// This process made an entry of that path.
    void NoteMade(const std::string& path);

private:
    using FolderId = std::pair<dev_t, ino_t>;
    using SteadyTime = std::chrono::steady_clock::time_point;

    struct Listing {
        timespec modified{};
        SteadyTime readAt;
        bool settled = false;  ///< no later change can have the same modification time
        bool amended = false;
        std::unordered_map<std::string, std::string> names;  ///< by folded GBK name, UTF-8

        void Enter(const std::string& name);
        std::string Find(const std::string& folded) const;
        bool Trusted(const struct stat& folder) const;
    };

    const Listing& Current(const std::string& folder, const struct stat& status);
    const Listing& Read(const std::string& folder, const struct stat& status);

    std::mutex mutex_;
    std::map<FolderId, Listing> listings_;
};

}  // namespace win32
