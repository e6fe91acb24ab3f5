// What a new drawing has before anything is drawn in it.
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbDictionary.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbLayout.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/HeaderVariables.h"
#include "platform/db/drawing_support_classes.h"

/// Makes the objects of a new drawing, under the handles that drawings usually have for them.
class AcDbDatabase::DefaultDrawing {
public:
    explicit DefaultDrawing(AcDbDatabase& database)
        : database_(database), header_(database.header()) {}

    void build() {
        header_.TDCREATE = CurrentDrawingDay();
        header_.TDUPDATE = header_.TDCREATE;
        makeTables();
        makeDictionaries();
        makeStyles();
        makeSpace(header_.BLOCK_RECORD_PAPER_SPACE, 0x1B, ACDB_PAPER_SPACE, "Layout1");
        makeSpace(header_.BLOCK_RECORD_MODEL_SPACE, 0x1F, ACDB_MODEL_SPACE, "Model");
        addRecord<AcDbViewportTableRecord>(0x29, header_.VPORT_CONTROL_OBJECT, "*Active");
    }

private:
    template <class T>
    T& place(AcDbObjectId& id, AcDbHandle handle, AcDbObjectId owner, std::unique_ptr<T> object) {
        T& placed = *object;
        placed.setOwnerId(owner);
        id = database_.idOfHandle(handle);
        database_.placeObject(id, std::move(object));
        return placed;
    }
    template <class T>
    T& make(AcDbObjectId& id, AcDbHandle handle, AcDbObjectId owner = {}) {
        return place(id, handle, owner, std::make_unique<T>());
    }

    template <class T>
    T& addRecord(AcDbObjectId& id, AcDbHandle handle, AcDbObjectId table, const char* name) {
        auto record = std::make_unique<T>();
        record->setName(name);
        T& placed = place(id, handle, table, std::move(record));
        static_cast<AcDbSymbolTable*>(objectOf(table))->records_.push_back(id);
        return placed;
    }
    template <class T>
    T& addRecord(AcDbHandle handle, AcDbObjectId table, const char* name) {
        AcDbObjectId ignored;
        return addRecord<T>(ignored, handle, table, name);
    }

    /// The dictionary owns the object and is told of its changes.
    template <class T>
    T& addEntry(AcDbObjectId& id, AcDbHandle handle, AcDbObjectId dictionary, const char* name) {
        T& object = make<T>(id, handle, dictionary);
        object.fileData().reactors.append(dictionary);
        auto& entries = static_cast<AcDbDictionary*>(objectOf(dictionary))->entries_;
        entries.emplace_back(name, id);
        return object;
    }

    void makeTables() {
        make<AcDbBlockTable>(header_.BLOCK_CONTROL_OBJECT, 0x1);
        make<AcDbLayerTable>(header_.LAYER_CONTROL_OBJECT, 0x2);
        make<AcDbTextStyleTable>(header_.STYLE_CONTROL_OBJECT, 0x3);
        make<AcDbLinetypeTable>(header_.LTYPE_CONTROL_OBJECT, 0x5);
        make<AcDbViewTable>(header_.VIEW_CONTROL_OBJECT, 0x6);
        make<AcDbUCSTable>(header_.UCS_CONTROL_OBJECT, 0x7);
        make<AcDbViewportTable>(header_.VPORT_CONTROL_OBJECT, 0x8);
        make<AcDbRegAppTable>(header_.APPID_CONTROL_OBJECT, 0x9);
        make<AcDbDimStyleTable>(header_.DIMSTYLE_CONTROL_OBJECT, 0xA);
        make<AcDbVXTable>(header_.VX_CONTROL_OBJECT, 0xB);
    }

    void makeDictionaries() {
        AcDbObjectId& root = header_.DICTIONARY_NAMED_OBJECTS;
        make<AcDbDictionary>(root, 0xC);
        addEntry<AcDbDictionary>(header_.DICTIONARY_ACAD_GROUP, 0xD, root, "ACAD_GROUP");
        addEntry<AcDbDictionary>(header_.DICTIONARY_LAYOUTS, 0x1A, root, "ACAD_LAYOUT");
        addEntry<AcDbDictionary>(header_.DICTIONARY_ACAD_MLINESTYLE, 0x17, root, "ACAD_MLINESTYLE");
        addEntry<AcDbDictionary>(header_.DICTIONARY_PLOTSETTINGS, 0x19, root, "ACAD_PLOTSETTINGS");
        AcDbObjectId& styles = header_.DICTIONARY_PLOTSTYLES;
        auto& plotStyles =
            addEntry<AcDbDictionaryWithDefault>(styles, 0xE, root, "ACAD_PLOTSTYLENAME");
        addEntry<AcDbPlaceHolder>(normalPlotStyle_, 0xF, styles, "Normal");
        plotStyles.default_ = normalPlotStyle_;
    }

