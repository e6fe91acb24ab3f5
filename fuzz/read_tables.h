#pragma once

#include <cstdlib>
#include <string>

#include "lab/Failure.h"
#include "lab/hydrometer/hydrometer_table.h"
#include "lab/tables/table_files.h"

/// Reads the bytes as each kind of table, and stops the program when something was read that cannot
/// be stored: a sample without a name or items, a mass that is no number or below 0, shares of a
/// percentage that weigh more than all of it.
inline void ReadTables(const std::string& bytes) {
    for (int as = -1; as < 3; ++as) {
        lab::TableOptions options;
        if (as >= 0) {
            options.as = static_cast<lab::ValueKind>(as);
        }
        lab::Findings findings;
        try {
            const auto samples = lab::ReadSamples({{"f", bytes}}, options, findings);
            for (const lab::Sample& sample : samples) {
                double sum = 0.0;
                for (const lab::SieveItem& item : sample.items) {
                    if (!item.size || !item.mass || !(*item.size >= 0.0) || !(*item.mass >= 0.0)) {
                        std::abort();
                    }
                    sum += *item.mass;
                }
                const bool complete = !sample.borehole.empty() && !sample.sample.empty() &&
                                      !sample.items.empty() && sample.total;
                const bool fits = options.as != lab::ValueKind::kPassing ||
                                  sum <= *sample.total * (1.0 + 1e-6) + 1e-5;
                if (!findings.Refused() && !(complete && fits)) {
                    std::abort();
                }
            }
        } catch (const lab::Failure&) {  // a refusal is what bad input gets
        }
    }
    lab::Findings findings;
    try {
        lab::ReadLayers({{"f", bytes}}, {}, findings);
        lab::ReadHydrometerTests({{"f", bytes}}, {}, findings);
    } catch (const lab::Failure&) {
    }
}
