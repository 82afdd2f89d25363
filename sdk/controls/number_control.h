// The host's number control: an edit field for a number with a range. This is its model; it knows
// no window.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "sdk/com/com_object.h"
#include "sdk/com/variant.h"

/// The interface behind the window property "DSCTLIFACE" of a number control.
struct IDSNumberControl : IUnknown {
    /// Sets the range of what the user can enter. The present value stays, even outside. E_POINTER
    /// for null, E_INVALIDARG for a type other than VT_R8, for a number that is not finite and for
    /// an empty range.
    virtual HRESULT SetRange(const VARIANT* low, const VARIANT* high) = 0;

protected:
    ~IDSNumberControl() = default;
};

inline constexpr GUID IID_IDSNumberControl =
    ruvex::guidFromText("8AE0F6B1-81D4-11CF-9218-00A024079957");
template <>
struct DSInterfaceTraits<IDSNumberControl> : DSInterface<IID_IDSNumberControl> {};

/// How the user has changed a number. A drag begins, changes any number of times and ends.
enum class DSNumberEdit { Entered, Stepped, DragBegan, Dragged, DragEnded, DragCancelled };

/// The keys that are held while the user steps or drags.
enum class DSStepKeys { None, Shift, Control };

/// The size of one step: 1, with Shift 10, with Control 0.1 (1 for a control without decimals).
class DSSDK_API CDSNumberControl final : public ComObject<IDSNumberControl> {
public:
    /// QueryInterface with this identifier gives the model itself, as no other control does.
    static constexpr GUID kModelId = ruvex::guidFromText("7A6B1C52-0D3E-4F8A-9C41-2E5D70B8A963");

    HRESULT QueryInterface(const GUID& id, void** out) override;

    /// Called after each edit of the user; `value()` is the new value. Never called for changes by
    /// the program, nor for an edit that leaves the value as it was (the beginning and the end of a
    /// drag excepted). It may release the control and may replace itself.
    using Listener = std::function<void(DSNumberEdit edit)>;

    static constexpr int kMostDecimals = 15;

    struct Options {
        std::string label;
        /// The ends of the range. An end that is not finite, and both ends of an empty range, are
        /// ignored.
        std::optional<double> low{};
        std::optional<double> high{};
        /// The greatest number of decimals shown, 0..kMostDecimals (others are held to that range);
        /// trailing zeros are cut. 0 is for whole numbers: edits of the user are rounded.
        int decimals = 3;
    };

    explicit CDSNumberControl(Options options);

    HRESULT SetRange(const VARIANT* low, const VARIANT* high) override;

    void listen(Listener listener) { listener_ = std::move(listener); }
    /// Called after each change of what the control shows, by anyone.
    void observe(std::function<void()> observer) { observer_ = std::move(observer); }

    const std::string& label() const { return options_.label; }
    std::optional<double> low() const { return options_.low; }
    std::optional<double> high() const { return options_.high; }
    int decimals() const { return options_.decimals; }
    double value() const { return value_; }
    /// Whether the field shows a text that has not been entered yet.
    bool typing() const { return typed_.has_value(); }
    /// What the field shows: the text being typed, or the value.
    std::string text() const;
    /// Why the last entered number was changed: "at least 0", "at most 100", "whole numbers only";
    /// empty otherwise.
    const std::string& remark() const { return remark_; }

    /// By the program: shows a value as it is, also outside the range; drops typed text, and the
    /// remark if the value is another one. A drag goes on, from the value at which it began.
    void show(double value);

    /// The user types; nothing is entered until `enter`.
    void type(std::string_view text);
    /// Enter or loss of focus: takes the typed text, held to the range. Text that is not a number,
    /// and the number that was shown before, changes nothing.
    void enter();
    /// Escape: shows the value again; a drag under way returns to its first value.
    void revert();
    /// An arrow key: `steps` is positive for Up. Typed text is entered first. Ignored in a drag.
    void step(int steps, DSStepKeys keys = DSStepKeys::None);
    /// The mouse wheel: does nothing without the focus.
    void wheel(int notches, bool focused, DSStepKeys keys = DSStepKeys::None);

    /// Dragging: one step for two pixels from the point where the drag began, or from where the
    /// keys have changed. Typed text is entered first.
    void beginDrag();
    void drag(int pixels, DSStepKeys keys = DSStepKeys::None);
    void endDrag();
    bool dragging() const { return drag_.has_value(); }

    /// The text of a value with at most `decimals` decimals: "0.5", "64.5", "100". Values from 1e15
    /// on have an exponent if that is shorter.
    static std::string textOf(double value, int decimals);
    /// Reads a number with a decimal point or comma, without regard to the locale; blanks around it
    /// are ignored. No value for any other text and for numbers that are not finite.
    static std::optional<double> valueOf(std::string_view text);

private:
    /// A drag under way. Its values are computed from `base`, the value at the pixel `origin`, so
    /// that errors do not add up.
    struct Drag {
        double first;  ///< the value that Escape restores
        double base;
        int origin = 0;
        int position = 0;  ///< the pixel of the last movement
        DSStepKeys keys = DSStepKeys::None;
    };

    double held(double value) const;
    std::string reasonFor(double wanted) const;
    void change(double value, DSNumberEdit edit, std::string remark = {});
    void notify(DSNumberEdit edit);
    void changed();
    double stepSize(DSStepKeys keys) const;

    Options options_;
    Listener listener_;
    std::function<void()> observer_;
    double value_ = 0.0;
    std::optional<std::string> typed_;
    std::string remark_;
    std::optional<Drag> drag_;
};
