#include "tests/apps/grdx/Transcript.h"

#include <algorithm>
#include <fstream>
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

/// Goes through the lines of a case in its folder.
class Session {
public:
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
    void Ask(const std::string& statements) {
        const std::string path = folder_.Path("suite/project.db");
        for (const std::string& row : SqliteTestDatabase(path.c_str()).RowList(statements)) {
            actual_ += Marked(row + "\n", "  ");
        }
    }
    void Execute() {
        if (command_.empty()) {
            return;
        }
        const std::string begin =
            ". " GRDX_TRANSCRIPTS "/helpers.sh; cd " + folder_.Path().string() + "\n";
        const ProgramResult run = RunProgram(
            {"bash", "-c", begin + command_, GRDX_PROGRAM, GRDX_SAMPLES, folder_.Path()});
        actual_ += Marked(Told(run.output), "  ") + Marked(Told(run.errors), "! ");
        command_.clear();
    }
    std::string Told(const std::string& text) const {
        return Replaced(Replaced(text, folder_.Path(), "DIR"), GRDX_SAMPLES, "SAMPLES");
    }

    ScratchFolder folder_;
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
    return transcripts;
}
