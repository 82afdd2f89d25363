#include "adapters/openfx/look_list.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "adapters/common/message_once.h"
#include "looks/look_library.h"
#include "looks/presets.h"
#include "parameters/presets.h"

namespace ruvex::openfx {
namespace {

std::vector<looks::Look> readLooks() {
    std::vector<looks::Look> all;
    try {
        for (looks::LibraryLook& read : looks::readLookLibrary().looks) {
            all.push_back(std::move(read.look));
        }
    } catch (const std::exception& error) {
        adapters::printOnce(error.what());
        all.clear();
        for (int preset = 0; preset < kPresetCount; ++preset) {
            all.push_back(looks::presetLook(preset));
        }
    }
    return all;
}

}  // namespace

std::span<const looks::Look> lookList() {
    static const std::vector<looks::Look> all = readLooks();
    return all;
}

const looks::Look* findLook(std::string_view name) {
    const auto all = lookList();
    const auto found = std::ranges::find(all, name, &looks::Look::name);
    return found == all.end() ? nullptr : &*found;
}

}  // namespace ruvex::openfx
