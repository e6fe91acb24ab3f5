#include "fuzz/DrawingMutator.h"

#include <algorithm>
#include <cstring>

#include "platform/dwg/DwgBitReader.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/file_layout.h"
#include "platform/dwg/object_map.h"

namespace {

constexpr std::size_t kMark = std::tuple_size_v<dwg::Sentinel>;
constexpr std::size_t kMostSections = 16;

bool fits(const std::string& file, std::size_t position, std::size_t size) {
    return position <= file.size() && size <= file.size() - position;
}

}  // namespace

DrawingMutator::DrawingMutator(std::string file, Change change, unsigned seed)
    : file_(std::move(file)), change_(change), random_(seed) {}

void DrawingMutator::mutate(std::size_t most) {
    findSpans();
    const std::size_t choice = spans_.empty() ? 0 : below(16);
    if (choice == 0) {
        mutateAnywhere(most);
    } else {
        // Objects are most of a drawing, but the few other spans decide on more.
        const Span span = spans_[choice < 5 ? below(std::min<std::size_t>(spans_.size(), 8))
                                            : below(spans_.size())];
        if (choice < 8) {
            mutateBits(span);
        } else if (choice < 11 || !span.isObject) {
            mutateWithin(span);
        } else if (choice < 14) {
            redirectReference(span);
        } else {
            resizeObject(span, most);
        }
    }
    constexpr std::size_t kOneLeftWrong = 24;
    if (below(kOneLeftWrong) != 0) {
        findSpans();
        repairChecksums();
    }
}

void DrawingMutator::mutateAnywhere(std::size_t most) {
    const std::size_t size = file_.size();
    file_.resize(std::max(size, most));
    file_.resize(change_(reinterpret_cast<std::uint8_t*>(file_.data()), size, most));
}

void DrawingMutator::mutateWithin(const Span& span) {
    std::string content = file_.substr(span.content, span.end - span.content);
    if (!content.empty()) {
        const std::size_t size = change_(reinterpret_cast<std::uint8_t*>(content.data()),
                                         content.size(), content.size());
        file_.replace(span.content, size, content, 0, size);
    }
}

void DrawingMutator::mutateBits(const Span& span) {
    if (span.end == span.content) {
        return;
    }
    // The codings are told apart by two bits anywhere in a byte: single flips reach them best.
    for (std::size_t flips = 1 + below(3); flips > 0; --flips) {
        char& byte = file_[span.content + below(span.end - span.content)];
        byte = static_cast<char>(byte ^ 1 << below(8));
    }
}

// Has an object name another one of the drawing: circles come of it, and objects of a kind that is
// not meant there.
void DrawingMutator::redirectReference(const Span& span) {
    const std::uint8_t* const bytes = dwg::BytesOf(file_);
    const std::size_t start = 8 * span.content;
    const std::size_t end = 8 * span.end;
    DwgBitReader head(bytes, start, end);
    head.bitShort();
    const std::size_t valueBits = head.rawLong();
    if (head.failed() || valueBits > end - start) {
        return;
    }
    std::vector<std::size_t> numbers;  // where those of the references begin
    DwgBitReader references(bytes, start + valueBits, end);
    while (!references.failed() && references.remaining() >= 8) {
        const std::size_t at = references.bitPosition();
        if (references.handle().value != 0) {
            numbers.push_back(at + 8);
        }
    }
    const Span& other = spans_[below(spans_.size())];
    if (numbers.empty() || !other.isObject) {
        return;
    }
    DwgBitReader otherHead(bytes, 8 * other.content, 8 * other.end);
    otherHead.bitShort();
    otherHead.rawLong();
    AcDbHandle handle = otherHead.handle().value;
    const std::size_t at = numbers[below(numbers.size())];
    for (std::size_t bit = at + 8 * (DwgBitReader(bytes, at - 4, at).bits(4)); bit-- > at;) {
        const int mask = 0x80 >> bit % 8;
        file_[bit / 8] =
            static_cast<char>((file_[bit / 8] & ~mask) | ((handle & 1) != 0 ? mask : 0));
        handle >>= 1U;
    }
}

void DrawingMutator::resizeObject(const Span& span, std::size_t most) {
    constexpr std::size_t kMostGrowth = 64;
    constexpr std::size_t kOneWord = 0x7FFF;
    std::string content = file_.substr(span.content, span.end - span.content);
    const std::size_t size = content.size();
    const std::size_t room =
        std::min({size + kMostGrowth, size + most - std::min(most, file_.size()), kOneWord});
    if (size == 0 || room < size || span.content - span.start != 2) {
        return;
    }
    content.resize(room);
    content.resize(change_(reinterpret_cast<std::uint8_t*>(content.data()), size, room));
    file_.replace(span.content, size, content);
    dwg::PutShort(file_, span.start, static_cast<std::uint16_t>(content.size()));
    shiftAddresses(span.end,
                   static_cast<std::ptrdiff_t>(content.size()) - static_cast<std::ptrdiff_t>(size));
}

