#include "looks/look_library.h"

#include <algorithm>
#include <utility>

#include "files/file_error.h"
#include "files/words.h"
#include "looks/look_file.h"
#include "looks/presets.h"
#include "parameters/label_match.h"
#include "parameters/presets.h"

namespace ruvex::looks {
namespace {

namespace fs = std::filesystem;

/// Names with the same key are the same name.
std::string nameKey(std::string_view name) {
    std::string key = bareLabel(name);
    std::erase(key, '-');
    return key;
}

bool sameName(std::string_view a, std::string_view b) {
    return nameKey(a) == nameKey(b);
}

/// The look files of a folder, by name. A folder that does not exist has none. Adds a problem for
/// one that cannot be read.
std::vector<fs::path> filesIn(const fs::path& folder, std::vector<LookProblem>& problems) {
    std::vector<fs::path> found;
    std::error_code error;
    if (folder.empty() || !fs::exists(folder, error)) return found;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path& file = entry->path();
        std::error_code ignored;
        if (file.extension() == ".json" && !file.filename().string().starts_with('.') &&
            entry->is_regular_file(ignored)) {
            found.push_back(file);
        }
    }
    if (error) {
        problems.push_back(
            {folder, "cannot read the folder " + folder.string() + ": " + error.message() + "."});
    }
    std::ranges::sort(found);
    return found;
}

class LibraryReader {
public:
    explicit LibraryReader(LookLibrary& library) : library_(library) {}

    void addPresets() {
        for (int preset = 0; preset < kPresetCount; ++preset) {
            library_.looks.push_back({.group = LookGroup::Preset, .look = presetLook(preset)});
        }
    }

    /// The looks of a folder, in the order of their names.
    void addFolder(LookGroup group, const fs::path& folder) {
        const auto begin = static_cast<std::ptrdiff_t>(library_.looks.size());
        for (const fs::path& file : filesIn(folder, library_.problems)) add(group, file);
        std::sort(library_.looks.begin() + begin, library_.looks.end(),
                  [](const auto& a, const auto& b) { return a.look.name < b.look.name; });
    }

private:
    void add(LookGroup group, const fs::path& file) {
        try {
            LibraryLook read{.group = group, .file = file};
            read.look = readLookFile(file, read.warnings);
            if (read.look.name.empty()) read.look.name = files::printable(file.stem().string());
            addUnlessTaken(std::move(read));
        } catch (const LookFileError& error) {
            library_.problems.push_back({file, error.what()});
        } catch (const files::FileError& error) {
            library_.problems.push_back({file, error.what()});
        }
    }

    void addUnlessTaken(LibraryLook look) {
        const auto taken = std::ranges::find_if(library_.looks, [&](const LibraryLook& other) {
            return sameName(other.look.name, look.look.name);
        });
        if (taken == library_.looks.end()) {
            library_.looks.push_back(std::move(look));
            return;
        }
        if (taken->group == LookGroup::User && look.group == LookGroup::Shipped) return;
        const std::string other =
            taken->group == LookGroup::Preset ? "a preset" : taken->file.filename().string();
        library_.problems.push_back(
            {look.file, look.file.string() + ": " + other + " has the name " +
                            files::inQuotes(look.look.name) +
                            ", too. Use this look by its path, or give it another name."});
    }

    LookLibrary& library_;
};

/// Whether a name that is no look's is meant as a file's.
bool namesFile(const fs::path& name) {
    std::error_code ignored;
    return name.extension() == ".json" || fs::exists(name, ignored);
}

/// Throws LookFileError if a file of the library with this name cannot be used.
void checkUsable(const LookLibrary& library, const std::string& name) {
    for (const LookProblem& problem : library.problems) {
        if (sameName(problem.file.stem().string(), name)) throw LookFileError(problem.sentence);
    }
}

[[noreturn]] void refuseName(const LookLibrary& library, const std::string& name) {
    const std::vector<std::string_view> names = library.names();
    const std::string_view similar = similarLabel(name, names);
    throw UnknownLook("there is no look " + files::inQuotes(files::printable(name, 100)) +
                      ", and no file of that name." +
                      (similar.empty() ? "" : " Did you mean " + files::inQuotes(similar) + "?") +
                      " 'ruvex presets' lists them all.");
}

}  // namespace

const LibraryLook* LookLibrary::find(std::string_view name) const {
    const std::string key = nameKey(name);
    auto found = std::ranges::find_if(
        looks, [&](const LibraryLook& look) { return nameKey(look.look.name) == key; });
    if (found == looks.end()) {
        found = std::ranges::find_if(looks, [&](const LibraryLook& look) {
            return !look.file.empty() && nameKey(look.file.stem().string()) == key;
        });
    }
    return key.empty() || found == looks.end() ? nullptr : &*found;
}

std::vector<std::string_view> LookLibrary::names() const {
    std::vector<std::string_view> names;
    for (const LibraryLook& entry : looks) names.emplace_back(entry.look.name);
    return names;
}

LookLibrary readLookLibrary(const LookFolders& folders) {
    LookLibrary library;
    LibraryReader reader(library);
    reader.addPresets();
    reader.addFolder(LookGroup::User, folders.user);
    reader.addFolder(LookGroup::Shipped, folders.shipped);
    std::ranges::stable_sort(library.looks, {}, &LibraryLook::group);
    return library;
}

LibraryLook readLook(const std::string& name, const LookFolders& folders) {
    if (!fs::path(name).has_parent_path()) {
        const LookLibrary library = readLookLibrary(folders);
        const LibraryLook* found = library.find(name);
        if (!found || found->group == LookGroup::Shipped) checkUsable(library, name);
        if (found) return *found;
        if (!namesFile(name)) refuseName(library, name);
    }
    LibraryLook read{.group = LookGroup::User, .file = name};
    read.look = readLookFile(name, read.warnings);
    return read;
}

fs::path fileOfLook(const std::string& name, const LookFolders& folders) {
    if (!fs::path(name).has_parent_path()) {
        const LookLibrary library = readLookLibrary(folders);
        if (const LibraryLook* found = library.find(name)) return found->file;
    }
    return name;
}

}  // namespace ruvex::looks
