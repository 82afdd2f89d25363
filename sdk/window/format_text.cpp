// wsprintfW for systems without it.

#include <algorithm>
#include <cstdarg>
#include <string_view>

#include "sdk/window/window.h"

namespace {

/// The system's limit, the zero included.
constexpr std::size_t kMostCharacters = 1024;

/// A text of limited length in the caller's buffer; what does not fit is dropped.
class LimitedText {
public:
    explicit LimitedText(wchar_t* text) : text_(text) {}

    void add(wchar_t character) {
        if (count_ + 1 < kMostCharacters) text_[count_++] = character;
    }
    void add(std::wstring_view text) {
        for (const wchar_t character : text) add(character);
    }
    void fill(wchar_t character, std::size_t count) {
        for (std::size_t i = 0; i < std::min(count, kMostCharacters); ++i) add(character);
    }
    int end() {
        text_[count_] = L'\0';
        return static_cast<int>(count_);
    }

private:
    wchar_t* text_;
    std::size_t count_ = 0;
};

/// What stands between % and the type: %-08.3ld.
struct FormatField {
    bool left = false;
    bool zeros = false;
    bool prefix = false;  ///< 0x before hexadecimal digits
    std::size_t width = 0;
    std::size_t precision = std::wstring_view::npos;
};

std::size_t readCount(const wchar_t*& format) {
    std::size_t count = 0;
    for (; *format >= L'0' && *format <= L'9'; ++format) {
        count = std::min<std::size_t>(count * 10 + static_cast<std::size_t>(*format - L'0'),
                                      kMostCharacters);
    }
    return count;
}

FormatField readField(const wchar_t*& format) {
    FormatField field;
    for (;; ++format) {
        if (*format == L'-') {
            field.left = true;
        } else if (*format == L'0') {
            field.zeros = true;
        } else if (*format == L'#') {
            field.prefix = true;
        } else {
            break;
        }
    }
    field.width = readCount(format);
    if (*format == L'.') field.precision = readCount(++format);
    // A long number of the system has 32 bits.
    while (*format == L'l' || *format == L'h') ++format;
    return field;
}

/// Adds `sign` and `body` with so many zeros between them, padded to the width of the field.
void addPadded(LimitedText& text, const FormatField& field, std::wstring_view sign,
               std::wstring_view body, std::size_t zeros) {
    const std::size_t length = sign.size() + zeros + body.size();
    const std::size_t padding = field.width > length ? field.width - length : 0;
    if (!field.left) text.fill(L' ', padding);
    text.add(sign);
    text.fill(L'0', zeros);
    text.add(body);
    if (field.left) text.fill(L' ', padding);
}

void addNumber(LimitedText& text, const FormatField& field, std::wstring_view sign,
               std::uint32_t value, unsigned base, const wchar_t* digits) {
    wchar_t reversed[16];
    wchar_t* const last = std::end(reversed);
    wchar_t* first = last;
    do {
        *--first = digits[value % base];
        value /= base;
    } while (value != 0);
    const std::wstring_view body(first, static_cast<std::size_t>(last - first));
    const bool exact = field.precision != std::wstring_view::npos;
    const std::size_t wanted = exact ? field.precision
                               : field.zeros && !field.left
                                   ? field.width - std::min(field.width, sign.size())
                                   : 0;
    addPadded(text, field, sign, body, wanted > body.size() ? wanted - body.size() : 0);
}

void addSigned(LimitedText& text, const FormatField& field, int value) {
    // Unsigned arithmetic, since the smallest number has no positive counterpart.
    const auto bits = static_cast<std::uint32_t>(value);
    addNumber(text, field, value < 0 ? L"-" : L"", value < 0 ? 0u - bits : bits, 10, L"0123456789");
}

void addString(LimitedText& text, const FormatField& field, const wchar_t* string) {
    const std::wstring_view whole = string ? string : L"(null)";
    addPadded(text, field, {}, whole.substr(0, field.precision), 0);
}

/// Adds the next argument in the form of `type`. An unknown type stands for itself.
void addArgument(LimitedText& text, const FormatField& field, wchar_t type,
                 std::va_list& arguments) {
    constexpr const wchar_t* kSmallDigits = L"0123456789abcdef";
    constexpr const wchar_t* kCapitalDigits = L"0123456789ABCDEF";
    switch (type) {
        case L'd':
        case L'i':
            return addSigned(text, field, va_arg(arguments, int));
        case L'u':
            return addNumber(text, field, {}, va_arg(arguments, unsigned), 10, kSmallDigits);
        case L'x':
            return addNumber(text, field, field.prefix ? L"0x" : L"", va_arg(arguments, unsigned),
                             16, kSmallDigits);
        case L'X':
            return addNumber(text, field, field.prefix ? L"0X" : L"", va_arg(arguments, unsigned),
                             16, kCapitalDigits);
        case L's':
            return addString(text, field, va_arg(arguments, const wchar_t*));
        case L'c': {
            const auto character = static_cast<wchar_t>(va_arg(arguments, int));
            return addPadded(text, field, {}, {&character, 1}, 0);
        }
        default:
            return text.add(type);
    }
}

}  // namespace

int wsprintfW(wchar_t* text, const wchar_t* format, ...) {
    LimitedText result(text);
    std::va_list arguments;
    va_start(arguments, format);
    while (*format != L'\0') {
        const wchar_t character = *format++;
        if (character != L'%') {
            result.add(character);
            continue;
        }
        const FormatField field = readField(format);
        if (*format == L'\0') break;
        addArgument(result, field, *format++, arguments);
    }
    va_end(arguments);
    return result.end();
}