    void makeStyles() {
        const AcDbObjectId linetypes = header_.LTYPE_CONTROL_OBJECT;
        auto& continuous = addRecord<AcDbLinetypeTableRecord>(header_.LTYPE_CONTINUOUS, 0x16,
                                                              linetypes, "Continuous");
        continuous.description_ = "Solid line";
        addRecord<AcDbLinetypeTableRecord>(header_.LTYPE_BYBLOCK, 0x14, linetypes, "ByBlock");
        addRecord<AcDbLinetypeTableRecord>(header_.LTYPE_BYLAYER, 0x15, linetypes, "ByLayer");
        header_.CELTYPE = header_.LTYPE_BYLAYER;
        auto& layer = addRecord<AcDbLayerTableRecord>(header_.CLAYER, 0x10,
                                                      header_.LAYER_CONTROL_OBJECT, "0");
        layer.plotStyleId_ = normalPlotStyle_;
        layer.linetypeId_ = header_.LTYPE_CONTINUOUS;
        addRecord<AcDbTextStyleTableRecord>(header_.TEXTSTYLE, 0x11, header_.STYLE_CONTROL_OBJECT,
                                            "Standard");
        addRecord<AcDbRegAppTableRecord>(0x12, header_.APPID_CONTROL_OBJECT, "ACAD");
        header_.DIMTXSTY = header_.TEXTSTYLE;
        auto& dimStyle = addRecord<AcDbDimStyleTableRecord>(
            header_.DIMSTYLE, 0x27, header_.DIMSTYLE_CONTROL_OBJECT, "Standard");
        dimStyle.variables_ = header_;
        makeMlineStyle();
    }

    void makeMlineStyle() {
        auto& style = addEntry<AcDbMlineStyle>(header_.CMLSTYLE, 0x18,
                                               header_.DICTIONARY_ACAD_MLINESTYLE, "Standard");
        style.name_ = "STANDARD";
        style.elements_.resize(2);
        style.elements_[0].offset = 0.5;
        style.elements_[1].offset = -0.5;
    }

    /// A space takes four handles: its record, the entities around its own, its layout.
    void makeSpace(AcDbObjectId& id, AcDbHandle handle, const char* name, const char* layoutName) {
        auto& block =
            addRecord<AcDbBlockTableRecord>(id, handle, header_.BLOCK_CONTROL_OBJECT, name);
        AcDbEntity& begin =
            place(block.blockBegin_, handle + 1, id, std::make_unique<AcDbBlockBegin>(name));
        AcDbEntity& end = make<AcDbBlockEnd>(block.blockEnd_, handle + 2, id);
        for (AcDbEntity* entity : {&begin, &end}) {
            entity->layerId_ = header_.CLAYER;
            entity->linetypeId_ = header_.LTYPE_BYLAYER;
        }
        auto& layout = addEntry<AcDbLayout>(block.layoutId_, handle + 3, header_.DICTIONARY_LAYOUTS,
                                            layoutName);
        layout.name_ = layoutName;
        layout.block_ = id;
        if (&id == &header_.BLOCK_RECORD_MODEL_SPACE) {
            constexpr Adesk::Int16 kDisplay = 0;
            constexpr Adesk::Int16 kFit = 0;
            layout.flags_ |= AcDbPlotSettings::kModelType;
            layout.plotType_ = kDisplay;
            layout.standardScale_ = kFit;
        } else {
            layout.tabOrder_ = 1;
        }
    }

    AcDbDatabase& database_;
    HeaderVariables& header_;
    AcDbObjectId normalPlotStyle_;
};

void AcDbDatabase::buildDefaultDrawing() {
    DefaultDrawing(*this).build();
}
