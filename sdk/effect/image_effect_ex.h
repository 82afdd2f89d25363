// An image effect with property aliases and a time dependency.

#pragma once

#include "sdk/effect/image_effect.h"

struct IDSGraphDataAliases : IUnknown {
    /// Gives the property of an alias. An identifier that is no alias is given back.
    virtual HRESULT GetAliasedProperty(const GUID& alias, GUID* id) = 0;

protected:
    ~IDSGraphDataAliases() = default;
};

struct IDSTimeDependency : IUnknown {
    /// Gives the range of input times that the frame at `seconds` may request.
    virtual HRESULT GetTimeDependency(double seconds, DSTIMERANGE* range) = 0;

protected:
    ~IDSTimeDependency() = default;
};

inline constexpr GUID IID_IDSGraphDataAliases =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A17");
template <>
struct DSInterfaceTraits<IDSGraphDataAliases> : DSInterface<IID_IDSGraphDataAliases> {};
inline constexpr GUID IID_IDSTimeDependency =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A18");
template <>
struct DSInterfaceTraits<IDSTimeDependency> : DSInterface<IID_IDSTimeDependency> {};

class DSSDK_API CDSImageEffectEx
    : public ComObjectWith<CDSImageEffect, IDSGraphDataAliases, IDSTimeDependency> {
public:
    HRESULT GetAliasedProperty(const GUID& alias, GUID* id) override;
    /// Gives the range of all times: an effect may request its input at any time.
    HRESULT GetTimeDependency(double seconds, DSTIMERANGE* range) override;

protected:
    CDSImageEffectEx() = default;
    CDSImageEffectEx(const CDSImageEffectEx&) = default;
    ~CDSImageEffectEx() override = default;
};
