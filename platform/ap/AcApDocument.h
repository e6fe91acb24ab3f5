#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

class AcDbDatabase;

namespace AcAp {
enum DocLockMode { kNone = 0, kRead = 1, kWrite = 4 };
/// Of a drawing's file; one of a drawing that has none yet is as it was.
enum FileState { kFileUnchanged, kFileChanged, kFileGone };
}  // namespace AcAp

/// Part of the drawing that a document shows; kept with the document.
struct AcApView {
    AcGePoint2d center;
    double height = 297.0;
    double width = 420.0;
};

/// An open drawing.
class AcApDocument {
public:
    explicit AcApDocument(std::unique_ptr<AcDbDatabase> database);
    ~AcApDocument();

    /// Windows path of the drawing's file; "Drawing1.dwg" and so on for one never saved.
    const char* fileName() const { return fileName_.c_str(); }
    void setFileName(const char* name) { fileName_ = name; }
    /// True until the drawing has a file.
    bool isUntitled() const { return untitled_; }
    void setUntitled(bool untitled) { untitled_ = untitled; }
    /// What has become of the drawing's file since this program read or wrote it last.
    AcAp::FileState fileState() const;
    AcDbDatabase* database() const { return database_.get(); }
    /// The strongest lock held on the document.
    AcAp::DocLockMode lockMode() const;
    AcApView& view() { return view_; }
    const AcApView& view() const { return view_; }

private:
    friend class AcApDocManager;
    /// What tells a file changed by others from the one read or written last; nothing without it.
    struct FileMark {
        std::int64_t time = 0;  ///< of its last change, in the file system's own count
        std::uintmax_t size = 0;
        friend bool operator==(FileMark, FileMark) = default;
    };
    bool readFileMark(FileMark& mark) const;
    void noteFile();

    std::unique_ptr<AcDbDatabase> database_;
    std::string fileName_;
    bool untitled_ = true;
    FileMark file_;  ///< as it was read or written last
    std::vector<AcAp::DocLockMode> locks_;
    AcApView view_;
    std::string pendingInput_;  ///< command text sent and not yet run
};
