#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/platform/win32/ScratchFolder.h"

/// What a finished program left behind.
struct ProgramResult {
    int status = -1;  ///< exit status; -1 when it was ended by a signal
    std::string output;
    std::string errors;
};

/// Runs a program to its end. With `killAfterMicroseconds` at 0 or more it is killed by then.
ProgramResult RunProgram(const std::vector<std::string>& arguments, int killAfterMicroseconds = -1);

/// The bytes of a file; fails the running test when it cannot be read.
std::string FileBytes(const std::filesystem::path& path);

/// A suite folder holding the sample project, made by the console program itself.
class SampleSuite {
public:
    /// `standardCode` 2 gives A3 sheets, others A4 sheets.
    SampleSuite(const std::filesystem::path& folder, int standardCode);
    ProgramResult Draw(const std::string& borehole, int killAfterMicroseconds = -1) const;
    /// The sheets made so far, sorted by name.
    std::vector<std::filesystem::path> Sheets() const;
    const std::filesystem::path& Folder() const { return folder_; }
    std::filesystem::path Database() const { return folder_ / "project.db"; }
    /// Runs one statement on the database; the rows as lines of values joined by "|".
    std::string Ask(const std::string& statement) const;

private:
    std::filesystem::path folder_;
};
