#pragma once

#include <string>

/// The filters by which the tables are asked, for BuildQuery of the table named. Keys are GBK and
/// stand in the filter as they are, without escaping. A key with a single quote gives an open
/// literal instead of a filter: no statement made with it is valid, so that the table's Open fails
/// and nothing of the key is ever executed.

/// One sample: CKeFenTable, CQuYangTable.
std::string SampleFilter(int projectIndex, const std::string& borehole, const std::string& sample);
/// The test items of one sample by number: CKeFenItemTable.
std::string SampleItemsFilter(int projectIndex, const std::string& borehole,
                              const std::string& sample);
/// All test items of the project by borehole, sample, number: CKeFenItemTable.
std::string ProjectItemsFilter(int projectIndex);
/// The test items of one borehole by sample, number: CKeFenItemTable.
std::string BoreholeItemsFilter(int projectIndex, const std::string& borehole);
/// The test items of the boreholes whose number begins so, by borehole, sample, number:
/// CKeFenItemTable. Small and capital letters count as the same.
std::string BoreholesItemsFilter(int projectIndex, const std::string& prefix);
/// The test items of the project with a text of more than `length` characters in that column, by
/// borehole, sample, number: CKeFenItemTable, whose record holds only the start of such a text.
std::string OverlongItemsFilter(int projectIndex, const std::string& column, std::size_t length);
/// Layers with percentages for 20, 10, 2 or 0.5 mm by main and sub-layer: CSheJiLayerTable.
std::string LayersWithFractionsFilter(int projectIndex);
/// All parameters of one layer: CSheJiTable.
std::string LayerFilter(int projectIndex, int mainLayer, int subLayer);
/// The project itself: CGongChengTable.
std::string ProjectFilter(int projectIndex);
