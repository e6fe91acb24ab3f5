#pragma once

#include "src/core/sieve_series.h"
#include "src/db/CProjectTable.h"

/// The grain-size results of the samples. A row without total mass cannot be read: it counts as
/// none.
class CKeFenTable : public CProjectTable {
public:
    CKeFenTable();

    static constexpr std::size_t kClasses = kSieveSeries.size();
    static constexpr std::size_t kDiameters = 8;

    struct Record {
        LONG GCSY;
        WCHAR ZKBH[21];
        WCHAR QYBH[13];
        WCHAR KLSYFF[16];       ///< test method; empty when null
        float KL[kClasses];     ///< KL800 to KL0 as in kSieveSeries, percent of the total mass
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
        DBSTATUS KLSYFFStatus;
    };
    Record record{};

private:
    static const Bindings& Columns();
};
