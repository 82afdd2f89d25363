#include "adapters/openfx/parameter_names.h"

#include "adapters/common/parameter_name.h"
#include "files/words.h"
#include "parameters/strings.h"

namespace ruvex::openfx {
namespace {

bool isLetterOrDigit(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

char upperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// The number of a page's title in the module's strings. The title of the main page is the name of
/// the effect, and the host's group has no page.
int titleString(ParameterPage page) {
    switch (page) {
        case ParameterPage::Guns:
            return 5;
        case ParameterPage::Breakup1:
            return 7;
        case ParameterPage::Breakup2:
            return 9;
        case ParameterPage::Shash:
            return 11;
        case ParameterPage::Effects:
            return 13;
        case ParameterPage::Help:
            return 15;
        default:
            return 4996;
    }
}

}  // namespace

std::string scriptName(std::string_view label) {
    std::string name;
    bool wordBegins = false;
    for (const char c : files::lowerCase(std::string(label))) {
        if (isLetterOrDigit(c)) name.push_back(wordBegins ? upperCase(c) : c);
        wordBegins = !name.empty() && !isLetterOrDigit(c);
    }
    return name;
}

std::string scriptName(const ParameterRow& row) {
    const bool channel = adapters::isColourChannel(row);
    return scriptName(channel ? adapters::colourLabel(row) : row.label);
}

std::string_view groupLabel(ParameterPage page) {
    if (page == ParameterPage::Main) return "Main";
    if (page == ParameterPage::Host) return "Host";
    return strings::text(titleString(page));
}

std::string groupName(ParameterPage page) {
    return scriptName(std::string(groupLabel(page)) + " Group");
}

std::string resetName(ParameterPage page) {
    return scriptName("Reset " + std::string(groupLabel(page)));
}

}  // namespace ruvex::openfx
