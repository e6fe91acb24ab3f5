#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/win32/open_file.h"

namespace win32 {

/// The entry of a folder that a path names once its links are followed, also when nothing is there
/// yet. What is done by folder and name stays there, whatever links are put in the path meanwhile.
/// Paths are those of the file system, UTF-8.
class FilePlace {
public:
    /// 0, or the code of what stands against it. Also when a folder is missing Path() is set: what
    /// is missing is taken as it stands.
    int Find(const std::string& path);

    /// For calls such as openat; it may be searched, but not read.
    int Folder() const { return folder_.Get(); }
    /// "." when the path names the folder itself.
    const std::string& Name() const { return name_; }
    /// Absolute, without links, "." and "..".
    std::string Path() const;
    /// The folders, by such paths, in which the links stand that were followed.
    const std::vector<std::string>& LinkFolders() const { return linkFolders_; }

private:
    int Start(const std::string& path);
    void EnterPlainFolders();
    int Enter(const std::string& name);
    int Leave();
    int FollowLink(const std::string& name, bool& isLink);
    void TakeAsItStands();

    OpenFile folder_;
    std::string folderPath_;  ///< empty for the root
    std::string name_;
    std::deque<std::string> rest_;  ///< names still to be walked
    std::vector<std::string> linkFolders_;
};

/// Where the path leads once links are followed, absolute; what does not exist is taken as it
/// stands.
std::string RealPath(const std::string& path);
/// Whether a path is the folder or below it. Both without links, "." and "..".
bool IsWithin(const std::string& folder, const std::string& path);

/// Keeps links within folders that come from somebody else from leading writing astray: a link that
/// stands in one of `places` (as RealPath gives them, folders with all below them, and files) may
/// lead to any of them and nowhere else. A path that passes no such link may lead anywhere. Without
/// places, all may.
void SetWriteBounds(std::vector<std::string> places);
/// Finds where a file or folder is to be written. False, with path and reason in `error` (UTF-8),
/// when there is no such place or the bounds forbid it.
bool FindToWrite(const std::string& path, FilePlace& place, std::string& error);

}  // namespace win32
