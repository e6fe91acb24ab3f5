#include "lab/tables/SampleBuilder.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "lab/numbers.h"

namespace lab {

namespace {
/// The decimal of so many places that is nearest.
double Decimal(double number, int places) {
    const double scale = std::pow(10.0, std::abs(places));
    return places >= 0 ? std::round(number * scale) / scale : std::round(number / scale) * scale;
}

/// The greatest number that the database can keep and that is not above.
std::optional<double> StoredUpTo(double number) {
    const std::optional<double> stored = StoredNumber(number);
    return !stored || *stored <= number
               ? stored
               : StoredNumber(std::nextafter(static_cast<float>(*stored), 0.0F));
}

std::string SampleText(const Sample& sample) {
    return "sample " + sample.sample + " of " + sample.borehole;
}
}  // namespace

std::vector<SieveItem> ItemsOfPassing(const std::vector<double>& sizes,
                                      const std::vector<double>& passing, double total) {
    constexpr int kDigits = 6;  // more are not safe in a 32-bit float
    const int places =
        total > 0.0 ? kDigits - 1 - static_cast<int>(std::floor(std::log10(total))) : 0;
    constexpr int kMorePlaces = 3;  // the total's own digits
    // Rounded up, the items would weigh more than a total of many digits.
    const auto rest = [&](double above) {
        return StoredUpTo(Decimal(total - above, places + kMorePlaces));
    };
    std::vector<SieveItem> items;
    double above = 0.0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const double retained = Decimal(total * (100.0 - passing[i]) / 100.0, places);
        if (retained >= total) {
            items.push_back({sizes[i], rest(above)});
            above = total;
        } else {
            items.push_back({sizes[i], StoredNumber(Decimal(retained - above, places))});
            above = retained;
        }
    }
    if (rest(above) > 0.0) {
        items.push_back({0.0, rest(above)});
    }
    return items;
}

Sample* SampleBuilder::Find(const std::string& borehole, const std::string& sample) {
    const auto found = indexes_.find(borehole + '\n' + sample);
    if (found == indexes_.end() || found->second < fileStart_) {
        return nullptr;
    }
    current_ = found->second;
    return &samples_[current_].sample;
}

void SampleBuilder::Add(Sample sample, const std::string& place) {
    const auto [known, added] =
        indexes_.try_emplace(sample.borehole + '\n' + sample.sample, samples_.size());
    if (!added) {
        findings_.Refuse(
            place, SampleText(sample) + " is given at " + samples_[known->second].place + ", too");
    }
    current_ = samples_.size();
    samples_.push_back({std::move(sample), place, {}});
}

void SampleBuilder::AddValue(Value value) {
    samples_[current_].values.push_back(std::move(value));
}

void SampleBuilder::EndFile(ValueKind kind) {
    for (; fileStart_ < samples_.size(); ++fileStart_) {
        MakeItems(samples_[fileStart_], kind);
    }
}

void SampleBuilder::MakeItems(Entry& entry, ValueKind kind) {
    Sample& sample = entry.sample;
    std::vector<Value> values = std::exchange(entry.values, {});
    if (kind == ValueKind::kPassing && !sample.total) {
        sample.total = 100.0;
    }
    if (values.empty()) {
        findings_.Refuse(entry.place, SampleText(sample) + " has no values");
    } else if (!sample.total) {
        findings_.Refuse(entry.place, "total: missing; masses need the mass of the whole sample");
    } else if (kind == ValueKind::kRetained) {
        std::transform(values.begin(), values.end(), std::back_inserter(sample.items),
                       [](const Value& value) {
                           return SieveItem{value.size, value.value};
                       });
    } else if (InOrder(entry, values)) {
        if (kind == ValueKind::kPassing) {
            FromPassing(entry, values);
        } else {
            FromCumulative(entry, values);
        }
    }
}

/// Puts the coarsest first. A list that sums up runs one way, from coarse to fine or back: anything
/// else is a slip of the pen.
bool SampleBuilder::InOrder(const Entry& entry, std::vector<Value>& values) {
    if (values.size() > 1 && values.front().size < values.back().size) {
        std::reverse(values.begin(), values.end());
    }
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i].size >= values[i - 1].size) {
            findings_.Refuse(values[i].place,
                             SampleText(entry.sample) + ": size " + ShortestText(values[i].size) +
                                 " stands out of order beside " + ShortestText(values[i - 1].size));
            return false;
        }
    }
    return true;
}

void SampleBuilder::FromCumulative(Entry& entry, const std::vector<Value>& values) {
    double above = 0.0;
    for (const Value& value : values) {
        if (value.value < above) {
            findings_.Refuse(value.place,
                             SampleText(entry.sample) + ": the cumulative mass falls to " +
                                 ShortestText(value.value) + " from " + ShortestText(above));
            return;
        }
        entry.sample.items.push_back({value.size, StoredNumber(value.value - above)});
        above = value.value;
    }
}

void SampleBuilder::FromPassing(Entry& entry, const std::vector<Value>& values) {
    std::vector<double> sizes;
    std::vector<double> passing;
    for (const Value& value : values) {
        const double before = passing.empty() ? 100.0 : passing.back();
        if (value.value > before) {
            findings_.Refuse(value.place,
                             SampleText(entry.sample) + ": the percentage finer rises to " +
                                 ShortestText(value.value) + " from " + ShortestText(before));
            return;
        }
        if (value.size > 0.0) {
            sizes.push_back(value.size);
            passing.push_back(value.value);
        } else if (value.value > 0.0) {
            findings_.Refuse(value.place,
                             SampleText(entry.sample) + ": nothing is finer than size 0");
            return;
        }
    }
    entry.sample.items = ItemsOfPassing(sizes, passing, *entry.sample.total);
}

std::vector<Sample> SampleBuilder::Take() {
    std::vector<Sample> samples;
    samples.reserve(samples_.size());
    for (Entry& entry : samples_) {
        samples.push_back(std::move(entry.sample));
    }
    return samples;
}

}  // namespace lab