// What stood at or behind `from` stands `by` bytes further on: the head and the object map say so.
void DrawingMutator::shiftAddresses(std::size_t from, std::ptrdiff_t by) {
    if (by == 0) {
        return;
    }
    const auto shift = [&](std::size_t position) {
        const std::uint32_t address = dwg::LongAt(file_, position);
        if (address >= from) {
            dwg::PutLong(file_, position, static_cast<std::uint32_t>(address + by));
        }
    };
    shift(dwg::kPreviewPosition);
    const std::size_t count =
        std::min<std::size_t>(dwg::LongAt(file_, dwg::kSectionCountPosition), kMostSections);
    std::size_t mapLocator = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t locator = dwg::kLocatorsPosition + i * dwg::kLocatorSize;
        shift(locator + 1);
        mapLocator = file_[locator] == dwg::kObjectMap ? locator : mapLocator;
    }
    const std::size_t address = dwg::LongAt(file_, mapLocator + 1);
    const std::size_t size = dwg::LongAt(file_, mapLocator + 5);
    if (mapLocator == 0 || !fits(file_, address, size)) {
        return;
    }
    try {
        std::vector<dwg::MapEntry> entries =
            dwg::ReadObjectMap(std::string_view(file_).substr(address, size));
        for (dwg::MapEntry& entry : entries) {
            entry.position += entry.position >= from ? static_cast<std::uint32_t>(by) : 0;
        }
        std::string map;
        dwg::AppendObjectMap(map, entries);
        // A map of another size is left to be found damaged.
        if (map.size() == size) {
            file_.replace(address, size, map);
        }
    } catch (const DwgFault&) {
        return;
    }
}

void DrawingMutator::findSpans() {
    spans_.clear();
    if (file_.size() < dwg::kLocatorsPosition || !file_.starts_with(dwg::kVersion)) {
        return;
    }
    findHeadAndSections();
    findSecondHeader();
    findObjects();
}

void DrawingMutator::findHeadAndSections() {
    const std::size_t count = dwg::LongAt(file_, dwg::kSectionCountPosition);
    if (count > kMostSections) {
        return;
    }
    const std::size_t headEnd = dwg::kLocatorsPosition + count * dwg::kLocatorSize;
    if (!fits(file_, headEnd, dwg::kCrcSize)) {
        return;
    }
    spans_.push_back({0, dwg::kVersion.size(), headEnd});
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t locator = dwg::kLocatorsPosition + i * dwg::kLocatorSize;
        const std::size_t address = dwg::LongAt(file_, locator + 1);
        const std::size_t size = dwg::LongAt(file_, locator + 5);
        const auto number = static_cast<std::uint8_t>(file_[locator]);
        constexpr std::size_t kFrame = 2 * kMark + 4 + dwg::kCrcSize;
        if (!fits(file_, address, size)) {
            continue;
        }
        if (number <= dwg::kClasses && size >= kFrame) {
            spans_.push_back(
                {address + kMark, address + kMark + 4, address + size - kMark - dwg::kCrcSize});
        }
        if (number == dwg::kObjectMap) {
            for (std::size_t at = address; at + 4 <= address + size;) {
                const std::size_t page = static_cast<std::uint8_t>(file_[at]) << 8 |
                                         static_cast<std::uint8_t>(file_[at + 1]);
                if (page < 2 || at + page + dwg::kCrcSize > address + size) {
                    break;
                }
                spans_.push_back({at, at + 2, at + page, false, true});
                at += page + dwg::kCrcSize;
            }
        }
    }
}

void DrawingMutator::findSecondHeader() {
    constexpr std::size_t kAfterCrc = 8;
    const std::size_t position = file_.find(dwg::TextOf(dwg::kSecondHeaderBegin));
    if (position == std::string::npos || !fits(file_, position, kMark + 4)) {
        return;
    }
    const std::size_t start = position + kMark;
    const std::size_t size = dwg::LongAt(file_, start);
    if (size >= 4 + dwg::kCrcSize + kAfterCrc && fits(file_, start, size)) {
        spans_.push_back({start, start + 4, start + size - kAfterCrc - dwg::kCrcSize});
    }
}

// The objects stand one behind the other, between the classes and the map.
void DrawingMutator::findObjects() {
    std::size_t at = 0;
    for (std::size_t i = 0; i < kMostSections && at == 0; ++i) {
        const std::size_t locator = dwg::kLocatorsPosition + i * dwg::kLocatorSize;
        if (fits(file_, locator, dwg::kLocatorSize) && file_[locator] == dwg::kClasses) {
            at = std::size_t{dwg::LongAt(file_, locator + 1)} + dwg::LongAt(file_, locator + 5) + 4;
        }
    }
    while (at > 0 && at < file_.size()) {
        const dwg::ObjectFrame frame = dwg::FrameAt(file_, at);
        const std::size_t end = frame.contentPosition + frame.contentSize;
        // The map begins with a size that has its high byte first and makes no object.
        if (!frame.fits || frame.contentSize == 0) {
            return;
        }
        if (dwg::ShortAt(file_, end) != dwg::Crc(dwg::BytesOf(file_) + at, end - at) &&
            std::any_of(spans_.begin(), spans_.end(),
                        [&](const Span& span) { return span.start == at; })) {
            return;
        }
        spans_.push_back({at, frame.contentPosition, end, true});
        at = end + dwg::kCrcSize;
    }
}

void DrawingMutator::repairChecksums() {
    // The head last: nothing else lies before it.
    for (const Span& span : spans_) {
        const std::uint16_t crc = dwg::Crc(dwg::BytesOf(file_) + span.start, span.end - span.start);
        const auto swapped = static_cast<std::uint16_t>(crc << 8U | crc >> 8U);
        dwg::PutShort(file_, span.end, span.highByteFirst ? swapped : crc);
    }
}
