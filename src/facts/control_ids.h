#pragma once

#include "platform/win32/win_types.h"

/// Numbers of the plug-in's dialogs and of their controls; the same number means different things
/// in different dialogs.

enum DialogNumber : WORD {
    IDD_ANNOTATION = 601,
    IDD_SAMPLE_BROWSER = 602,
    IDD_SAMPLE_PAGE = 604,
    IDD_OPTIONS = 2008,
    IDD_LAYER_PAGE = 2009,
    IDD_LAYER_BROWSER = 2010
};

enum AnnotationControl : int {
    IDC_TESTER = 2009,
    IDC_CHECKER = 2010,
    IDC_UNIT = 2013,
    IDC_UNIT_CHECK = 2026,
    IDC_TESTER_CHECK = 2027,
    IDC_CHECKER_CHECK = 2028,
    IDC_DATE_CHECK = 2029,
    IDC_DATE = 2030
};

enum OptionControl : int { IDC_OUTER_FRAME = 2035, IDC_RIGHT_AXIS = 2036, IDC_RECOMPUTE = 2037 };

enum SamplePageControl : int {
    IDC_SAMPLES = 2001,
    IDC_BOREHOLES = 2008,
    IDC_REMOVE_SAMPLE_MARKS = 2037
};

enum LayerPageControl : int { IDC_LAYERS = 2001, IDC_REMOVE_LAYER_MARKS = 2038 };

enum BrowserControl : int { IDC_BROWSER_BOREHOLES = 2014, IDC_SHEETS = 2015 };

/// Icon of the property sheet and of the browsers.
inline constexpr WORD IDI_GRDX = 2007;
