#include "sdk/controls/control_title.h"

#include "sdk/com/utf8.h"
#include "sdk/controls/number_control.h"

namespace {

std::optional<DSControlTitle::Class> controlClass(std::string_view name) {
    if (name == "dsnewnumberctrl") return DSControlTitle::Class::Number;
    if (name == "dsnewcolorchipctrl") return DSControlTitle::Class::ColourChip;
    return std::nullopt;
}

std::optional<int> numberOfDecimals(std::string_view text) {
    const auto number = CDSNumberControl::valueOf(text);
    if (!number || *number < 0.0 || *number > CDSNumberControl::kMostDecimals) return std::nullopt;
    const int whole = static_cast<int>(*number);
    return whole == *number ? std::optional(whole) : std::nullopt;
}

/// Splits off the text before the first `separator`; `rest` becomes what follows it.
std::string_view takeUntil(std::string_view& rest, char separator) {
    const auto end = rest.find(separator);
    const std::string_view taken = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return taken;
}

}  // namespace

std::optional<DSControlTitle> DSControlTitle::parse(std::wstring_view title) {
    const std::string text = ruvex::toUtf8(title);
    std::string_view rest = text;
    DSControlTitle result{.label = std::string(takeUntil(rest, ';'))};
    std::optional<Class> kind;
    while (!rest.empty()) {
        std::string_view value = takeUntil(rest, ';');
        const std::string_view name = takeUntil(value, '=');
        if (name == "class") kind = controlClass(value);
        if (name == "min") result.low = CDSNumberControl::valueOf(value);
        if (name == "max") result.high = CDSNumberControl::valueOf(value);
        if (name == "decimals") result.decimals = numberOfDecimals(value);
        if (name == "auto") result.automatic = value == "1";
    }
    if (!kind) return std::nullopt;
    result.kind = *kind;
    return result;
}
