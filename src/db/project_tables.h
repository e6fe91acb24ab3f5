#pragma once

#include "src/core/characteristic_diameters.h"
#include "src/db/CProjectTable.h"
#include "src/facts/sieve_series.h"

// The tables of the project database. A field is named after its column, a status after its field.
// Numbers of boreholes (ZKBH) and samples (QYBH) are UTF-16 there.

/// The projects.
class CGongChengTable : public CProjectTable {
public:
    CGongChengTable();

    struct Record {
        LONG GCSY;       ///< project index
        char GCBH[21];   ///< project number
        char GCMC[151];  ///< project name
        SHORT GCBZ;      ///< standard code
        LONG GCSJ;       ///< data-check flag
    };
    Record record{};
};

/// The samples.
class CQuYangTable : public CProjectTable {
public:
    CQuYangTable();

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];
        WCHAR QYBH[13];
        float QYSD;  ///< depth of the sample's top, m
        float QYHD;  ///< thickness, m
        DBSTATUS QYSDStatus, QYHDStatus;
    };
    Record record{};
};

/// The grain-size results of the samples. A row without total mass cannot be read: it counts as
/// none.
class CKeFenTable : public CProjectTable {
public:
    CKeFenTable();

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];
        WCHAR QYBH[13];
        WCHAR KLSYFF[16];  ///< test method; empty when null
        /// Percent of the total mass in the classes of kSieveSeries.
        float KL800, KL400, KL200, KL60, KL40, KL20, KL10, KL5, KL2, KL_5, KL_25, KL_1, KL_075,
            KL_074, KL_05, KL_01, KL_005, KL_002, KL0;
        float KLD10, KLD15, KLD30, KLD50, KLD60, KLD85, KLD90, KLD95;  ///< diameters, mm
        float KLTYZL;                                                  ///< total mass
        float KLHL;                                                    ///< percent below 0.005 mm
        float KLBJXS;  ///< coefficient of uniformity
        float KLQLXS;  ///< coefficient of curvature
        DBSTATUS KL800Status, KL400Status, KL200Status, KL60Status, KL40Status, KL20Status,
            KL10Status, KL5Status, KL2Status, KL_5Status, KL_25Status, KL_1Status, KL_075Status,
            KL_074Status, KL_05Status, KL_01Status, KL_005Status, KL_002Status, KL0Status;
        DBSTATUS KLD10Status, KLD15Status, KLD30Status, KLD50Status, KLD60Status, KLD85Status,
            KLD90Status, KLD95Status;
        DBSTATUS KLHLStatus, KLBJXSStatus, KLQLXSStatus;
        DBSTATUS KLSYFFStatus;  ///< so that a row without test method can be read
    };
    Record record{};

    /// A column with its status.
    struct FloatColumn {
        float Record::*value;
        DBSTATUS Record::*status;
    };
    /// In the order of kSieveSeries.
    static const FloatColumn kClassColumns[kSieveSeries.size()];
    /// In the order of DiameterIndex.
    static const FloatColumn kDiameterColumns[kDiameterCount];
    static const FloatColumn kFineColumn;
    static const FloatColumn kUniformityColumn;
    static const FloatColumn kCurvatureColumn;
};

/// The test items of the samples, one row a sieve.
class CKeFenItemTable : public CProjectTable {
public:
    CKeFenItemTable();

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];
        WCHAR QYBH[13];
        LONG XH;       ///< item number
        float KLLJ;    ///< sieve size, mm
        float KLSYZL;  ///< mass retained on it
        DBSTATUS KLLJStatus, KLSYZLStatus;
    };
    Record record{};
};

/// The design values of the layers, one row a layer and parameter.
class CSheJiTable : public CProjectTable {
public:
    CSheJiTable();

    struct Record {
        LONG GCSY;
        BYTE YCBH;     ///< sub-layer number
        BYTE ZCBH;     ///< main layer number
        SHORT CSLX;    ///< parameter code: a class's as in kSieveSeries, a result's
        char CSV[51];  ///< value as text
        DBSTATUS CSVStatus;
    };
    Record record{};
};

/// The layers that have design values, each once. For reading only.
class CSheJiLayerTable : public CProjectTable {
public:
    CSheJiLayerTable();

    struct Record {
        LONG GCSY;
        BYTE YCBH;
        BYTE ZCBH;
    };
    Record record{};
};
