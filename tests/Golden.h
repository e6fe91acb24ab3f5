#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Texts that tests compare with, in files that are reviewed as any code is. A run with
// GRDX_ACCEPT=1 in the environment (tools/accept_goldens.sh) puts in what there is now.

inline bool AcceptsGoldens() {
    return std::getenv("GRDX_ACCEPT") != nullptr;
}

/// Expects the lines to be those of the file.
inline void ExpectGolden(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    if (AcceptsGoldens()) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        return;
    }
    std::ifstream written(file, std::ios::binary);
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(written), {})) << file;
}
