#include "pages/page_entry.h"

#include "host/base/variant_type.h"

namespace ruvex {
namespace {

/// The meaning of this flag belongs to the host.
constexpr UINT kOwnPageFlag = 16;

UINT flagsOf(const PageEntry& entry, EntryFlags flags) {
    if (entry.record && isReal(row(entry.id).kind)) return DSENTRY_ANIMATABLE;
    const UINT own = flags == EntryFlags::Own ? kOwnPageFlag : 0;
    return entry.record ? own : own | DSENTRY_COMMAND;
}

}  // namespace

CDSPPGControlMapEntry controlMapEntry(const PageEntry& entry, EntryFlags flags) {
    if (!entry.record) {
        return {.property = GUID_NoProperty,
                .propertyType = 0,
                .boundVariable = nullptr,
                .boundType = 0,
                .controlId = entry.controlId,
                .notify = entry.notify,
                .flags = flagsOf(entry, flags),
                .toolTip = entry.commandTip};
    }
    const ParameterRow& parameter = row(entry.id);
    const VARTYPE type = variantTypeOf(parameter.kind);
    return {.property = parameter.identifier,
            .propertyType = type,
            .boundVariable = entry.record->bound,
            .boundType = type,
            .controlId = entry.controlId != 0 ? entry.controlId : DSCONTROL_NONE,
            .notify = entry.notify,
            .flags = flagsOf(entry, flags),
            .toolTip = static_cast<UINT>(parameter.hintString)};
}

}  // namespace ruvex
