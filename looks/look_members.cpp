#include "looks/look_members.h"

#include "files/words.h"

namespace ruvex::looks {
namespace {

constexpr std::size_t kLongestName = 60;   // Bytes; fits a label and a file name.
constexpr std::size_t kLongestText = 300;  // Bytes.
constexpr const char* kProjectSize = "projectSize";

struct TextMember {
    const char* name;
    std::string Look::*value;
    std::size_t longest;
};

constexpr TextMember kTexts[] = {{"name", &Look::name, kLongestName},
                                 {"description", &Look::description, kLongestText},
                                 {"author", &Look::author, kLongestText}};

std::string readLine(const TextMember& member, const Json& json) {
    if (!json.is_string()) {
        throw JsonError(std::string(member.name) + " takes a string, not " + json.dump() + ".");
    }
    std::string text = json.get<std::string>();
    if (text.empty() || text.size() > member.longest || !files::isPrintable(text)) {
        throw JsonError(std::string(member.name) + " takes one line of 1 to " +
                        std::to_string(member.longest) + " bytes.");
    }
    return text;
}

int readSide(const Json& size, const char* name) {
    const bool whole = size.is_object() && size.size() == 2 && size.contains(name) &&
                       size[name].is_number_integer();
    if (!whole) {
        throw JsonError(std::string(kProjectSize) +
                        " takes {\"width\": 960, \"height\": 540}, not " + size.dump() + ".");
    }
    const auto side = size[name].is_number_unsigned()
                          ? static_cast<double>(size[name].get<std::uint64_t>())
                          : static_cast<double>(size[name].get<std::int64_t>());
    if (side < 1 || side > kLongestProjectSide) {
        throw JsonError(std::string(kProjectSize) + ": the " + name + " takes 1 to " +
                        std::to_string(kLongestProjectSide) + ", not " + size[name].dump() + ".");
    }
    return static_cast<int>(side);
}

}  // namespace

void takeLookMembers(Json& document, Look& look) {
    if (!document.is_object()) return;
    for (const TextMember& member : kTexts) {
        if (!document.contains(member.name)) continue;
        look.*member.value = readLine(member, document[member.name]);
        document.erase(member.name);
    }
    if (document.contains(kProjectSize)) {
        const Json& size = document[kProjectSize];
        look.projectSize = ProjectSize{readSide(size, "width"), readSide(size, "height")};
        document.erase(kProjectSize);
    }
}

void forEachLookMember(const Look& look,
                       const std::function<void(const char* name, const std::string& json)>& add) {
    for (const TextMember& member : kTexts) {
        const std::string& text = look.*member.value;
        if (!text.empty()) add(member.name, Json(text).dump());
    }
    if (look.projectSize) {
        add(kProjectSize, "{\"width\": " + std::to_string(look.projectSize->width) +
                              ", \"height\": " + std::to_string(look.projectSize->height) + "}");
    }
}

}  // namespace ruvex::looks
