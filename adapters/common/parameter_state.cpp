#include "adapters/common/parameter_state.h"

#include <exception>

#include "adapters/common/message_once.h"
#include "looks/look_library.h"
#include "looks/session_look.h"
#include "runtime/module_loader.h"

namespace ruvex::adapters {

std::vector<looks::ParameterChange> completeState(std::span<const looks::ParameterChange> look,
                                                  std::span<const looks::Setting> values) {
    std::vector<looks::ParameterChange> all;
    for (const ParameterRow& row : parameterTable()) {
        if (row.rendered) all.push_back(looks::Setting{row.id, row.defaultValue});
    }
    for (const looks::ParameterChange& change : look) {
        if (looks::rowOf(change).rendered) all.push_back(change);
    }
    all.insert(all.end(), values.begin(), values.end());
    return looks::lastChanges(all);
}

void changeState(runtime::EffectSession& session, std::span<const looks::ParameterChange> from,
                 std::span<const looks::ParameterChange> to) {
    const bool comparable = from.size() == to.size();
    for (std::size_t i = 0; i < to.size(); ++i) {
        if (!comparable || from[i] != to[i]) looks::applyChanges(session, to.subspan(i, 1));
    }
}

looks::Look readLookOrReport(const std::string& name) {
    if (name.empty()) return {};
    try {
        const auto module = runtime::Module::loadDefault();
        return looks::readLook(name, looks::lookFolders(module->file())).look;
    } catch (const std::exception& error) {
        printOnce(error.what());
    }
    return {};
}

}  // namespace ruvex::adapters
