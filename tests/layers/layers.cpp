#include "tests/layers/layers.h"

#include <algorithm>
#include <cctype>

namespace ruvex {
namespace {

/// The name between the marks of an include line, with its opening mark; empty for other lines.
std::string_view includedName(std::string_view line) {
    const auto skipBlanks = [&] {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    };
    skipBlanks();
    if (!line.starts_with('#')) return {};
    line.remove_prefix(1);
    skipBlanks();
    if (!line.starts_with("include")) return {};
    line.remove_prefix(7);
    skipBlanks();
    if (line.empty() || (line[0] != '"' && line[0] != '<')) return {};
    return line.substr(0, line.find(line[0] == '"' ? '"' : '>', 1));
}

/// True for the folder itself and for whatever lies below it.
bool liesIn(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// The standard library's headers, and the compiler's own for vector instructions.
bool isStandard(std::string_view header) {
    return header == "immintrin.h" || header.find_first_of("./") == std::string_view::npos;
}

std::string quotedComplaint(const Layer& layer, std::string_view name) {
    const auto holdsName = [&](std::string_view place) { return liesIn(name, place); };
    if (const Layer* own = layerOf(name); own == &layer) return {};
    if (std::ranges::any_of(layer.mayInclude, holdsName)) return {};
    return std::string(layer.folder) + " may not include " + std::string(name);
}

std::string angledComplaint(const Layer& layer, std::string_view name) {
    if (layer.standardOnly && !isStandard(name)) {
        return std::string(layer.folder) + " includes the standard library alone, not <" +
               std::string(name) + ">";
    }
    for (const OutsideLibrary& library : outsideLibraries()) {
        const bool uses = std::ranges::count(library.users, layer.folder) > 0;
        if (name.starts_with(library.prefix) && !uses) {
            return std::string(layer.folder) + " may not use the library of <" + std::string(name) +
                   ">";
        }
    }
    return {};
}

bool isWordCharacter(char character) {
    return character == '_' || std::isalnum(static_cast<unsigned char>(character));
}

/// Whether a word is `glName` or `gluName`.
bool isOpenGlFunction(std::string_view word) {
    if (!word.starts_with("gl")) return false;
    word.remove_prefix(word.starts_with("glu") ? 3 : 2);
    return !word.empty() && std::isupper(static_cast<unsigned char>(word[0]));
}

bool isOpenGlUser(std::string_view path) {
    const std::string_view file = path.substr(0, path.rfind('.'));
    return std::ranges::any_of(openGlUsers(), [&](std::string_view place) {
        return place.ends_with('/') || place.ends_with('_') ? path.starts_with(place)
                                                            : file == place;
    });
}

}  // namespace

const std::vector<std::string_view>& openGlUsers() {
    static const std::vector<std::string_view> all = {
        "adapters/openfx/overlay/",
        "desk/",
        "overlay/draw",
        "overlay/font_",
        "overlay/interact_render",
        "runtime/headless_",
        "sdk/open_gl/",
        "sdk/viewer/viewer_font",
        "sdk/viewer/viewer_surface",
    };
    return all;
}

std::string_view misplacedOpenGl(std::string_view path, std::string_view line) {
    if (isOpenGlUser(path)) return {};
    line = line.substr(0, line.find("//"));
    while (!line.empty()) {
        const auto begin = std::ranges::find_if(line, isWordCharacter);
        const auto end = std::find_if_not(begin, line.end(), isWordCharacter);
        const std::string_view word(begin, end);
        if (isOpenGlFunction(word)) return word;
        line = std::string_view(end, line.end());
    }
    return {};
}

const std::vector<Layer>& layers() {
    static const std::vector<Layer> all = {
        {"imaging", {}, true},
        {"parameters", {"sdk/com/guid.h"}, true},
        {"stages", {"imaging"}, true},
        {"sdk", {}},
        {"host/base", {"stages", "imaging", "sdk", "parameters"}},
        {"overlay", {"host/base", "sdk"}},
        {"effect", {"overlay", "host/base", "stages", "imaging", "sdk", "parameters"}},
        {"pages", {"effect", "overlay", "host/base", "stages", "imaging", "sdk", "parameters"}},
        {"host/module",
         {"pages", "effect", "overlay", "host/base", "stages", "imaging", "sdk", "parameters"}},
        {"runtime", {"sdk"}},
        {"files", {}},
        {"media", {"files", "sdk/images/sample_convert.h", "imaging/kernels/dispatch.h"}},
        {"looks", {"runtime", "parameters", "files", "sdk"}},
        {"jobs", {"looks", "media", "runtime", "parameters", "files", "sdk"}},
        {"farm", {"jobs", "looks", "media", "runtime", "parameters", "files", "sdk"}},
        {"cli", {"farm", "jobs", "looks", "media", "runtime", "parameters", "files", "sdk"}},
        {"desk", {"jobs", "looks", "media", "runtime", "parameters", "files", "sdk"}},
        {"adapters", {"looks", "runtime", "parameters", "files", "sdk"}},
    };
    return all;
}

const std::vector<OutsideLibrary>& outsideLibraries() {
    static const std::vector<OutsideLibrary> all = {
        {"libav", {"media"}},
        {"libsw", {"media"}},
        {"GL/", {"sdk", "desk"}},
        {"EGL/", {"runtime"}},
        {"Q", {"desk"}},
        {"CLI/", {"cli"}},
        {"nlohmann/", {"looks", "jobs", "farm", "cli", "desk", "adapters"}},
    };
    return all;
}

const std::vector<std::string_view>& freeFolders() {
    static const std::vector<std::string_view> all = {"tests",   "bench", "docs",
                                                      "scripts", "tools", "cmake"};
    return all;
}

const Layer* layerOf(std::string_view path) {
    const auto holdsPath = [&](const Layer& layer) { return liesIn(path, layer.folder); };
    const auto found = std::ranges::find_if(layers(), holdsPath);
    return found == layers().end() ? nullptr : &*found;
}

std::string complaint(std::string_view path, std::string_view line) {
    const std::string_view name = includedName(line);
    const Layer* layer = layerOf(path);
    if (name.empty()) return {};
    if (layer == nullptr) return "the file lies in no layer";
    return name[0] == '"' ? quotedComplaint(*layer, name.substr(1))
                          : angledComplaint(*layer, name.substr(1));
}

}  // namespace ruvex
