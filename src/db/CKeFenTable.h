#pragma once

#include "src/db/CProjectTable.h"

/// The grain-size results of the samples. A row without total mass cannot be read: it counts as
/// none.
class CKeFenTable : public CProjectTable {
public:
    CKeFenTable();

    static constexpr int kClasses = 19;
    static constexpr int kDiameters = 8;
    /// Sieve sizes of `KL`, mm; the last is the class below the finest sieve.
    static constexpr double kClassSizes[kClasses] = {800,  400,  200,   60,    40,  20,    10,
                                                     5,    2,    0.5,   0.25,  0.1, 0.075, 0.074,
                                                     0.05, 0.01, 0.005, 0.002, 0};

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];
        WCHAR QYBH[13];
        WCHAR KLSYFF[16];       ///< test method
        float KL[kClasses];     ///< KL800 to KL0, percent of the total mass retained
        float KLD[kDiameters];  ///< KLD10, 15, 30, 50, 60, 85, 90, 95, mm
        float KLTYZL;           ///< total mass
        float KLHL;             ///< percent finer than 0.005 mm
        float KLBJXS;           ///< coefficient of uniformity
        float KLQLXS;           ///< coefficient of curvature
        DBSTATUS KLStatus[kClasses];
        DBSTATUS KLDStatus[kDiameters];
        DBSTATUS KLHLStatus;
        DBSTATUS KLBJXSStatus;
        DBSTATUS KLQLXSStatus;
    };
    Record record{};
};
