#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/ed/file_search.h"

/// Makes the charts' fonts found while it lives, and `folder` (if any) the search path.
class FoundFonts {
public:
    explicit FoundFonts(const std::string& folder = "")
        : mapping_((std::filesystem::temp_directory_path() / "fonts-XXXXXX").string()) {
        ::close(::mkstemp(mapping_.data()));
        std::ofstream(mapping_) << "[Fonts]\nComFont.shx=Sans\nst64f.shx=Sans\nHztxt.shx=Sans\n";
        ed::LoadFontMapping(mapping_);
        if (!folder.empty()) {
            ed::SetSearchFolders({folder});
        }
    }
    ~FoundFonts() {
        ed::LoadFontMapping("");
        ed::SetSearchFolders({});
        std::filesystem::remove(mapping_);
    }
    FoundFonts(const FoundFonts&) = delete;
    FoundFonts& operator=(const FoundFonts&) = delete;

private:
    std::string mapping_;
};
