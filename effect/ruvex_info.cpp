// How the effect describes itself to the host, and what it asks of a render.

#include "effect/ruvex.h"
#include "sdk/com/guarded.h"
#include "sdk/effect/object_families.h"

namespace ruvex {
namespace {

struct FamilyKind {
    GUID family;
    std::int32_t kind;
};

constexpr FamilyKind kFamilyKinds[] = {
    {DSFAMILY_Filter, 1},     {DSFAMILY_Filter2, 1},      {DSFAMILY_Filter3, 1},
    {DSFAMILY_Kind2, 2},      {DSFAMILY_WithoutInput, 3}, {DSFAMILY_Paint, 4},
    {DSFAMILY_Transition, 5}, {DSFAMILY_Kind7, 7},
};

// In the order in which the host shows them.
constexpr GUID kPages[] = {kRuvexPageId, kGunsPageId,    kBreakup1PageId, kBreakup2PageId,
                           kShashPageId, kEffectsPageId, kCropPageId,     kHelpPageId};

bool needsInput(std::int32_t kind) {
    return kind == 1 || kind == 2 || (kind >= 4 && kind <= 6);
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
    const bool paint = effectKind == kKindPaint;
    const bool transition = effectKind == kKindTransition;
    const bool paintLike =
        !transition && effectKind != kKindWithoutInput && (paint || bit(capabilityFlags, 2));
    info->reserved = 0;
    info->field2 = paint ? 96 : 0;
    info->field3 = paintLike ? 8 : 2;
    info->field4 = bit(capabilityFlags, 0);
    info->field5 = transition || bit(capabilityFlags, 5);
    info->field6 = paint;
    info->field7 = 0;
    info->field8 = paint;
    info->field9 = 0;
    info->flags = (bit(capabilityFlags, 1) || fieldHandling == 0 ? 10 : 2) | 0x100;
    if (!transition && !bit(capabilityFlags, 4)) {
        info->flags |= 0x200;
    } else {
        info->flags |= 0x210;
        capabilityFlags |= 1u << 4;
    }
    return S_OK;
}

/// Tells the host, once, which pages there are, for the kinds that have any.
HRESULT Ruvex::linkPages() {
    if (bit(infoFlags, 0)) return S_OK;
    if (effectKind == kKindFilter || effectKind == kKindPaint) {
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
    if (effectKind == kKindTransition && !input2) return E_POINTER;
    if (effectKind == kKindPaint && !pixelMask) return E_POINTER;
    return S_OK;
}

}  // namespace ruvex
