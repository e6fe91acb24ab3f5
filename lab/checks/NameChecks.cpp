#include "lab/checks/NameChecks.h"

#include <algorithm>

#include "platform/win32/code_page.h"
#include "platform/win32/gbk_case.h"

namespace lab {

namespace {
constexpr const char* kNotStorable = "name-not-storable";
constexpr const char* kCollision = "sheet-collision";

/// The layer page offers layers by these classes.
constexpr int kOfferedByCodes[] = {1105, 1106, 1108, 1109};

SampleKey KeyOf(const Sample& sample) {
    return {win32::GbkFromUtf8(sample.borehole), win32::GbkFromUtf8(sample.sample)};
}

std::vector<SampleKey> OfferedSamples(const ProjectData& data) {
    std::vector<SampleKey> keys;
    for (const ProjectSample& sample : data.samples) {
        if (!sample.stored.data.items.empty()) {
            keys.push_back(KeyOf(sample.stored.data));
        }
    }
    return keys;
}

std::vector<std::string> OfferedLayers(const ProjectData& data) {
    std::vector<std::string> labels;
    for (const ProjectLayer& layer : data.layers) {
        if (std::any_of(std::begin(kOfferedByCodes), std::end(kOfferedByCodes),
                        [&](int code) { return layer.values.contains(code); })) {
            labels.push_back(win32::GbkFromUtf8(layer.label));
        }
    }
    return labels;
}

bool IsTooLong(const std::string& name, std::size_t length) {
    return FindNameFault(name, length).kind == NameFault::Kind::kTooLong;
}

std::string FirstCharacters(const std::string& gbk, std::size_t count) {
    std::size_t end = 0;
    for (; end < gbk.size() && count > 0; --count) {
        end += win32::CharLength(gbk, end);
    }
    return gbk.substr(0, end);
}

std::string Named(const char* what, const std::string& gbk) {
    return std::string(what) + " \"" + win32::Utf8FromGbk(gbk) + '"';
}

std::string FaultText(const NameFault& fault, std::size_t length) {
    switch (fault.kind) {
        case NameFault::Kind::kEmpty:
            return "is empty";
        case NameFault::Kind::kTooLong:
            return "is longer than " + std::to_string(length) + " characters";
        case NameFault::Kind::kBlankAtEnd:
            return "has a blank at an end";
        case NameFault::Kind::kControlCharacter:
            return "holds a control character";
        case NameFault::Kind::kCharacter:
        case NameFault::Kind::kNone:
            break;
    }
    return std::string("holds ") + fault.character +
           (fault.character == '?' ? " or a letter that GBK does not have" : "");
}

void AddFault(const char* what, const std::string& gbk, std::size_t length, FindingNotes& notes) {
    if (const NameFault fault = FindNameFault(gbk, length)) {
        notes.Add(Severity::kError, kNotStorable,
                  std::string("the name of the ") + what + ' ' + FaultText(fault, length));
    }
}

std::string SampleText(const SampleKey& key) {
    return Named("sample", key.sample) + " of " + Named("borehole", key.borehole);
}
}  // namespace

NameChecks::NameChecks(const ProjectData& data)
    : samples_(OfferedSamples(data)),
      layers_(OfferedLayers(data)),
      sheets_(samples_),
      keys_(samples_.begin(), samples_.end()) {
    for (const SampleKey& key : samples_) {
        if (boreholes_.insert(key.borehole).second) {
            ++boreholesByFolded_[win32::FoldCase(key.borehole)];
        }
        if (IsTooLong(key.sample, kSampleLength)) {
            cutSamples_.insert({key.borehole, FirstCharacters(key.sample, kSampleLength)});
        }
        if (IsTooLong(key.borehole, kBoreholeLength)) {
            cutBoreholes_.insert(FirstCharacters(key.borehole, kBoreholeLength));
        }
    }
}

void NameChecks::CheckSample(const Sample& sample, FindingNotes& notes) const {
    const SampleKey key = KeyOf(sample);
    CheckNames(key, notes);
    CheckLists(key, notes);
    if (!sample.items.empty()) {
        CheckSheets(key, notes);
    }
}

void NameChecks::CheckNames(const SampleKey& key, FindingNotes& notes) const {
    AddFault("borehole", key.borehole, kBoreholeLength, notes);
    AddFault("sample", key.sample, kSampleLength, notes);
}

/// Names that are sound but look like another's in the lists of the property sheet and its marks.
void NameChecks::CheckLists(const SampleKey& key, FindingNotes& notes) const {
    const auto add = [&](const std::string& text) {
        notes.Add(Severity::kError, kNotStorable, text);
    };
    const auto addStarred = [&](const char* what, const std::string& name) {
        add(Named(what, name) + " looks like " + Named(what, "*" + name) + " without its star");
    };
    if (boreholes_.contains("*" + key.borehole)) {
        addStarred("borehole", key.borehole);
    }
    if (keys_.contains({key.borehole, "*" + key.sample})) {
        addStarred("sample", key.sample);
    }
    if (cutBoreholes_.contains(key.borehole)) {
        add(Named("borehole", key.borehole) + " is how a longer name starts");
    }
    if (cutSamples_.contains(key)) {
        add(Named("sample", key.sample) + " is how a longer name starts");
    }
    const auto sameMarks = boreholesByFolded_.find(win32::FoldCase(key.borehole));
    if (sameMarks != boreholesByFolded_.end() && sameMarks->second > 1) {
        add(Named("borehole", key.borehole) +
            " differs from another only in the case of letters, which marks do not tell apart");
    }
}

void NameChecks::CheckSheets(const SampleKey& key, FindingNotes& notes) const {
    std::string rival;
    if (const SampleKey* const sample = sheets_.FindRival(key)) {
        rival = SampleText(*sample);
    } else if (const std::string* const layer = FindRivalLayer(key, layers_)) {
        rival = "layer " + win32::Utf8FromGbk(*layer);
    } else {
        return;
    }
    notes.Add(
        Severity::kError, kCollision,
        "its sheet " + win32::Utf8FromGbk(SheetNames::FileName(key)) + " is also that of " + rival);
}

void NameChecks::CheckLayer(const std::string& label, FindingNotes& notes) const {
    const std::string gbk = win32::GbkFromUtf8(label);
    for (const SampleKey& sample : samples_) {
        const std::string* const layer = FindRivalLayer(sample, layers_);
        if (layer != nullptr && *layer == gbk) {
            notes.Add(Severity::kError, kCollision,
                      "its sheet is also that of " + SampleText(sample));
            return;
        }
    }
}

}  // namespace lab
