#include "tools/page_host/arguments.h"

#include <cwchar>

#include "sdk/com/utf8.h"

namespace ruvex::page_host {
namespace {

constexpr int kLongestSide = 8192;

Size parseSize(const std::wstring& text) {
    Size size{};
    wchar_t rest = 0;
    const int fields = std::swscanf(text.c_str(), L"%dx%d%lc", &size.width, &size.height, &rest);
    const bool usable = fields == 2 && size.width > 0 && size.height > 0 &&
                        size.width <= kLongestSide && size.height <= kLongestSide;
    if (!usable) {
        throw UsageError("--size takes WIDTHxHEIGHT, each 1 to " + std::to_string(kLongestSide) +
                         ", not " + toUtf8(text));
    }
    return size;
}

std::filesystem::path parsePath(const std::wstring& option, const std::wstring& value) {
    if (value.empty()) throw UsageError(toUtf8(option) + " needs a file");
    return std::filesystem::absolute(value);
}

}  // namespace

const char* const kUsage =
    "page_host [--picture FILE] [--size WIDTHxHEIGHT] [--report FILE]\n\n"
    "Shows the property pages of the registered V_Ruvex module, and a picture through the "
    "effect.\n\n"
    "--picture FILE\tthe picture, as PNG, JPEG, BMP or TIFF; default: a test card\n"
    "--size WIDTHxHEIGHT\tthe size of the test card in pixels; default: 720x576\n"
    "--report FILE\twhere F12 writes all controls and properties; default: page_host.json";

Arguments parseArguments(const std::vector<std::wstring>& words) {
    Arguments arguments;
    arguments.report = std::filesystem::absolute(L"page_host.json");
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::wstring& option = words[i];
        const bool known = option == L"--picture" || option == L"--size" || option == L"--report";
        if (!known) throw UsageError("unknown argument " + toUtf8(option));
        if (i + 1 == words.size()) throw UsageError(toUtf8(option) + " needs a value");
        const std::wstring& value = words[++i];
        if (option == L"--picture") {
            arguments.picture = parsePath(option, value);
        } else if (option == L"--report") {
            arguments.report = parsePath(option, value);
        } else {
            arguments.testCard = parseSize(value);
        }
    }
    return arguments;
}

}  // namespace ruvex::page_host
