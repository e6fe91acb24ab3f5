#include "tests/apps/grdx/Transcript.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

#include "tests/platform/oledb/SqliteTestDatabase.h"
#include "tests/system/Program.h"

namespace {

namespace fs = std::filesystem;

std::string Replaced(std::string text, const std::string& part, const std::string& other) {
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += other.size()) {
        text.replace(at, part.size(), other);
    }
    return text;
}

/// Every line of the text with that in front of it; a last line without an end gets a mark.
std::string Marked(const std::string& text, const std::string& mark) {
    std::string marked;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        marked += mark + line + (lines.eof() ? "\\\n" : "\n");
    }
    return marked;
}

bool OnServer() {
    return std::getenv("GRDX_TEST_SERVER") != nullptr;
}

/// Goes through the lines of a case in its folder, with a database of its own on the server.
class Session {
public:
    Session() {
        if (OnServer()) {
            Administer({"createdb", database_});
        }
    }
    ~Session() {
        if (OnServer()) {
            Administer({"dropdb", "--force", database_});
        }
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    std::string Go(const std::string& text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            const std::string content = line.size() > 2 ? line.substr(2) : "";
            if (line.starts_with("> ")) {
                command_ += "\n" + content;
            } else {
                Execute();
            }
            if (line.starts_with("$ ")) {
                command_ = content;
            }
            const bool isAnswer = line.starts_with("  ") || line.starts_with("! ");
            actual_ += isAnswer ? "" : line + "\n";
            if (line.starts_with("% ")) {
                Ask(content);
            }
        }
        Execute();
        return actual_;
    }

private:
    static ProgramResult Administer(const std::vector<std::string>& command) {
        ProgramResult run = RunProgram(command);
        EXPECT_EQ(run.status, 0) << run.errors;
        return run;
    }
    void Ask(const std::string& statements) {
        if (OnServer()) {
            std::istringstream rows(
                Administer({"psql", "-qAtX", "-Pnull=null", "-d", database_, "-c", statements})
                    .output);
            for (std::string row; std::getline(rows, row);) {
                Answer(row);
            }
            return;
        }
        const std::string path = folder_.Path("suite/project.db");
        for (const std::string& row : SqliteTestDatabase(path.c_str()).RowList(statements)) {
            Answer(row);
        }
    }
    void Answer(const std::string& row) {
        // Of 2.50 and 7.0 only some databases write the zeros.
        static const std::regex kZeros(R"((\d\.(?:\d*[1-9])?)0+(?=\||$))");
        static const std::regex kPoint(R"((\d)\.(?=\||$))");
        const std::string shorter = std::regex_replace(row, kZeros, "$1");
        actual_ += Marked(std::regex_replace(shorter, kPoint, "$1") + "\n", "  ");
    }
    void Execute() {
        if (command_.empty()) {
            return;
        }
        const std::string begin =
            ". " GRDX_TRANSCRIPTS "/helpers.sh; cd " + folder_.Path().string() + "\n";
        const ProgramResult run = RunProgram({"bash", "-c", begin + command_, GRDX_PROGRAM,
                                              GRDX_SAMPLES, folder_.Path(), database_});
        actual_ += Marked(Told(run.output), "  ") + Marked(Told(run.errors), "! ");
        command_.clear();
    }
    std::string Told(const std::string& text) const {
        return Replaced(Replaced(text, folder_.Path(), "DIR"), GRDX_SAMPLES, "SAMPLES");
    }

    ScratchFolder folder_;
    const std::string database_ = "of_a_case";
    std::string command_;
    std::string actual_;
};

}  // namespace

std::string Transcript::Run() const {
    return Session().Go(text);
}

std::vector<Transcript> ReadTranscripts(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    std::vector<Transcript> transcripts;
    for (const fs::path& file : files) {
        std::istringstream lines(FileBytes(file));
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("# ")) {
                transcripts.push_back({file, line.substr(2), ""});
            }
            transcripts.back().text += line + "\n";
        }
    }
    const char* const others = OnServer() ? "[file]" : "[server]";
    std::erase_if(transcripts, [&](const Transcript& one) { return one.title.ends_with(others); });
    return transcripts;
}
