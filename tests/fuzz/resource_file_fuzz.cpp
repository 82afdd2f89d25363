// Compiled resources.

#include "sdk/resources/dialog_template.h"
#include "sdk/resources/resource_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using fuzz::demand;
using Bytes = std::span<const unsigned char>;

constexpr ResourceType kTypes[] = {ResourceType::Bitmap, ResourceType::Dialog,
                                   ResourceType::String};
constexpr std::uint16_t kNumbers[] = {0, 1, 2, 7, 8, 101, 102, 0xFFFF};

bool liesIn(Bytes part, Bytes whole) {
    return part.empty() || (part.data() >= whole.data() &&
                            part.data() + part.size() <= whole.data() + whole.size());
}

bool sameText(const ResourceText& a, const ResourceText& b) {
    std::size_t same = 0;
    while (same < a.size() && same < b.size() && a[same] == b[same]) ++same;
    return same == a.size() && same == b.size();
}

/// What is found in the file's first half is found there in the whole of it too.
void tryFind(Bytes file, ResourceType type, std::uint16_t number) {
    const auto record = ResourceFile(file).find(type, number);
    const auto early = ResourceFile(file.first(file.size() / 2)).find(type, number);
    demand(!record || liesIn(record->data, file), "a record lies in its file");
    demand(!record || (record->type.number == static_cast<std::uint16_t>(type) &&
                       record->name.number == number),
           "a record is the one that was looked for");
    demand(!early || (record && early->data.data() == record->data.data() &&
                      early->data.size() == record->data.size()),
           "the first of several records is found");
}

void tryString(Bytes file, std::uint16_t id) {
    const auto text = ResourceFile(file).string(id);
    const auto early = ResourceFile(file.first(file.size() / 2)).string(id);
    demand(!text || !text->empty(), "an empty text is none");
    demand(!early || (text && sameText(*early, *text)), "the first of several texts is found");
}

/// Reads the text to its end, where a sanitizer sees a read outside the file.
std::size_t lengthOf(const ResourceText& text) {
    unsigned units = 0;
    for (std::size_t i = 0; i < text.size(); ++i) units |= text[i];
    return units == 0 ? 0 : text.size();
}

void tryDialog(Bytes file, std::uint16_t number) {
    const auto dialog = readDialog(ResourceFile(file), number);
    if (!dialog) return;
    std::size_t length = lengthOf(dialog->title) + lengthOf(dialog->typeface);
    for (const DialogControl& control : dialog->controls) {
        length += lengthOf(control.windowClass.text) + lengthOf(control.title.text);
    }
    demand(2 * length <= file.size(), "no part of the file is two texts");
    demand(24 * dialog->controls.size() <= file.size(), "every control has bytes of its own");
}

void tryBitmap(Bytes file, std::uint16_t number) {
    const auto bitmap = readBitmap(ResourceFile(file), number);
    if (!bitmap) return;
    demand(bitmap->width > 0 && bitmap->height > 0, "a bitmap has pixels");
    demand(liesIn(bitmap->pixels, file), "a bitmap's pixels lie in its file");
    const std::size_t rowBytes = bitmap->pixels.size() / static_cast<std::size_t>(bitmap->height);
    demand(rowBytes % 4 == 0 && rowBytes >= 3 * static_cast<std::size_t>(bitmap->width),
           "rows are complete and padded");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes file(data, size);
    for (const ResourceType type : kTypes) {
        for (const std::uint16_t number : kNumbers) tryFind(file, type, number);
    }
    for (const std::uint16_t number : kNumbers) {
        tryDialog(file, number);
        tryBitmap(file, number);
    }
    for (std::uint16_t id = 0; id < 48; ++id) tryString(file, id);
    return 0;
}
