#include "platform/win32/folder_listings.h"

#include <dirent.h>

#include <memory>

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_case.h"

namespace win32 {
namespace {

using namespace std::chrono_literals;

/// More than any clock tick of a file system that keeps fractions of a second.
constexpr auto kTick = 20ms;
/// The same for those that keep whole seconds, some of them even ones only.
constexpr auto kCoarseTick = 2000ms;
constexpr auto kAmendedLife = 1s;
/// Folders remembered at a time: far more than a run works with.
constexpr std::size_t kMaxListings = 256;

bool SameTime(const timespec& left, const timespec& right) {
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

bool Settled(const timespec& modified) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const auto age = std::chrono::seconds(now.tv_sec - modified.tv_sec) +
                     std::chrono::nanoseconds(now.tv_nsec - modified.tv_nsec);
    return age > (modified.tv_nsec == 0 ? kCoarseTick : kTick);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

}  // namespace

FolderListings& FolderListings::Get() {
    static FolderListings listings;
    return listings;
}

void FolderListings::Listing::Enter(const std::string& name) {
    std::string gbk;
    if (!TryGbkFromUtf8(name, gbk)) {
        return;
    }
    const auto [entry, added] = names.try_emplace(FoldCase(gbk), name);
    if (!added && name < entry->second) {
        entry->second = name;
    }
}

bool FolderListings::Listing::Trusted(const struct stat& folder) const {
    if (!SameTime(modified, folder.st_mtim)) {
        return false;
    }
    return amended ? std::chrono::steady_clock::now() - readAt < kAmendedLife : settled;
}

std::string FolderListings::Listing::Find(const std::string& folded) const {
    const auto found = names.find(folded);
    return found == names.end() ? std::string() : found->second;
}

const FolderListings::Listing& FolderListings::Current(const std::string& folder,
                                                       const struct stat& status) {
    const auto known = listings_.find(FolderId(status.st_dev, status.st_ino));
    return known != listings_.end() && known->second.Trusted(status) ? known->second
                                                                     : Read(folder, status);
}

const FolderListings::Listing& FolderListings::Read(const std::string& folder,
                                                    const struct stat& status) {
    if (listings_.size() >= kMaxListings) {
        listings_.clear();
    }
    // The time was taken before reading: a change in between makes the listing out of date.
    Listing fresh;
    fresh.modified = status.st_mtim;
    fresh.settled = Settled(status.st_mtim);
    fresh.readAt = std::chrono::steady_clock::now();
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        fresh.Enter(entry->d_name);
    }
    return listings_[FolderId(status.st_dev, status.st_ino)] = std::move(fresh);
}

std::string FolderListings::Find(const std::string& folder, std::string_view gbkName) {
    struct stat status {};
    if (stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return {};
    }
    const std::lock_guard lock(mutex_);
    const std::string folded = FoldCase(gbkName);
    std::string name = Current(folder, status).Find(folded);
    struct stat entry {};
    if (name.empty() || lstat((folder + "/" + name).c_str(), &entry) == 0) {
        return name;
    }
    return Read(folder, status).Find(folded);
}

void FolderListings::NoteMade(const std::string& path) {
    struct stat status {};
    if (stat(FolderOf(path).c_str(), &status) != 0) {
        return;
    }
    const std::lock_guard lock(mutex_);
    const auto known = listings_.find(FolderId(status.st_dev, status.st_ino));
    if (known != listings_.end()) {
        known->second.modified = status.st_mtim;
        known->second.amended = true;
        known->second.Enter(NameOf(path));
    }
}

}  // namespace win32
