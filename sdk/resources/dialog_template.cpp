#include "sdk/resources/dialog_template.h"

#include <string_view>
#include <utility>

#include "sdk/resources/byte_reader.h"
#include "sdk/resources/resource_name.h"

namespace ruvex {
namespace {

/// The first two fields of a DIALOGEX template.
constexpr std::uint16_t kVersion = 1;
constexpr std::uint16_t kSignature = 0xFFFF;
/// The style that says that the fields of a font follow the title.
constexpr std::uint32_t kSetFont = 0x40;
/// Bytes of a control with empty names and without creation data.
constexpr std::size_t kSmallestControl = 30;

struct SystemClass {
    std::uint16_t number;
    std::string_view name;  ///< in capitals
};
constexpr SystemClass kSystemClasses[] = {
    {kButtonClass, "BUTTON"}, {0x0081, "EDIT"},      {kStaticClass, "STATIC"},
    {0x0083, "LISTBOX"},      {0x0084, "SCROLLBAR"}, {kComboBoxClass, "COMBOBOX"},
};

constexpr char16_t inCapitals(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

bool isName(const ResourceText& text, std::string_view capitals) {
    std::size_t same = 0;
    while (same < text.size() && same < capitals.size() &&
           inCapitals(text[same]) == static_cast<char16_t>(capitals[same])) {
        ++same;
    }
    return same == text.size() && same == capitals.size();
}

/// Resource compilers write the system's classes by number or by name; both are a number here.
ResourceName readClass(ByteReader& reader) {
    const ResourceName name = readName(reader);
    if (name.number) return name;
    for (const SystemClass& known : kSystemClasses) {
        if (isName(name.text, known.name)) return {known.number, ResourceText()};
    }
    return name;
}

std::int16_t readCoordinate(ByteReader& reader) {
    return static_cast<std::int16_t>(reader.u16());
}

/// For a dialog and for a control: the position and then the size.
template <class Placed>
void readRectangle(ByteReader& reader, Placed& placed) {
    placed.x = readCoordinate(reader);
    placed.y = readCoordinate(reader);
    placed.width = readCoordinate(reader);
    placed.height = readCoordinate(reader);
}

void readFont(ByteReader& reader, DialogTemplate& dialog) {
    dialog.pointSize = reader.u16();
    dialog.weight = reader.u16();
    const std::uint16_t italicAndCharacterSet = reader.u16();
    dialog.italic = (italicAndCharacterSet & 0xFF) != 0;
    dialog.typeface = readText(reader);
}

DialogControl readControl(ByteReader& reader) {
    DialogControl control;
    reader.alignTo4();
    reader.u32();  // identifier for help
    control.extendedStyle = reader.u32();
    control.style = reader.u32();
    readRectangle(reader, control);
    control.id = reader.u32();
    control.windowClass = readClass(reader);
    control.title = readName(reader);
    reader.take(reader.u16());  // creation data
    return control;
}

/// No value if the rest of the data does not hold so many controls. Memory is reserved only for a
/// number that can fit.
std::optional<std::vector<DialogControl>> readControls(ByteReader& reader, std::size_t count) {
    if (count > reader.remaining() / kSmallestControl) return std::nullopt;
    std::vector<DialogControl> controls;
    controls.reserve(count);
    while (controls.size() < count && !reader.failed()) controls.push_back(readControl(reader));
    return reader.failed() ? std::nullopt : std::optional(std::move(controls));
}

}  // namespace

std::optional<DialogTemplate> readDialog(const ResourceFile& file, std::uint16_t number) {
    const auto record = file.find(ResourceType::Dialog, number);
    return record ? readDialog(record->data) : std::nullopt;
}

std::optional<DialogTemplate> readDialog(std::span<const unsigned char> bytes) {
    ByteReader reader(bytes);
    const std::uint16_t version = reader.u16();
    const std::uint16_t signature = reader.u16();
    if (version != kVersion || signature != kSignature) return std::nullopt;

    DialogTemplate dialog;
    reader.u32();  // identifier for help
    dialog.extendedStyle = reader.u32();
    dialog.style = reader.u32();
    const std::uint16_t controlCount = reader.u16();
    readRectangle(reader, dialog);
    readName(reader);  // menu
    readName(reader);  // window class
    dialog.title = readText(reader);
    if ((dialog.style & kSetFont) != 0) readFont(reader, dialog);
    auto controls = readControls(reader, controlCount);
    if (!controls) return std::nullopt;
    dialog.controls = std::move(*controls);
    return dialog;
}

}  // namespace ruvex
