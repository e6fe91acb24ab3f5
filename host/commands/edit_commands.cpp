#include <memory>
#include <numbers>

#include "host/BuiltInCommand.h"
#include "host/coordinates.h"
#include "host/dialogue.h"
#include "host/entity_pick.h"
#include "host/redraw.h"
#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGeMatrix3d.h"
#include "platform/ge/AcGePoint3d.h"
#include "platform/win32/number_text.h"

namespace host {

namespace {
using Arguments = BuiltInCommand::Arguments;
using Picks = BuiltInCommand::Picks;

constexpr const char* kPickPrompt = "Select object: ";
constexpr const char* kBasePrompt = "Base point: ";

/// The entity that a pick names, open for write; at the end it is drawn anew and closed. False for
/// none, with the reason on the command line.
class PickedEntity {
public:
    explicit PickedEntity(const std::string& pick) {
        AcDbObjectId id;
        AcGePoint3d point;
        if (PickEntity(*acDocManager->curDocument(), pick, id, point) &&
            acdbOpenObject(entity_, id, AcDb::kForWrite) != Acad::eOk) {
            Complain("The entity %1 cannot be changed.", {pick});
        }
    }
    ~PickedEntity() {
        if (entity_ != nullptr) {
            if (!entity_->isErased()) {
                Redraw(*entity_);
            }
            entity_->close();
        }
    }
    PickedEntity(const PickedEntity&) = delete;
    PickedEntity& operator=(const PickedEntity&) = delete;

    explicit operator bool() const { return entity_ != nullptr; }
    AcDbEntity* operator->() const { return entity_; }
    AcDbEntity& operator*() const { return *entity_; }

private:
    AcDbEntity* entity_ = nullptr;
};

bool Point(const std::string& word, AcGePoint3d& point) {
    const std::optional<AcGePoint3d> parsed = ParsePoint(word);
    point = parsed.value_or(AcGePoint3d());
    return parsed || Complain("A point is x,y, not \"%1\".", {word});
}

bool Number(const std::string& word, double& number) {
    const std::optional<double> parsed = win32::ParseNumber(word);
    number = parsed.value_or(0.0);
    return parsed || Complain("\"%1\" is no number.", {word});
}

bool Transform(const std::string& picks, const AcGeMatrix3d& map) {
    return ForEachPick(picks, [&](const std::string& pick) {
        const PickedEntity entity(pick);
        return entity && (entity->transformBy(map) == Acad::eOk ||
                          Complain("The entity %1 cannot be transformed.", {pick}));
    });
}

/// Appends to the block that `model` stands in. The entity is lost when the block does not take it.
bool AppendBeside(const AcDbEntity& model, std::unique_ptr<AcDbEntity> entity) {
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, model.ownerId(), AcDb::kForWrite) != Acad::eOk) {
        return false;
    }
    const bool taken = block->appendAcDbEntity(entity.get()) == Acad::eOk;
    block->close();
    if (taken) {
        Redraw(*entity);
        entity.release()->close();
    }
    return taken;
}

bool Erase(Host& /*host*/, const Arguments& arguments) {
    return ForEachPick(arguments[0], [](const std::string& pick) {
        const PickedEntity entity(pick);
        return entity && entity->erase() == Acad::eOk;
    });
}

bool ExplodeOne(const std::string& pick) {
    const PickedEntity entity(pick);
    if (!entity) {
        return false;
    }
    AcDbVoidPtrArray pieces;
    if (entity->explode(pieces) != Acad::eOk || pieces.isEmpty()) {
        return Complain("The entity %1 is made of nothing simpler.", {pick});
    }
    bool good = true;
    for (void* piece : pieces) {
        good =
            AppendBeside(*entity, std::unique_ptr<AcDbEntity>(static_cast<AcDbEntity*>(piece))) &&
            good;
    }
    return good && entity->erase() == Acad::eOk;
}

bool Explode(Host& /*host*/, const Arguments& arguments) {
    return ForEachPick(arguments[0], ExplodeOne);
}

bool Move(Host& /*host*/, const Arguments& arguments) {
    AcGePoint3d base;
    AcGePoint3d to;
    return Point(arguments[1], base) && Point(arguments[2], to) &&
           Transform(arguments[0], AcGeMatrix3d::translation(to - base));
}

