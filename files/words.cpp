#include "files/words.h"

#include <algorithm>
#include <cstdint>

namespace ruvex::files {
namespace {

std::uint8_t byteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<std::uint8_t>(text[at]) : 0;
}

/// Letters of several bytes: the range of the first byte, and that of the second, which tells
/// longer forms than needed, halves of pairs, numbers beyond the last letter and control
/// characters.
struct Form {
    std::uint8_t first, last;
    std::uint8_t secondFirst, secondLast;
    std::size_t length;
};

constexpr Form kForms[] = {
    {0xC2, 0xC2, 0xA0, 0xBF, 2}, {0xC3, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

bool fits(const Form& form, std::string_view text) {
    const std::uint8_t first = byteAt(text, 0);
    const std::uint8_t second = byteAt(text, 1);
    const auto goesOn = [&](std::size_t at) { return (byteAt(text, at) & 0xC0) == 0x80; };
    return first >= form.first && first <= form.last && second >= form.secondFirst &&
           second <= form.secondLast && (form.length < 3 || goesOn(2)) &&
           (form.length < 4 || goesOn(3));
}

/// Bytes of the letter at the front; 0 for what cannot be shown as it stands.
std::size_t letterLength(std::string_view text) {
    const std::uint8_t first = byteAt(text, 0);
    if (first < 0x80) {
        return first >= 0x20 && first != 0x7F ? 1 : 0;
    }
    const auto* form =
        std::ranges::find_if(kForms, [&](const Form& known) { return fits(known, text); });
    return form == std::end(kForms) ? 0 : form->length;
}

std::string escaped(std::uint8_t byte) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    return {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
}

}  // namespace

std::string printable(std::string_view text, std::size_t most) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = letterLength(text);
        const std::string letter =
            length > 0 ? std::string(text.substr(0, length)) : escaped(byteAt(text, 0));
        if (letter.size() > most - shown.size()) {
            return shown + "...";
        }
        shown += letter;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return shown;
}

bool isPrintable(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = letterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace ruvex::files
