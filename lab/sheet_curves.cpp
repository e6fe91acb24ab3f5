#include "lab/sheet_curves.h"

#include <algorithm>
#include <filesystem>

#include "lab/Failure.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgInFiler.h"
#include "platform/dwg/objects_of_class.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace lab {

namespace {
constexpr const char* kCurveClass = "CKFCurve";
constexpr std::size_t kFolderSize = 260;

/// Gives the fields of an entity that was kept as it stood in the file.
class KeptFieldsFiler : public DwgInFiler {
public:
    KeptFieldsFiler(const AcDbKeptFields& fields, AcDbDatabase& database, AcDbHandle holder)
        : DwgInFiler(reader_),
          references_(fields.references),
          bits_(fields.bits.data(), 0, fields.bitCount),
          reader_(bits_, noHandles_, database, holder) {}

    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override {
        *value = next_ < references_.size() ? references_[next_++].id : AcDbObjectId::kNull;
        return filerStatus();
    }

private:
    const std::vector<AcDbKeptReference>& references_;
    std::size_t next_ = 0;
    DwgBitReader bits_;
    DwgBitReader noHandles_;  // the references were taken apart when the file was read
    DwgFieldReader reader_;
};

bool IsKeptCurve(const AcDbEntity& entity) {
    if (!entity.isKindOf(AcDbKeptEntity::desc())) {
        return false;
    }
    const AcDbKeptClass& kept = static_cast<const AcDbKeptEntity&>(entity).keptClass();
    return kept.record != nullptr && kept.record->className == std::string_view(kCurveClass);
}

/// The folder of a project's sheets in the file system, as the chart commands make it.
std::string ChartFolder(const std::string& projectNumber) {
    char folder[kFolderSize] = "";
    GetRegisteredFolder(folder);
    return win32::FileSystemPath(std::string(folder) + "\\output\\" +
                                 win32::GbkFromUtf8(projectNumber + "\\室内曲线"));
}
}  // namespace

std::optional<KeptCurve> ReadKeptCurve(const AcDbEntity& entity, bool ofLayers) {
    if (!IsKeptCurve(entity)) {
        return std::nullopt;
    }
    KeptCurve curve;
    KeptFieldsFiler filer(static_cast<const AcDbKeptEntity&>(entity).keptFields(),
                          *entity.database(), entity.objectId().handle());
    CurveFieldReader read(filer);
    CurveFields::ForEach(curve.fields, read);
    if (!read.Good()) {
        throw Failure("it has not the fields of a grain-size curve");
    }
    if (ofLayers) {
        CurveFields::ForEachLayerNumber(curve.fields, read);
        curve.hasLayerNumbers = read.Good();
    }
    return curve;
}

SheetCurves::SheetCurves(const std::string& projectNumber) {
    std::error_code missing;
    std::vector<std::filesystem::path> sheets;
    for (const auto& entry :
         std::filesystem::directory_iterator(ChartFolder(projectNumber), missing)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("KF") && name.ends_with(".dwg")) {
            sheets.push_back(entry.path());
        }
    }
    std::sort(sheets.begin(), sheets.end());
    for (const std::filesystem::path& sheet : sheets) {
        ReadSheet(sheet.string(), sheet.filename().string());
    }
}

void SheetCurves::ReadSheet(const std::string& path, const std::string& name) {
    AcDbDatabase database(false, true);
    for (const AcDbObjectId id : dwg::ReadObjectsOfClass(database, path, kCurveClass)) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) {
            continue;
        }
        std::optional<KeptCurve> curve;
        try {
            curve = ReadKeptCurve(*entity, false);
        } catch (const Failure&) {
            // Then the sheet has no curve of the sample, which is told of it.
        }
        entity->close();
        if (curve) {
            std::pair key(curve->fields.borehole, curve->fields.sample);
            bySample_[std::move(key)].push_back({name, std::move(curve->fields)});
        }
    }
}

const std::vector<SheetCurves::Curve>& SheetCurves::Of(const std::string& borehole,
                                                       const std::string& sample) const {
    static const std::vector<Curve> kNone;
    const auto found = bySample_.find({win32::GbkFromUtf8(borehole), win32::GbkFromUtf8(sample)});
    return found != bySample_.end() ? found->second : kNone;
}

}  // namespace lab
