// The effect's description for the host, and the check of its inputs before a render.

#include "effect/ruvex.h"
#include "sdk/com/guarded.h"
#include "sdk/effect/object_families.h"

namespace ruvex {
namespace {

struct FamilyKind {
    GUID family;
    EffectKind kind;
};

constexpr FamilyKind kFamilyKinds[] = {
    {DSFAMILY_Filter, EffectKind::Filter},
    {DSFAMILY_Filter2, EffectKind::Filter},
    {DSFAMILY_Filter3, EffectKind::Filter},
    {DSFAMILY_Kind2, EffectKind::FilterWithoutPages},
    {DSFAMILY_WithoutInput, EffectKind::WithoutInput},
    {DSFAMILY_Paint, EffectKind::Paint},
    {DSFAMILY_Transition, EffectKind::Transition},
    {DSFAMILY_Kind7, EffectKind::OptionalInput},
};

// In the order in which the host shows them.
constexpr GUID kPages[] = {kRuvexPageId, kGunsPageId,    kBreakup1PageId, kBreakup2PageId,
                           kShashPageId, kEffectsPageId, kCropPageId,     kHelpPageId};

bool needsInput(EffectKind kind) {
    switch (kind) {
        case EffectKind::Filter:
        case EffectKind::FilterWithoutPages:
        case EffectKind::Paint:
        case EffectKind::Transition:
        case EffectKind::Unused:
            return true;
        default:
            return false;
    }
}

constexpr bool bit(std::uint32_t flags, int index) {
    return (flags >> index & 1u) != 0;
}

}  // namespace

HRESULT Ruvex::GetInfo(DSPLUGININFO* info) {
    const HRESULT status = CDSImageMIEffect::GetInfo(info);
    if (FAILED(status)) return status;
    if (info->recordId != DSID_PlugInInfo) return E_INVALIDARG;
    info->category = DSID_EffectCategory;
    info->kind = DSID_ImageEffectKind;
    info->classId = kRuvexClassId;
    info->noIdentifier = 0;
    info->last = 0;
    return S_OK;
}

HRESULT Ruvex::GetImageEffectInfo(DSIMAGEEFFECTINFO* info) {
    const HRESULT status = CDSImageMIEffect::GetImageEffectInfo(info);
    if (FAILED(status)) return status;
    if (info->recordId != DSID_ImageEffectInfo) return E_INVALIDARG;
    for (const FamilyKind& entry : kFamilyKinds) {
        if (entry.family == info->family) effectKind = entry.kind;
    }
    if (const HRESULT linked = linkPages(); FAILED(linked)) return linked;
    const bool paint = effectKind == EffectKind::Paint;
    const bool transition = effectKind == EffectKind::Transition;
    const bool paintLike =
        !transition && effectKind != EffectKind::WithoutInput && (paint || bit(capabilityFlags, 2));
    info->reserved = 0;
    info->field2 = paint ? 96 : 0;
    info->field3 = paintLike ? 8 : 2;
    info->field4 = bit(capabilityFlags, 0);
    info->field5 = transition || bit(capabilityFlags, 5);
    info->field6 = paint;
    info->field7 = 0;
    info->field8 = paint;
    info->field9 = 0;
    info->flags =
        (bit(capabilityFlags, 1) || fieldHandling == FieldHandling::None ? 10 : 2) | 0x100;
    if (!transition && !bit(capabilityFlags, 4)) {
        info->flags |= 0x200;
    } else {
        info->flags |= 0x210;
        capabilityFlags |= 1u << 4;
    }
    return S_OK;
}

/// Adds the property pages to the host's list, once, for the kinds of effect that have pages.
HRESULT Ruvex::linkPages() {
    if (bit(infoFlags, 0)) return S_OK;
    if (effectKind == EffectKind::Filter || effectKind == EffectKind::Paint) {
        const HRESULT status = guarded([&] {
            for (const GUID& page : kPages) {
                RemovePropertyPage(page);
                AddPropertyPage(page);
            }
            return S_OK;
        });
        if (FAILED(status)) return status;
    }
    infoFlags |= 1u;
    return S_OK;
}

HRESULT Ruvex::Verify() {
    if (const HRESULT status = CDSImageMIEffect::Verify(); FAILED(status)) return status;
    if (const HRESULT status = extraVerify(); FAILED(status)) return status;
    if (!output) return E_POINTER;
    if (needsInput(effectKind) && !input) return E_POINTER;
    if (effectKind == EffectKind::Transition && !input2) return E_POINTER;
    if (effectKind == EffectKind::Paint && !pixelMask) return E_POINTER;
    return S_OK;
}

}  // namespace ruvex
