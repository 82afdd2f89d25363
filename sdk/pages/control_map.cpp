#include "sdk/pages/control_map.h"

#include <algorithm>

void CDSPPGControlMap::Initialize(CDSPPGControlMap& map) {
    if (map.count_ > 0) return;
    while (!map.first_[map.count_].isTerminator()) ++map.count_;
}

const CDSPPGControlMapEntry* CDSPPGControlMap::find(UINT controlId) const {
    if (controlId == DSCONTROL_NONE) return nullptr;
    const auto own = entries();
    const auto found = std::ranges::find(own, controlId, &CDSPPGControlMapEntry::controlId);
    if (found != own.end()) return &*found;
    return base_ ? base_->find(controlId) : nullptr;
}
