#pragma once

/// Who asks for the project check; the refusals differ.
enum class ProjectCheck {
    kCharts,   ///< a chart command: unchecked data also start the suite's data management
    kOpeners,  ///< a chart-opening command
};

/// True when the suite has a project open, its data have passed the suite's data check and, for a
/// chart command, its index is one that curves can keep. Else the user is told why, and the command
/// is to end.
bool CheckProject(ProjectCheck variant);

/// Reads ProjectContext from the project profile.
void LoadProjectContext();

/// Hands the suite's data-management command to the host as typed input; whatever runs is
/// cancelled.
void RequestDataManagement();
