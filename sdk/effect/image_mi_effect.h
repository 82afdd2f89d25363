// An image effect with more than one input: the class that concrete effects derive from.

#pragma once

#include "sdk/effect/image_effect_ex.h"

struct IDSImageMIEffect : IUnknown {
    virtual HRESULT GetNumInputs(ULONG* count) = 0;
    /// The inputs that are set, each with a reference: writes at most `capacity` of them and gives
    /// their number in `fetched`. S_FALSE when there were more.
    virtual HRESULT EnumInputs(ULONG capacity, IDSImage** inputs, ULONG* fetched) = 0;

protected:
    ~IDSImageMIEffect() = default;
};

inline constexpr GUID IID_IDSImageMIEffect =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A19");
template <>
struct DSInterfaceTraits<IDSImageMIEffect> : DSInterface<IID_IDSImageMIEffect> {};

class DSSDK_API CDSImageMIEffect : public ComObjectWith<CDSImageEffectEx, IDSImageMIEffect> {
public:
    /// How many of the two inputs are set.
    HRESULT GetNumInputs(ULONG* count) override;
    HRESULT EnumInputs(ULONG capacity, IDSImage** inputs, ULONG* fetched) override;

protected:
    CDSImageMIEffect() = default;
    /// Copies all that the bases copy: what the host has handed in, the name, the pages and the
    /// aliases; not the references, the observers and the animations.
    CDSImageMIEffect(const CDSImageMIEffect&) = default;
    ~CDSImageMIEffect() override = default;
};
