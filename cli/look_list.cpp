#include "cli/look_list.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <variant>

#include "files/words.h"

namespace ruvex::cli {
namespace {

using looks::LibraryLook;
using looks::LookGroup;
using LookJson = nlohmann::ordered_json;

std::string headingOf(const LibraryLook& look) {
    switch (look.group) {
        case LookGroup::Preset:
            return "Presets of the effect";
        case LookGroup::Shipped:
            return "Looks";
        default:
            return "Your own looks, in " + files::printable(look.file.parent_path().string());
    }
}

const char* groupName(LookGroup group) {
    return group == LookGroup::Preset ? "preset" : group == LookGroup::Shipped ? "look" : "own";
}

bool isAnimated(const looks::Look& look) {
    return std::ranges::any_of(look.changes, [](const looks::ParameterChange& change) {
        return std::holds_alternative<looks::Animation>(change);
    });
}

LookJson textOrNull(const std::string& text) {
    return text.empty() ? LookJson(nullptr) : LookJson(text);
}

LookJson jsonOfLook(const LibraryLook& entry) {
    const looks::Look& look = entry.look;
    LookJson size = nullptr;
    if (look.projectSize) {
        size = {{"width", look.projectSize->width}, {"height", look.projectSize->height}};
    }
    return {{"name", look.name},
            {"group", groupName(entry.group)},
            {"description", textOrNull(look.description)},
            {"author", textOrNull(look.author)},
            {"file", textOrNull(files::printable(entry.file.string()))},
            {"projectSize", size},
            {"animated", isAnimated(look)}};
}

}  // namespace

std::string lookListText(std::span<const LibraryLook> list) {
    std::string text;
    const LibraryLook* before = nullptr;
    for (const LibraryLook& entry : list) {
        if (before == nullptr || before->group != entry.group) {
            text.append(text.empty() ? "" : "\n").append(headingOf(entry)).append("\n");
        }
        before = &entry;
        text.append("  ").append(entry.look.name);
        if (!entry.look.description.empty()) text.append(": ").append(entry.look.description);
        text += '\n';
    }
    return text;
}

std::string lookNamesText(std::span<const LibraryLook> list) {
    std::string text;
    for (const LibraryLook& entry : list) text.append(entry.look.name).append("\n");
    return text;
}

std::string lookListJson(std::span<const LibraryLook> list) {
    LookJson all = LookJson::array();
    for (const LibraryLook& entry : list) all.push_back(jsonOfLook(entry));
    return all.dump(2) + "\n";
}

}  // namespace ruvex::cli
