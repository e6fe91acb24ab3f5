#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/gi/AcGiWorldDraw.h"

/// Records what an entity draws as the byte stream of proxy graphics that a drawing file keeps for
/// programs without the entity's class. Layout: 32-bit total size, 32-bit record count, then records
/// of 32-bit size, 32-bit kind and data, little-endian.
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
