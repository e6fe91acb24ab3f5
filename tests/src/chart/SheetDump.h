#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbCircle.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbHatch.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbText.h"
#include "platform/win32/code_page.h"
#include "tests/platform/db/Opened.h"

// Drawings as lines of text, for comparison: one line an entity of model space, in their order.

/// A coordinate with at most three decimals.
inline std::string Coordinate(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.3f", value);
    std::string number = text;
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') {
        number.pop_back();
    }
    return number == "-0" ? "0" : number;
}

template <class Point>
std::string Place(const Point& p) {
    return Coordinate(p.x) + "," + Coordinate(p.y);
}

inline std::string Describe(const AcDbText& text) {
    std::string line = "text " + Place(text.position()) + " h" + Coordinate(text.height()) + " " +
                       win32::Utf8FromGbk(text.textString());
    return text.rotation() == 0.0 ? line : line + " turned " + Coordinate(text.rotation());
}

inline std::string Describe(const AcDbPolyline& polyline) {
    std::string line = polyline.isClosed() ? "closed polyline" : "polyline";
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        line += " " + Place(polyline.vertexAt(i).point);
    }
    return line + " w" + Coordinate(polyline.vertexAt(0).startWidth);
}

inline std::string Describe(const AcDbEntity& entity) {
    if (const auto* line = dynamic_cast<const AcDbLine*>(&entity)) {
        return "line " + Place(line->startPoint()) + " " + Place(line->endPoint());
    }
    if (const auto* text = dynamic_cast<const AcDbText*>(&entity)) {
        return Describe(*text);
    }
    if (const auto* circle = dynamic_cast<const AcDbCircle*>(&entity)) {
        return "circle " + Place(circle->center()) + " r" + Coordinate(circle->radius()) +
               " color " + std::to_string(circle->colorIndex());
    }
    if (const auto* polyline = dynamic_cast<const AcDbPolyline*>(&entity)) {
        return Describe(*polyline);
    }
    if (const auto* hatch = dynamic_cast<const AcDbHatch*>(&entity)) {
        return std::string("hatch ") + hatch->patternName() + " color " +
               std::to_string(hatch->colorIndex());
    }
    if (const auto* block = dynamic_cast<const AcDbBlockReference*>(&entity)) {
        return "block " + Place(block->position()) + " s" + Coordinate(block->scaleFactors().sx);
    }
    return entity.isA()->name();
}

inline std::vector<std::string> Dump(AcDbDatabase& drawing) {
    std::vector<std::string> lines;
    VisitModelSpace(drawing,
                    [&lines](const AcDbEntity& entity) { lines.push_back(Describe(entity)); });
    return lines;
}