bool CopyOne(const std::string& pick, const AcGeMatrix3d& map) {
    const PickedEntity entity(pick);
    if (!entity) {
        return false;
    }
    std::unique_ptr<AcDbObject> made = entity->clone();
    std::unique_ptr<AcDbEntity> copy(static_cast<AcDbEntity*>(made.release()));
    return (copy != nullptr && copy->transformBy(map) == Acad::eOk &&
            AppendBeside(*entity, std::move(copy))) ||
           Complain("The entity %1 cannot be copied.", {pick});
}

bool Copy(Host& /*host*/, const Arguments& arguments) {
    AcGePoint3d base;
    AcGePoint3d to;
    return Point(arguments[1], base) && Point(arguments[2], to) &&
           ForEachPick(arguments[0], [&](const std::string& pick) {
               return CopyOne(pick, AcGeMatrix3d::translation(to - base));
           });
}

bool Rotate(Host& /*host*/, const Arguments& arguments) {
    AcGePoint3d base;
    double degrees = 0.0;
    return Point(arguments[1], base) && Number(arguments[2], degrees) &&
           Transform(arguments[0], AcGeMatrix3d::rotation(degrees * std::numbers::pi / 180.0,
                                                          AcGeVector3d::kZAxis, base));
}

bool Scale(Host& /*host*/, const Arguments& arguments) {
    AcGePoint3d base;
    double factor = 0.0;
    if (!Point(arguments[1], base) || !Number(arguments[2], factor)) {
        return false;
    }
    return factor > 0.0 ? Transform(arguments[0], AcGeMatrix3d::scaling(factor, base))
                        : Complain("A scale factor is above 0, not %1.", {arguments[2]});
}

bool Mirror(Host& /*host*/, const Arguments& arguments) {
    AcGePoint3d first;
    AcGePoint3d second;
    if (!Point(arguments[1], first) || !Point(arguments[2], second)) {
        return false;
    }
    return first.isEqualTo(second)
               ? Complain("The two points of a mirror line must differ.")
               : Transform(arguments[0], AcGeMatrix3d::mirroring(first, second));
}

/// Moves the grips of these indexes (from 0) as dragging them would.
bool Grip(Host& /*host*/, const Arguments& arguments) {
    const std::optional<AcDbIntArray> indexes = ParseIndexes(arguments[1]);
    AcGePoint3d offset;
    if (!indexes) {
        return Complain("Grips are index[,index...] from 0, not \"%1\".", {arguments[1]});
    }
    if (!Point(arguments[2], offset)) {
        return false;
    }
    const PickedEntity entity(arguments[0]);
    if (!entity) {
        return false;
    }
    AcGePoint3dArray grips;
    AcDbIntArray snapModes;
    AcDbIntArray geometryIds;
    entity->getGripPoints(grips, snapModes, geometryIds);
    for (const int index : *indexes) {
        if (index >= grips.length()) {
            return Complain("The entity %1 has no grip %2, it has %3.",
                            {arguments[0], std::to_string(index), std::to_string(grips.length())});
        }
    }
    return entity->moveGripPointsAt(*indexes, offset - AcGePoint3d()) == Acad::eOk;
}
}  // namespace

const std::vector<BuiltInCommand>& EditCommands() {
    static const std::vector<BuiltInCommand> commands = {
        {"ERASE", false, {kPickPrompt}, Erase, Picks::kSeveral},
        {"EXPLODE", false, {kPickPrompt}, Explode, Picks::kSeveral},
        {"MOVE", false, {kPickPrompt, kBasePrompt, "Second point: "}, Move, Picks::kSeveral},
        {"COPY", false, {kPickPrompt, kBasePrompt, "Second point: "}, Copy, Picks::kSeveral},
        {"ROTATE",
         false,
         {kPickPrompt, kBasePrompt, "Angle in degrees: "},
         Rotate,
         Picks::kSeveral},
        {"SCALE", false, {kPickPrompt, kBasePrompt, "Scale factor: "}, Scale, Picks::kSeveral},
        {"MIRROR",
         false,
         {kPickPrompt, "First point of the mirror line: ", "Second point: "},
         Mirror,
         Picks::kSeveral},
        {"GRIP", false, {kPickPrompt, "Grips: ", "Displacement: "}, Grip, Picks::kOne},
    };
    return commands;
}

}  // namespace host
