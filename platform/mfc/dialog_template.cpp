#include "platform/mfc/dialog_template.h"

#include <cstring>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "platform/mfc/window_styles.h"
#include "platform/win32/code_page.h"

namespace mfc {
namespace {

constexpr WORD kVersion = 1;
constexpr WORD kExtendedForm = 0xFFFF;
constexpr WORD kOrdinal = 0xFFFF;
constexpr std::size_t kAlignment = 4;

/// Window classes that templates name by a number.
struct ClassNumber {
    const char* name;
    WORD number;
};
constexpr ClassNumber kClassNumbers[] = {
    {WC_BUTTON, 0x80}, {WC_EDIT, 0x81}, {WC_STATIC, 0x82}, {WC_LISTBOX, 0x83}};

class Writer {
public:
    template <class Number>
    void Put(Number number) {
        const auto* bytes = reinterpret_cast<const std::byte*>(&number);
        block_.insert(block_.end(), bytes, bytes + sizeof number);
    }
    void Put(const DialogRect& rect) {
        Put(rect.x);
        Put(rect.y);
        Put(rect.width);
        Put(rect.height);
    }
    void PutText(std::string_view gbk) {
        for (const char16_t unit : win32::Utf16FromGbk(gbk)) {
            Put(unit);
        }
        Put(u'\0');
    }
    void PutClass(const std::string& name) {
        for (const ClassNumber& known : kClassNumbers) {
            if (name == known.name) {
                Put(kOrdinal);
                Put(known.number);
                return;
            }
        }
        if (name != DATETIMEPICK_CLASS) {
            throw std::logic_error("a dialog template with window class " + name);
        }
        PutText(name);
    }
    void Align() { block_.resize((block_.size() + kAlignment - 1) / kAlignment * kAlignment); }
    std::vector<std::byte> Take() { return std::move(block_); }

private:
    std::vector<std::byte> block_;
};

class Reader {
public:
    explicit Reader(const void* block) : start_(static_cast<const std::byte*>(block)) {}

    template <class Number>
    Number Get() {
        Number number;
        std::memcpy(&number, start_ + position_, sizeof number);
        position_ += sizeof number;
        return number;
    }
    DialogRect GetRect() {
        const auto x = Get<short>();
        const auto y = Get<short>();
        const auto width = Get<short>();
        const auto height = Get<short>();
        return {x, y, width, height};
    }
    std::string GetText() {
        std::u16string text;
        for (auto unit = Get<char16_t>(); unit != 0; unit = Get<char16_t>()) {
            text += unit;
        }
        return win32::GbkFromUtf16(text);
    }
    std::string GetClass() {
        const std::size_t before = position_;
        if (Get<WORD>() != kOrdinal) {
            position_ = before;
            return GetText();
        }
        const auto number = Get<WORD>();
        for (const ClassNumber& known : kClassNumbers) {
            if (number == known.number) {
                return known.name;
            }
        }
        throw std::logic_error("window class " + std::to_string(number) + " in a dialog template");
    }
    void Align() { position_ = (position_ + kAlignment - 1) / kAlignment * kAlignment; }

private:
    const std::byte* start_;
    std::size_t position_ = 0;
};

void PutControl(Writer& writer, const ControlDescription& control) {
    writer.Align();
    writer.Put(DWORD{0});  // help
    writer.Put(DWORD{0});  // extended style
    writer.Put(control.style | WS_CHILD | WS_VISIBLE);
    writer.Put(control.rect);
    writer.Put(DWORD{control.id});
    writer.PutClass(control.windowClass);
    writer.PutText(control.text);
    writer.Put(WORD{0});  // no creation data
}

ControlDescription GetControl(Reader& reader) {
    reader.Align();
    ControlDescription control{};
    reader.Get<DWORD>();
    reader.Get<DWORD>();
    control.style = reader.Get<DWORD>();
    control.rect = reader.GetRect();
    control.id = static_cast<WORD>(reader.Get<DWORD>());
    control.windowClass = reader.GetClass();
    control.text = reader.GetText();
    reader.Get<WORD>();
    return control;
}

}  // namespace

std::vector<std::byte> MakeDialogTemplate(const DialogDescription& dialog) {
    Writer writer;
    writer.Put(kVersion);
    writer.Put(kExtendedForm);
    writer.Put(DWORD{dialog.number});
    writer.Put(DWORD{0});  // extended style
    writer.Put(dialog.style);
    writer.Put(static_cast<WORD>(dialog.controls.size()));
    writer.Put(dialog.rect);
    writer.Put(WORD{0});  // no menu
    writer.Put(WORD{0});  // the dialog's own window class
    writer.PutText(dialog.caption);
    for (const ControlDescription& control : dialog.controls) {
        PutControl(writer, control);
    }
    return writer.Take();
}

DialogDescription ReadDialogTemplate(const void* dialogTemplate) {
    Reader reader(dialogTemplate);
    if (reader.Get<WORD>() != kVersion || reader.Get<WORD>() != kExtendedForm) {
        throw std::logic_error("a block that is no dialog template of the extended form");
    }
    DialogDescription dialog{};
    dialog.number = static_cast<WORD>(reader.Get<DWORD>());
    reader.Get<DWORD>();
    dialog.style = reader.Get<DWORD>();
    const auto count = reader.Get<WORD>();
    dialog.rect = reader.GetRect();
    reader.Get<WORD>();
    reader.Get<WORD>();
    dialog.caption = reader.GetText();
    for (int i = 0; i < count; ++i) {
        dialog.controls.push_back(GetControl(reader));
    }
    return dialog;
}

}  // namespace mfc
