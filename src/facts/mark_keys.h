#pragma once

#include <string>

// Where the profiles tell which boreholes, samples and layers were drawn. Texts are GBK.

/// Section of the plug-in's keys in all three profiles.
inline constexpr const char* kSettingsSection = "CKFDlg";
/// Stands in lists in front of what was drawn.
inline constexpr char kDrawnMark = '*';
/// Between the bare names under a key.
inline constexpr char kMarkSeparator = '@';

/// Keys of the mark profile: boreholes all of whose samples were drawn, and samples of a borehole.
inline std::string BoreholeMarksKey(const std::string& projectNumber) {
    return "KFQX" + projectNumber;
}
inline std::string SampleMarksKey(const std::string& projectNumber, const std::string& borehole) {
    return BoreholeMarksKey(projectNumber) + borehole;
}
/// Key of the project profile: layers are kept with the project.
inline std::string LayerMarksKey(const std::string& projectNumber) {
    return "KFQXTC" + projectNumber;
}
