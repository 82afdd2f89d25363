// The host's colour chip: a button that shows a colour and lets the user choose another one. This
// is its model; it knows no window.

#pragma once

#include <array>
#include <functional>

#include "sdk/com/com_object.h"

/// The interface behind the window property "DSCTLIFACE" of a colour chip. Components are 0..255;
/// others are held to that range.
struct IDSColourChip : IUnknown {
    virtual HRESULT SetColour(LONG red, LONG green, LONG blue, LONG alpha) = 0;
    /// E_POINTER for a null argument.
    virtual HRESULT GetColour(LONG* red, LONG* green, LONG* blue, LONG* alpha) = 0;

protected:
    ~IDSColourChip() = default;
};

inline constexpr GUID IID_IDSColourChip =
    ruvex::guidFromText("68DA9860-91A6-11D0-8606-00A024079957");
template <>
struct DSInterfaceTraits<IDSColourChip> : DSInterface<IID_IDSColourChip> {};

class DSSDK_API CDSColourChip final : public ComObject<IDSColourChip> {
public:
    /// QueryInterface with this identifier gives the model itself, as no other control does.
    static constexpr GUID kModelId = ruvex::guidFromText("7A6B1C53-0D3E-4F8A-9C41-2E5D70B8A963");

    HRESULT QueryInterface(const GUID& id, void** out) override;

    /// Red, green, blue, alpha.
    using Colour = std::array<LONG, 4>;

    HRESULT SetColour(LONG red, LONG green, LONG blue, LONG alpha) override;
    HRESULT GetColour(LONG* red, LONG* green, LONG* blue, LONG* alpha) override;

    const Colour& colour() const { return colour_; }
    /// The user chooses a colour; calls the listener, also for the same colour.
    void pick(const Colour& colour);
    void listen(std::function<void()> listener) { listener_ = std::move(listener); }
    /// Called after each change of the colour, by anyone. Both functions may release the chip and
    /// may replace themselves.
    void observe(std::function<void()> observer) { observer_ = std::move(observer); }

private:
    void replace(const Colour& colour);

    Colour colour_{0, 0, 0, 255};
    std::function<void()> listener_;
    std::function<void()> observer_;
};
