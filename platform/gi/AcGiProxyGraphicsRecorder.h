#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/gi/AcGiWorldDraw.h"

/// Records what an entity draws as the byte stream of proxy graphics that a drawing file keeps for
/// programs without the entity's class. Layout: 32-bit size of the whole stream, 32-bit record
/// count, then records of 32-bit size (its own eight bytes included), 32-bit kind and data,
/// little-endian. The first record is the box around everything. Lines with widths are recorded as
/// filled polygons, and the colour "none of its own" as by layer, which is what readers know.
class AcGiProxyGraphicsRecorder : public AcGiWorldDraw {
public:
    AcGiProxyGraphicsRecorder();
    ~AcGiProxyGraphicsRecorder() override;

    AcGiWorldGeometry& geometry() const override;
    AcGiSubEntityTraits& subEntityTraits() const override;

    /// The finished stream; empty when nothing was drawn.
    std::vector<std::uint8_t> bytes() const;

private:
    class Stream;
    std::unique_ptr<Stream> stream_;
};
