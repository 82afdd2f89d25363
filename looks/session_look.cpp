#include "looks/session_look.h"

namespace ruvex::looks {
namespace {

void apply(runtime::EffectSession& session, const Setting& setting) {
    session.setValue(row(setting.id).identifier, setting.value);
}

void apply(runtime::EffectSession& session, const Animation& animation) {
    std::vector<DSKey> keys;
    for (const Key& key : animation.keys) {
        keys.push_back({key.seconds, key.value, key.mode});
    }
    session.setKeys(row(animation.id).identifier, keys);
}

ParameterChange stateOf(const runtime::EffectSession& session, const ParameterRow& row) {
    const std::vector<DSKey> keys = session.keys(row.identifier);
    if (keys.empty()) return Setting{row.id, session.value(row.identifier)};
    Animation animation{row.id, {}};
    for (const DSKey& key : keys) {
        animation.keys.push_back({key.time, key.value, key.mode});
    }
    return animation;
}

}  // namespace

void applyChanges(runtime::EffectSession& session, std::span<const ParameterChange> changes) {
    for (const ParameterChange& change : changes) {
        std::visit([&](const auto& either) { apply(session, either); }, change);
    }
}

std::vector<ParameterChange> changesOf(const runtime::EffectSession& session) {
    std::vector<ParameterChange> all;
    for (const ParameterRow& row : parameterTable()) {
        all.push_back(stateOf(session, row));
    }
    return all;
}

}  // namespace ruvex::looks
