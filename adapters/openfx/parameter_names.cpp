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

// The numbers of the pages' titles in the module's strings.
constexpr int kGunsTitle = 5;
constexpr int kBreakup1Title = 7;
constexpr int kBreakup2Title = 9;
constexpr int kShashTitle = 11;
constexpr int kEffectsTitle = 13;
constexpr int kHelpTitle = 15;
constexpr int kCroppingTitle = 4996;

/// The number of a page's title. The title of the main page is the name of the effect, and the
/// host's group has no page.
int titleString(ParameterPage page) {
    switch (page) {
        case ParameterPage::Guns:
            return kGunsTitle;
        case ParameterPage::Breakup1:
            return kBreakup1Title;
        case ParameterPage::Breakup2:
            return kBreakup2Title;
        case ParameterPage::Shash:
            return kShashTitle;
        case ParameterPage::Effects:
            return kEffectsTitle;
        case ParameterPage::Help:
            return kHelpTitle;
        default:
            return kCroppingTitle;
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
