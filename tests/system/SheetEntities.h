#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

/// What can be compared of an entity between the drawing database and a reader of its own.
struct SheetEntity {
    unsigned long long handle = 0;
    std::string kind;  ///< name of the kind in drawing files: LINE, TEXT …
    std::string layer;
    int color = 0;
    std::string text;  ///< UTF-8; of texts
    double height = 0.0;
    std::vector<AcGePoint3d> points;  ///< ends, vertices, insertion point or centre
    double radius = 0.0;
    std::vector<SheetEntity> content;  ///< of block references: the block's entities as they appear
};

/// The model space of a drawing in drawing order, as the drawing database reads it. The kind of a
/// curve is "CKFCURVE".
std::vector<SheetEntity> ReadSheet(const std::filesystem::path& sheet);
/// The proxy graphics that the sheet has for its curves, in drawing order.
std::vector<std::vector<std::uint8_t>> ReadCurveGraphics(const std::filesystem::path& sheet);
/// Writes a copy of the sheet without its curves.
void CopyWithoutCurves(const std::filesystem::path& sheet, const std::filesystem::path& copy);
