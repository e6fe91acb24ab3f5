#pragma once

#include <cstdint>
#include <span>

#include "platform/gi/AcGiWorldDraw.h"

/// Draws a stream of proxy graphics (see AcGiProxyGraphicsRecorder) into `context`: what a drawing
/// file holds of an entity whose class is not here. Lines, polygons, circles, arcs, texts and faces
/// are drawn with their colours and transforms; records of other kinds are passed over. A damaged
/// stream is drawn as far as it makes sense. False when there is nothing to draw.
bool PlayProxyGraphics(std::span<const std::uint8_t> stream, AcGiWorldDraw& context);
