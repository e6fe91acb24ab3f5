#include "platform/win32/file_place.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>
#include <utility>

namespace win32 {
namespace {

constexpr std::size_t kMostLinks = 40;
constexpr int kPassing = O_PATH | O_DIRECTORY | O_CLOEXEC;

std::deque<std::string> NamesOf(const std::string& path) {
    std::deque<std::string> names;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string name = path.substr(start, end - start);
        if (!name.empty() && name != ".") {
            names.push_back(name);
        }
        start = end + 1;
    }
    return names;
}

/// The folder that a path below `folder` names when no link is in it. Else, and where the system
/// has no such call, none.
OpenFile OpenWithoutLinks(int folder, const std::string& path) {
    open_how how{};
    how.flags = kPassing;
    how.resolve = RESOLVE_NO_SYMLINKS;
    return OpenFile(static_cast<int>(syscall(SYS_openat2, folder, path.c_str(), &how, sizeof how)));
}

void RemoveLastName(std::string& path) {
    path.resize(path.empty() ? 0 : path.rfind('/'));
}

std::vector<std::string>& Bounds() {
    static std::vector<std::string> bounds;
    return bounds;
}

bool IsInBounds(const std::string& path) {
    return std::any_of(Bounds().begin(), Bounds().end(),
                       [&](const std::string& place) { return IsWithin(place, path); });
}

bool IsLedAstray(const FilePlace& place) {
    const auto& links = place.LinkFolders();
    return std::any_of(links.begin(), links.end(), IsInBounds) && !IsInBounds(place.Path());
}

}  // namespace

int FilePlace::Find(const std::string& path) {
    int fault = Start(path);
    EnterPlainFolders();
    while (fault == 0 && !rest_.empty()) {
        const std::string name = std::move(rest_.front());
        rest_.pop_front();
        bool isLink = false;
        if (name == "..") {
            fault = Leave();
        } else if (!rest_.empty()) {
            fault = Enter(name);
        } else if (fault = FollowLink(name, isLink); !isLink) {
            name_ = name;
        }
    }
    if (fault != 0) {
        TakeAsItStands();
    }
    return fault;
}

int FilePlace::Start(const std::string& path) {
    const bool absolute = path.starts_with('/');
    folder_ = OpenFile(open(absolute ? "/" : ".", kPassing));
    std::string current(4096, '\0');
    if (path.empty() || folder_.Get() < 0 ||
        (!absolute && getcwd(current.data(), current.size()) == nullptr)) {
        return path.empty() ? ENOENT : errno;
    }
    folderPath_ = absolute ? "" : current.c_str();
    name_ = ".";
    rest_ = NamesOf(path);
    linkFolders_.clear();
    return 0;
}

/// All folders before the last name in one step, when that is all they are.
void FilePlace::EnterPlainFolders() {
    std::string folders;
    for (std::size_t i = 0; i + 1 < rest_.size(); ++i) {
        if (rest_[i] == "..") {
            return;
        }
        folders += (i == 0 ? "" : "/") + rest_[i];
    }
    OpenFile folder = folders.empty() ? OpenFile() : OpenWithoutLinks(folder_.Get(), folders);
    if (folder.Get() >= 0) {
        folder_ = std::move(folder);
        folderPath_ += "/" + folders;
        rest_.erase(rest_.begin(), std::prev(rest_.end()));
    }
}

int FilePlace::Enter(const std::string& name) {
    OpenFile next(openat(folder_.Get(), name.c_str(), kPassing | O_NOFOLLOW));
    if (next.Get() >= 0) {
        folder_ = std::move(next);
        folderPath_ += "/" + name;
        return 0;
    }
    const int fault = errno;
    bool isLink = false;
    const int linkFault = FollowLink(name, isLink);
    if (!isLink) {
        rest_.push_front(name);
    }
    return isLink ? linkFault : fault;
}

int FilePlace::Leave() {
    OpenFile above(openat(folder_.Get(), "..", kPassing));
    if (above.Get() < 0) {
        return errno;
    }
    folder_ = std::move(above);
    RemoveLastName(folderPath_);
    return 0;
}

/// Puts what the link says in front of the names still to be walked, if it is one.
int FilePlace::FollowLink(const std::string& name, bool& isLink) {
    std::string target(4096, '\0');
    const ssize_t length = readlinkat(folder_.Get(), name.c_str(), target.data(), target.size());
    isLink = length >= 0;
    if (!isLink) {
        return 0;
    }
    linkFolders_.push_back(folderPath_.empty() ? "/" : folderPath_);
    if (linkFolders_.size() > kMostLinks) {
        return ELOOP;
    }
    target.resize(static_cast<std::size_t>(length));
    const std::deque<std::string> names = NamesOf(target);
    rest_.insert(rest_.begin(), names.begin(), names.end());
    if (target.starts_with('/')) {
        folder_ = OpenFile(open("/", kPassing));
        folderPath_.clear();
    }
    return folder_.Get() < 0 ? errno : 0;
}

/// The names behind a folder that cannot be passed.
void FilePlace::TakeAsItStands() {
    folder_ = OpenFile();
    name_ = ".";
    for (; !rest_.empty(); rest_.pop_front()) {
        if (rest_.front() == "..") {
            RemoveLastName(folderPath_);
        } else {
            folderPath_ += "/" + rest_.front();
        }
    }
}

std::string FilePlace::Path() const {
    const std::string path = name_ == "." ? folderPath_ : folderPath_ + "/" + name_;
    return path.empty() ? "/" : path;
}

std::string RealPath(const std::string& path) {
    FilePlace place;
    place.Find(path);
    return place.Path();
}

bool IsWithin(const std::string& folder, const std::string& path) {
    return path == folder || path.starts_with(folder.ends_with('/') ? folder : folder + "/");
}

void SetWriteBounds(std::vector<std::string> places) {
    Bounds() = std::move(places);
}

bool FindToWrite(const std::string& path, FilePlace& place, std::string& error) {
    const int fault = place.Find(path);
    if (IsLedAstray(place)) {
        error = path + ": a link leads out of the folder, to " + place.Path();
        return false;
    }
    if (fault != 0) {
        error = path + ": " + std::generic_category().message(fault);
        return false;
    }
    return true;
}

}  // namespace win32
