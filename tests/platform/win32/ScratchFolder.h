#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/win32/windows_path.h"

/// A fresh folder for one test, removed with all that is in it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "grdx-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no scratch folder " + name);
        }
        path_ = name;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    /// UTF-8 path of an entry of the folder.
    std::string Path(const std::string& name) const { return path_ / name; }
    /// GBK path with backslashes; `gbkName` is appended as it is.
    std::string Windows(const std::string& gbkName = "") const {
        std::string folder;
        if (!win32::WindowsPath(path_.string(), folder)) {
            throw std::runtime_error("the scratch folder cannot be written in GBK");
        }
        return gbkName.empty() ? folder : folder + "\\" + gbkName;
    }
    void Write(const std::string& name, const std::string& content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void MakeFolder(const std::string& name) const {
        std::filesystem::create_directories(Path(name));
    }
    /// Names in the folder, sorted.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};
