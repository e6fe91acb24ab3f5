#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// One case of a file of transcripts: what a user types, and what the programs answer to it.
///
///     # The title of the case
///     % SELECT GCBH FROM x_GongCheng      statements on the suite's database
///     $ grdx list | head -1               a command of the shell;
///     > echo "done"                       it goes on here
///       project 1 …                       two blanks: standard output, or rows of the database
///     ! grdx: …                           standard error
///
/// A title that ends with [file] or [server] is that of a case for one kind of database; all others
/// are for both. Beside tools/test_server.sh they run on the server, each with a database of its
/// own.
///
/// Every case has a folder of its own, `suite` in it is the suite folder, and commands find
/// programs and helpers as transcripts/helpers.sh says. What stands for the folder and for that of
/// the sample data is DIR and SAMPLES.
struct Transcript {
    std::filesystem::path file;
    std::string title;
    std::string text;  ///< with the title, as it stands in the file

    /// Goes through the case, and gives what its text would have to be.
    std::string Run() const;
};

/// The cases of all files of a folder, by file and in their order.
std::vector<Transcript> ReadTranscripts(const std::filesystem::path& folder);
