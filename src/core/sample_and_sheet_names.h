#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

// Which names boreholes and samples may have, since sheets are named after them and marks list
// them. Texts are GBK.

/// What the columns of the project database hold, in characters.
inline constexpr std::size_t kBoreholeLength = 20;
inline constexpr std::size_t kSampleLength = 12;

/// A sample's key within its project.
struct SampleKey {
    std::string borehole;
    std::string sample;

    bool operator==(const SampleKey&) const = default;
    bool operator<(const SampleKey& other) const {
        return std::tie(borehole, sample) < std::tie(other.borehole, other.sample);
    }
};

/// What a name cannot be used for: to name a file, or to stand in a list of marks or in a filter.
struct NameFault {
    enum class Kind { kNone, kEmpty, kTooLong, kBlankAtEnd, kControlCharacter, kCharacter };
    Kind kind = Kind::kNone;
    /// Of kCharacter: one of / \ : * ? " ' < > | @ =. Letters that GBK does not have are '?'.
    char character = 0;

    explicit operator bool() const { return kind != Kind::kNone; }
};
/// The first fault of a name of up to so many characters.
NameFault FindNameFault(std::string_view name, std::size_t mostCharacters);

/// The sheets that a project's samples can get, by their file names. File systems tell names apart
/// without regard to case, double-byte letters included.
class SheetNames {
public:
    explicit SheetNames(const std::vector<SampleKey>& samples);

    /// Another sample by whose sheet this one's could be replaced, or the other way: they have the
    /// same name, or this one's looks like that of a sheet of the other and further samples. Null
    /// when there is none.
    const SampleKey* FindRival(const SampleKey& sample) const;
    /// How the sample stands in the names of its sheets.
    static std::string KeyOf(const SampleKey& sample);
    /// Name of the file when the sample has a sheet of its own, with extension.
    static std::string FileName(const SampleKey& sample);

private:
    const SampleKey* FindOther(const std::string& folded, const SampleKey& sample) const;

    std::unordered_multimap<std::string, SampleKey> byName_;  ///< folded, without prefix
};

/// What sheets of layers are called by where those of samples are called by their borehole.
inline constexpr std::string_view kLayerSheets = "SJ";

/// Whether the sheets of the borehole's samples may have names like those of layers.
bool IsNamedAsLayers(const std::string& borehole);
/// The one of these layers, "2" or "2-1", whose sheet the sample's could replace, or the other way,
/// as SheetNames::FindRival. Null when there is none.
const std::string* FindRivalLayer(const SampleKey& sample, const std::vector<std::string>& layers);
