#pragma once

#include "lab/Sample.h"
#include "lab/StoreRun.h"
#include "lab/hydrometer/hydrometer.h"

namespace lab {

/// Store data in the open suite's project, all or nothing. A sample whose data are as stored is
/// left wholly alone. Of one whose data change everything measured is replaced, the stored results
/// are made null, and its mark is taken away. A borehole with a new or changed sample loses its
/// mark, too, which says that all its samples were drawn. Other columns stay. Failure when
/// something cannot be read or written.
///
/// To sieves that come for a sample whose fine part is a hydrometer's, the stored readings are
/// joined again; items that have the hydrometer's sizes among them are taken as they are, and the
/// readings no longer belong to them.
StoreSummary StoreSamples(const std::vector<Sample>& samples, const StoreOptions& options);

/// Stores readings, and makes them items of their samples, behind the sieves that are stored. A
/// sample that is not there is made of the readings alone, its total the dry mass.
StoreSummary StoreHydrometerTests(const std::vector<HydrometerTest>& tests,
                                  const StoreOptions& options);

}  // namespace lab
