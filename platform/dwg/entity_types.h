#pragma once

#include <cstdint>

namespace dwg {

/// The format's own numbers of entity types that are told apart beyond their codecs.
enum EntityType : std::uint16_t {
    kText = 1,
    kAttribute = 2,
    kAttributeDefinition = 3,
    kSequenceEnd = 6,
    kBlockReference = 7,
    kBlockReferenceRows = 8,
    kVertex2d = 10,
    kVertex3d = 11,
    kPolyline2d = 15,
    kPolyline3d = 16,
    kArc = 17,
    kOrdinateDimension = 20,   ///< the first of the dimensions
    kDiametricDimension = 26,  ///< the last of them
    kPoint = 27,
    kFace = 28,
    kSolid = 31,
    kTrace = 32,
    kEllipse = 35,
    kMultilineText = 44,
    kLeader = 45,
    kHatch = 78,
};

}  // namespace dwg
