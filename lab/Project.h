#pragma once

#include <optional>
#include <string>

namespace lab {

/// What is known of a project in one place. Texts are UTF-8.
struct ProjectFacts {
    std::string number;  ///< names the folder of its sheets, too
    std::string name;
    int code = 0;          ///< standard code
    bool checked = false;  ///< the data check counts as passed

    bool operator==(const ProjectFacts&) const = default;
};

/// The project of the open suite folder, as its two places have it. They agree unless one was
/// changed by other means: the chart commands go by the profile, the store command also looks the
/// number up in the table.
struct Project {
    int index = 0;
    ProjectFacts profile;               ///< section [Project] of the project profile
    std::optional<ProjectFacts> table;  ///< row of x_GongCheng; none when there is no such row
};

/// What is to be changed; the rest stays.
struct ProjectChange {
    std::optional<std::string> number = {};
    std::optional<std::string> name = {};
    std::optional<int> code = {};
    std::optional<bool> checked = {};

    bool IsEmpty() const { return !number && !name && !code && !checked; }
};

/// Failure when the profile names no project, or either place cannot be read.
Project ReadProject();

/// Changes profile and table, both or neither. Failure when a value will not do, the table has no
/// row of the project, or either place cannot be written.
///
/// Sheets and marks of another number stay with that number: the sheets have it written on them,
/// and their curves are stored into a project of that number only.
void ChangeProject(const ProjectChange& change);

}  // namespace lab
