#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "platform/db/AcDbObjectId.h"
#include "platform/mfc/CAcExtensionModule.h"

/// What the whole plug-in shares as plain values, from load to unload. Everything runs on the
/// host's main thread, so nothing here is guarded. Texts are GBK.

/// What the charts in work are drawn for.
enum ChartModeValue : int { kSampleCharts = 0, kLayerCharts = 1, kChartModeNotSet = 2 };
/// Set by the chart and opener commands, never reset; decides what the curve files and stores.
inline int ChartMode = kChartModeNotSet;

/// The plug-in's own instance, attached while it is in the process. Its resource instance (dialog
/// templates, icons) is pushed as current resources around every window of the plug-in's own.
inline CAcExtensionModule ExtensionModule;

/// Profile files, fetched once at load; empty before.
inline std::string ProjectProfilePath;
inline std::string SettingsProfilePath;
inline std::string MarkProfilePath;

/// The current project as the last chart or opener command found it.
struct ProjectContextValues {
    int GCSY = 0;      ///< project index, key of every table
    std::string GCBH;  ///< project number
    int GCBZ = 0;      ///< standard code: 2 six charts on A3, 1 other fine-sand bound
    std::string GCMC;  ///< project name
};
inline ProjectContextValues ProjectContext;

// Working state of the chart drivers.
inline std::vector<std::string> SelectedItems;  ///< chosen samples or layer labels, page order
inline int SelectedCount = 0;
inline std::string CurrentBorehole;   ///< ZKBH shown on the sample page
inline std::string CurrentSample;     ///< QYBH, or the layer label, being drawn
inline std::string PreviousSample;    ///< upper chart's item on an A4 sheet of two; else empty
inline std::string CurrentMainLayer;  ///< main layer number as text
inline std::string CurrentSubLayer;   ///< sub-layer number as text, "0" for none
inline std::string CurrentMethod;     ///< test method of the chart just drawn
inline std::string SheetMethods;      ///< methods of the sheet so far, joined by ","
inline std::vector<std::string> MadeSheets;  ///< file names of this run's sheets, saving order
inline std::string LastSheetPath;            ///< last sheet saved; the browsers' choice
inline int OpenedFromChartCommand = 0;       ///< 1: the browser lists MadeSheets

// Placement of the chart in work, drawing units (millimetres on the sheet).
inline double ChartOriginX = 0.0;
inline double ChartOriginY = 0.0;
inline double ChartTextHeight = 0.0;
inline double ChartLineGap = 0.0;  ///< added to a text height to give a line pitch
inline double FrameWidth = 0.0;
inline double FrameHeight = 0.0;
/// Style "QV_FONT" of the sheet in work, handed to its curves.
inline AcDbObjectId QvFontStyleId;

/// Texts of the annotation page; a check box decides whether its text is drawn.
struct AnnotationSettings {
    bool unitChecked = false;
    bool testerChecked = false;
    bool checkerChecked = false;
    bool dateChecked = false;
    std::string unit;
    std::string tester;
    std::string checker;
    std::time_t date = 0;  ///< 0: not set
};
inline AnnotationSettings Annotation;

/// Choices of the option page.
inline bool OuterFrameOption = false;
inline bool RightAxisOption = false;
/// Whether curves are guarded, as the running chart command found it.
inline bool GuardedCurves = false;
/// The layer command's copy of the recompute option, read by the layer loader.
inline bool RecomputePercentages = false;

// Unsaved changes of curves.
inline int CurveDataChanged = 0;  ///< non-zero: a curve was reshaped and not stored
inline int StoreFromReactor = 0;  ///< 1 while the store runs on the editor reactor's behalf
