#include "apps/grdx/project.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include <nlohmann/json.hpp>

#include "apps/grdx/MessageStream.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace console {

namespace {
constexpr std::size_t kFolderSize = 260;

nlohmann::ordered_json AsJson(const lab::ProjectFacts& facts) {
    return {{"number", facts.number},
            {"name", facts.name},
            {"code", facts.code},
            {"checked", facts.checked}};
}

nlohmann::ordered_json AsJson(const lab::Project& project) {
    nlohmann::ordered_json json = {{"index", project.index}};
    json.update(AsJson(project.profile));
    json["table"] = project.table ? AsJson(*project.table) : nlohmann::ordered_json();
    return json;
}

/// A line for each fact, with what the table has instead.
std::string Describe(const lab::Project& project) {
    std::string text = "project " + std::to_string(project.index) +
                       (project.table ? "" : " (x_GongCheng: no such row)") + "\n";
    const auto add = [&](const char* name, const auto& valueOf) {
        const std::string value = valueOf(project.profile);
        const std::string inTable = project.table ? valueOf(*project.table) : value;
        text += std::string(name) + " " + value +
                (inTable != value ? " (x_GongCheng: " + inTable + ")" : "") + "\n";
    };
    add("number", [](const lab::ProjectFacts& facts) { return facts.number; });
    add("name", [](const lab::ProjectFacts& facts) { return facts.name; });
    add("code", [](const lab::ProjectFacts& facts) { return std::to_string(facts.code); });
    add("checked",
        [](const lab::ProjectFacts& facts) { return std::string(facts.checked ? "yes" : "no"); });
    return text;
}

/// The folder of the sheets of a project number, and how many are in it.
std::pair<std::filesystem::path, std::ptrdiff_t> SheetsOf(const std::string& number) {
    namespace fs = std::filesystem;
    char registered[kFolderSize] = "";
    GetRegisteredFolder(registered);
    const fs::path folder = win32::FileSystemPath(
        registered + win32::GbkFromUtf8("\\output\\" + number + "\\室内曲线"));
    std::error_code missing;
    const auto sheets = std::count_if(
        fs::directory_iterator(folder, missing), fs::directory_iterator(),
        [](const fs::directory_entry& entry) { return entry.path().extension() == ".dwg"; });
    return {folder, sheets};
}

void TellOfSheetsLeft(const std::string& before, const std::string& now, MessageStream& messages) {
    if (before == now) {
        return;
    }
    if (const auto [folder, sheets] = SheetsOf(before); sheets > 0) {
        messages.Report(std::to_string(sheets) + (sheets == 1 ? " sheet stays" : " sheets stay") +
                        " in " + folder.string() + ": the number " + before +
                        " is written on them, and their curves cannot be stored under " + now +
                        ", of which everything is yet to be drawn");
    }
}
}  // namespace

void ShowProject(const lab::ProjectChange& change, bool json, MessageStream& messages) {
    const std::string before = lab::ReadProject().profile.number;
    if (!change.IsEmpty()) {
        lab::ChangeProject(change);
    }
    const lab::Project project = lab::ReadProject();
    TellOfSheetsLeft(before, project.profile.number, messages);
    std::cout << (json ? AsJson(project).dump() + "\n" : Describe(project));
}

}  // namespace console
