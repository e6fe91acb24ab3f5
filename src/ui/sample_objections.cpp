#include "src/ui/sample_objections.h"

#include <algorithm>

#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/db/table_filters.h"
#include "src/ui/sample_lists.h"

namespace {

/// More lines than a box has room for are left out.
constexpr std::size_t kMostLines = 10;

std::string Quoted(const std::string& name) {
    return "“"_gbk + name + "”"_gbk;
}

std::string FaultText(const NameFault& fault, std::size_t length) {
    switch (fault.kind) {
        case NameFault::Kind::kNone:
            break;
        case NameFault::Kind::kEmpty:
            return "为空"_gbk;
        case NameFault::Kind::kTooLong:
            return "超过"_gbk + std::to_string(length) + "个字符"_gbk;
        case NameFault::Kind::kBlankAtEnd:
            return "首尾有空格"_gbk;
        case NameFault::Kind::kControlCharacter:
            return "含有控制字符"_gbk;
        case NameFault::Kind::kCharacter:
            break;
    }
    return "含有字符"_gbk + Quoted(std::string(1, fault.character)) +
           (fault.character == '?' ? "或GBK以外的字符"_gbk : "");
}

std::string SampleText(const SampleKey& sample) {
    return "钻孔"_gbk + Quoted(sample.borehole) + "试样"_gbk + Quoted(sample.sample);
}

std::string LayerText(const std::string& layer) {
    return "土层"_gbk + Quoted(layer);
}

std::string SameSheetText(const std::string& chosen, const std::string& rival,
                          const SampleKey& sample) {
    return chosen + "与"_gbk + rival + "的图形文件同名："_gbk + SheetNames::FileName(sample);
}

/// For a message box; empty without lines.
std::string ObjectionOf(const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size() && i <= kMostLines; ++i) {
        text += "\n" + (i < kMostLines ? lines[i] : "……"_gbk);
    }
    return text.empty() ? text : "不能出图，请修改以下编号后再试此功能！"_gbk + text;
}

/// A borehole's or a sample's name, and the column that holds it.
struct NameColumn {
    const char* title;
    const char* column;
    std::string SampleKey::*name;
    std::size_t length;
};

class Objections {
public:
    Objections(const std::string& borehole, const std::vector<std::string>& samples,
               const std::vector<SampleKey>& project)
        : borehole_(borehole), samples_(samples), project_(project) {}

    std::string Text() {
        CheckNames({"钻孔编号"_gbk, "ZKBH", &SampleKey::borehole, kBoreholeLength}, {borehole_});
        if (lines_.empty()) {
            CheckNames({"试样编号"_gbk, "QYBH", &SampleKey::sample, kSampleLength}, samples_);
        }
        if (lines_.empty()) {
            CheckMarks();
        }
        if (lines_.empty()) {
            CheckSheets();
        }
        return ObjectionOf(lines_);
    }

private:
    void CheckNames(const NameColumn& column, const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            Add(column, name, FindNameFault(name, column.length));
        }
        AddStarred(column, names);
        AddOverlong(column, names);
    }

    void Add(const NameColumn& column, const std::string& name, const NameFault& fault) {
        if (!fault) {
            return;
        }
        const std::string line = column.title + Quoted(name) + FaultText(fault, column.length);
        if (std::find(lines_.begin(), lines_.end(), line) == lines_.end()) {
            lines_.push_back(line);
        }
    }

    /// Whether the key is of this borehole, and one of the names but for what stands in front of
    /// it.
    bool IsOneOf(const std::vector<std::string>& names, const NameColumn& column,
                 const SampleKey& key, std::size_t front) const {
        const std::string& name = key.*column.name;
        return (column.name == &SampleKey::borehole || key.borehole == borehole_) &&
               name.size() >= front &&
               std::find(names.begin(), names.end(), name.substr(front)) != names.end();
    }

    /// In the list a "*" in front of a name looks like the mark.
    void AddStarred(const NameColumn& column, const std::vector<std::string>& names) {
        for (const SampleKey& key : project_) {
            const std::string& name = key.*column.name;
            if (name.starts_with('*') && IsOneOf(names, column, key, 1)) {
                Add(column, name, FindNameFault(name, column.length));
            }
        }
    }

    /// Of a longer name the list has only the start.
    void AddOverlong(const NameColumn& column, const std::vector<std::string>& names) {
        const auto isFull = [&](const std::string& name) {
            return FindNameFault(name, column.length - 1).kind == NameFault::Kind::kTooLong;
        };
        std::vector<SampleKey> cut;
        if (std::any_of(names.begin(), names.end(), isFull)) {
            ReadSampleKeys(OverlongItemsFilter(ProjectContext.GCSY, column.column, column.length),
                           cut);
        }
        for (const SampleKey& key : cut) {
            if (IsOneOf(names, column, key, 0)) {
                Add(column, key.*column.name + "…"_gbk, {NameFault::Kind::kTooLong});
            }
        }
    }

    /// A borehole's marks stand in a profile under its number, and profiles know no case.
    void CheckMarks() {
        for (const std::string& other : BoreholesOf(project_)) {
            if (other != borehole_ && FoldCase(other) == FoldCase(borehole_)) {
                lines_.push_back("钻孔"_gbk + Quoted(borehole_) + "与钻孔"_gbk + Quoted(other) +
                                 "仅大小写不同，出图标记不能区分"_gbk);
            }
        }
    }

    void CheckSheets() {
        const SheetNames sheets(project_);
        std::vector<std::string> layers;
        if (IsNamedAsLayers(borehole_)) {
            ReadLayers(layers);
        }
        for (const std::string& sample : samples_) {
            const SampleKey key{borehole_, sample};
            if (const SampleKey* const rival = sheets.FindRival(key)) {
                lines_.push_back(SameSheetText(SampleText(key), SampleText(*rival), key));
            } else if (const std::string* const layer = FindRivalLayer(key, layers)) {
                lines_.push_back(SameSheetText(SampleText(key), LayerText(*layer), key));
            }
        }
    }

    const std::string& borehole_;
    const std::vector<std::string>& samples_;
    const std::vector<SampleKey>& project_;
    std::vector<std::string> lines_;
};

}  // namespace

std::string ObjectionToSamples(const std::string& borehole, const std::vector<std::string>& samples,
                               const std::vector<SampleKey>& project) {
    return Objections(borehole, samples, project).Text();
}

std::string ObjectionToLayers(const std::vector<std::string>& chosen,
                              const std::vector<std::string>& project,
                              const std::vector<SampleKey>& samples) {
    std::vector<std::string> lines;
    for (const SampleKey& sample : samples) {
        const std::string* const layer = FindRivalLayer(sample, project);
        if (layer != nullptr && std::find(chosen.begin(), chosen.end(), *layer) != chosen.end()) {
            lines.push_back(SameSheetText(LayerText(*layer), SampleText(sample), sample));
        }
    }
    return ObjectionOf(lines);
}
