#include "platform/dwg/DwgObjectReader.h"

#include <unordered_set>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/codec/entity_fields.h"

namespace {
constexpr unsigned kLeastHandleBits = 8;
}

void DwgObjectReader::extendedData(AcDbObject& object) {
    const DwgBitReader start = data();
    for (std::size_t size = static_cast<std::uint16_t>(data().bitShort()); size > 0;
         size = static_cast<std::uint16_t>(data().bitShort())) {
        data().handle();
        data().skip(8 * size);
    }
    const std::size_t bits = data().bitPosition() - start.bitPosition();
    constexpr std::size_t kBitsOfNone = 2;
    if (!data().failed() && bits > kBitsOfNone) {
        DwgBitReader again = start;
        again.bitString(bits, object.fileData().extendedData);
        object.fileData().extendedDataBits = bits;
    }
}

void DwgObjectReader::objectHead(AcDbObject& object) {
    object.setOwnerId(reference());
    reactorsAndDictionary(object);
}

void DwgObjectReader::entityHead(AcDbEntity& entity, std::vector<std::uint8_t>& graphics,
                                 DwgEntityLinks& links) {
    if (data().bit()) {
        data().bytes(data().rawLong(), graphics);
    }
    const HeaderVariables& header = database().header();
    switch (data().bits(2)) {
        case 0:
            entity.setOwnerId(reference());
            break;
        case 1:
            entity.setOwnerId(header.BLOCK_RECORD_PAPER_SPACE);
            break;
        case 2:
            entity.setOwnerId(header.BLOCK_RECORD_MODEL_SPACE);
            break;
        default:
            data().fail();
    }
    reactorsAndDictionary(entity);
    if (data().bit()) {
        links.previous = idOf(holder() - 1);
        links.next = idOf(holder() + 1);
    } else {
        softPointers(links.previous, links.next);
    }
    DwgFields<AcDbEntity>::fields(*this, entity);
}

void DwgObjectReader::reactorsAndDictionary(AcDbObject& object) {
    const std::size_t reactors = count(data(), 0);
    if (reactors > handles().remaining() / kLeastHandleBits) {
        handles().fail();
        return;
    }
    AcDbObjectIdArray named;
    std::unordered_set<AcDbObjectId> known;
    for (std::size_t i = 0; i < reactors; ++i) {
        const AcDbObjectId reactor = reference();
        if (!reactor.isNull() && known.insert(reactor).second) {
            named.append(reactor);
        }
    }
    object.setPersistentReactors(std::move(named));
    AcDbObjectId dictionary;
    hardOwners(dictionary);
    if (!dictionary.isNull()) {
        object.fileData().extensionDictionary = dictionary;
    }
}

void DwgObjectReader::linetype(AcDbObjectId& linetype) {
    const HeaderVariables& header = database().header();
    switch (data().bits(2)) {
        case 0:
            linetype = header.LTYPE_BYLAYER;
            break;
        case 1:
            linetype = header.LTYPE_BYBLOCK;
            break;
        case 2:
            linetype = header.LTYPE_CONTINUOUS;
            break;
        default:
            hardPointers(linetype);
    }
}

void DwgObjectReader::plotStyle(std::uint8_t& source, AcDbObjectId& style) {
    smallBits(source, 2);
    if (source == 3) {
        hardPointers(style);
    }
}

// Places of records that are gone are null in the file and not kept.
void DwgObjectReader::records(std::vector<AcDbObjectId>& records) {
    const std::size_t number = count(data(), 0);
    if (number > handles().remaining() / kLeastHandleBits) {
        handles().fail();
        return;
    }
    records.reserve(records.size() + number);
    for (std::size_t i = 0; i < number; ++i) {
        const AcDbObjectId record = reference();
        if (!record.isNull()) {
            records.push_back(record);
        }
    }
}

void DwgObjectReader::recordsAndTwo(std::vector<AcDbObjectId>& all) {
    records(all);
    AcDbObjectId first;
    AcDbObjectId second;
    hardOwners(first, second);
    for (const AcDbObjectId apart : {second, first}) {
        if (!apart.isNull()) {
            all.insert(all.begin(), apart);
        }
    }
}

void DwgObjectReader::blockRecords(std::vector<AcDbObjectId>& records) {
    recordsAndTwo(records);
}

void DwgObjectReader::linetypeRecords(std::vector<AcDbObjectId>& records) {
    recordsAndTwo(records);
}

void DwgObjectReader::blockEntities(AcDbBlockTableRecord& block,
                                    const std::vector<AcDbObjectId>& /*entities*/) {
    DwgReadState::Chain chain{&block, {}};
    softPointers(chain.ends.previous, chain.ends.next);
    state_.chains.push_back(chain);
}

void DwgObjectReader::blockReferenceCount(const AcDbBlockTableRecord& /*block*/,
                                          std::vector<AcDbObjectId>& known) {
    std::size_t number = 0;
    while (data().rawChar() != 0) {
        ++number;
    }
    if (number > handles().remaining() / kLeastHandleBits) {
        handles().fail();
        return;
    }
    known.resize(number);
}

void DwgObjectReader::blockReferences(std::vector<AcDbObjectId>& known) {
    for (AcDbObjectId& id : known) {
        id = reference();
    }
}

AcDbKeptFields DwgObjectReader::remainingFields() {
    AcDbKeptFields kept;
    kept.bitCount = data().remaining();
    data().bitString(kept.bitCount, kept.bits);
    while (handles().remaining() >= kLeastHandleBits) {
        const DwgFileHandle reference = handles().handle();
        kept.references.push_back({reference.code, idOf(reference.resolved(holder()))});
    }
    return kept;
}
