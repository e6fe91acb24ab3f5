#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/db/AcDbObjectId.h"
#include "platform/ge/AcGePoint3d.h"
#include "platform/rx/Acad.h"

class AcDbEntity;

/// One part of a stacked label, placed relative to the label's start point.
struct TextPiece {
    std::string text;
    double dx;      ///< of the piece's left end
    double dy;      ///< of the piece's baseline
    double height;  ///< text height
};

/// The operations that all charts are drawn with. They keep nothing between calls. Lengths are
/// drawing units (millimetres on the sheet), angles radians, colours indices, texts GBK; everything
/// lies in the plane z = 0. What is drawn takes the current layer and, texts, the current text
/// style of its drawing. Where a target may be null, null means the host's working drawing. An
/// entity that cannot be appended is dropped without a word.
class CDrawTools {
public:
    // Layers and text styles; the target may be null.

    /// Makes the style, unless it exists, and makes it current. 0, after a message box, when one of
    /// the font files is not on the search path: the style is then neither made nor made current.
    int CreateTextStyle(const std::string& name, const std::string& fontFile,
                        const std::string& bigFontFile, AcDbDatabase* target) const;
    /// The same, with the style's id; the id is unchanged when 0 is returned.
    int CreateTextStyleId(const std::string& name, const std::string& fontFile,
                          const std::string& bigFontFile, AcDbDatabase* target,
                          AcDbObjectId& id) const;
    /// Gives the id of the layer of that name; makes it, on or off, when there is none. An empty
    /// name does nothing.
    void CreateLayer(const std::string& name, AcDbObjectId& id, AcDbDatabase* target,
                     bool off) const;

    // Lines and texts; the target may be null.

    void DrawLine(double x1, double y1, double x2, double y2, AcDbDatabase* target) const;
    /// A polyline that runs from the second point to the first.
    void DrawWideLine(double x1, double y1, double x2, double y2, double width,
                      Adesk::UInt16 colorIndex, AcDbDatabase* target) const;
    /// The form of text that charts use: unrotated, colour 7. Returns 1.
    int DrawText(AcDbDatabase* target, double x, double y, const std::string& text,
                 double height) const;
    /// One text for each run of double-byte or single-byte characters; the latter are drawn smaller
    /// and a little raised. (x, y) is the left end of the baseline. Runs follow each other along
    /// the x axis whatever the rotation.
    void DrawMixedText(double x, double y, const std::string& text, double height, double rotation,
                       Adesk::UInt16 colorIndex, AcDbDatabase* target) const;
    /// Estimated width for centring and advancing: characters × height × 0.7, not of any font.
    double TextWidth(const std::string& text, double height) const;
    /// Splits a label whose segments are introduced by a code: ! normal, @ superscript, # small
    /// superscript, $ subscript, % small subscript. The first character is always a code, any other
    /// than these standing for %. A superscript and a subscript after the same normal segment start
    /// at the same place. Replaces the pieces.
    void SplitStackedText(const std::string& coded, std::vector<TextPiece>& pieces, double height,
                          double& totalWidth) const;

    // Filled dots and blocks; the target must not be null.

    /// A circle with an associative solid fill.
    void DrawSolidDot(double x, double y, double radius, Adesk::UInt16 colorIndex,
                      AcDbDatabase* target) const;
    /// Inserts a drawing file (Windows path) as a block named by its path and places it once. Does
    /// nothing when the file cannot be read.
    void InsertDrawingAsBlock(const std::string& path, double x, double y, double rotation,
                              double scale, AcDbDatabase* target) const;

    // Appending free entities to model space. The drawing owns an entity appended, which is closed.

    /// To the working drawing. The entity is still the caller's on any status but eOk.
    Acad::ErrorStatus AddToModelSpace(AcDbEntity* entity, AcDbObjectId& id) const;
    /// 1 appended; 0 not, and the entity is still the caller's.
    int AddToDrawing(AcDbDatabase* target, AcDbEntity* entity, AcDbObjectId& id) const;
    /// Takes the entity in any case: one that cannot be appended is destroyed.
    void AppendEntity(AcDbEntity* entity, AcDbObjectId& id, AcDbDatabase* target) const;

private:
    /// What all other operations append with: to the working drawing for null. An entity that is
    /// refused is destroyed and gives a null id.
    AcDbObjectId Append(AcDbDatabase* target, std::unique_ptr<AcDbEntity> entity) const;
};
