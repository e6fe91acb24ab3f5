#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "lab/tables/table_files.h"

namespace lab {

/// Makes samples of values that were read, whichever shape they stood in.
class SampleBuilder {
public:
    struct Value {
        double size;  ///< mm; 0 is the pan
        double value;
        std::string place;  ///< where it stands; needed for other values than retained masses
    };

    explicit SampleBuilder(Findings& findings) : findings_(findings) {}

    /// The sample of that name in the file that is read, null when there is none yet. It lives
    /// until the next Add.
    Sample* Find(const std::string& borehole, const std::string& sample);
    /// A new sample, without items; `place` is where it was read. Refused when another file has it.
    void Add(Sample sample, const std::string& place);
    /// Appends to the sample that was found or added last.
    void AddValue(Value value);
    const std::string& PlaceOfFound() const { return samples_[current_].place; }
    /// Ends a file, whose values are of this kind: they become items.
    void EndFile(ValueKind kind);

    std::vector<Sample> Take();

private:
    struct Entry {
        Sample sample;
        std::string place;
        std::vector<Value> values;
    };
    void MakeItems(Entry& entry, ValueKind kind);
    bool InOrder(const Entry& entry, std::vector<Value>& values);
    void FromCumulative(Entry& entry, const std::vector<Value>& values);
    void FromPassing(Entry& entry, const std::vector<Value>& values);

    Findings& findings_;
    std::vector<Entry> samples_;
    std::unordered_map<std::string, std::size_t> indexes_;
    std::size_t current_ = 0;
    std::size_t fileStart_ = 0;
};

/// What stays on each sieve when so many percent of `total` are finer than it: sizes falling,
/// percents falling. What is finer than the finest one becomes an item of size 0, if anything is.
/// The masses are decimals of six digits or less, so that they add up to the total also as 32-bit
/// floats.
std::vector<SieveItem> ItemsOfPassing(const std::vector<double>& sizes,
                                      const std::vector<double>& passing, double total);

}  // namespace lab
