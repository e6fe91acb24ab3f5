#pragma once

#include "lab/tables/SampleBuilder.h"
#include "lab/tables/table_files.h"

namespace lab {

// Groups and headings of AGS4 that samples are read from and written to.
namespace ags {
inline constexpr const char* kLocations = "LOCA";
inline constexpr const char* kSamples = "SAMP";
inline constexpr const char* kGradings = "GRAG";
inline constexpr const char* kGradingPoints = "GRAT";
inline constexpr const char* kLocation = "LOCA_ID";
inline constexpr const char* kTop = "SAMP_TOP";
inline constexpr const char* kBase = "SAMP_BASE";
inline constexpr const char* kReference = "SAMP_REF";
inline constexpr const char* kSampleId = "SAMP_ID";
inline constexpr const char* kType = "SAMP_TYPE";
inline constexpr const char* kMethod = "GRAG_METH";
/// Ours, which DICT explains: the mass of the whole sample, g.
inline constexpr const char* kTotal = "GRAG_TOTL";
inline constexpr const char* kSize = "GRAT_SIZE";
inline constexpr const char* kPassing = "GRAT_PERP";
}  // namespace ags

/// Whether a text is in the form AGS4.
bool IsAgs(std::string_view text);

/// Reads the samples that have points in GRAT. The sample is SAMP_ID, else SAMP_REF; its thickness
/// SAMP_BASE less SAMP_TOP. Its percentages are of a total of 100, unless GRAG tells the mass.
void ReadAgsSamples(const std::string& name, std::string_view text, const TableOptions& options,
                    SampleBuilder& builder, Findings& findings);

}  // namespace lab
