#include "sdk/controls/host_controls.h"

#include <algorithm>
#include <map>
#include <vector>

#include "sdk/com/guarded.h"
#include "sdk/controls/host_control_windows.h"

namespace {

constexpr int kDefaultDecimals = 3;

template <class Model>
struct ControlModel {
    HWND window;
    ComPtr<Model> model;

    void end() const {
        RemovePropW(window, kDSControlInterface);
        model->listen(nullptr);
        model->observe(nullptr);
    }
};

struct DialogModels {
    std::vector<ControlModel<CDSNumberControl>> numbers;
    std::vector<ControlModel<CDSColourChip>> chips;
};

/// The models of each dialog of the thread. Kept apart from the windows, so that they can be
/// released after their dialog has been destroyed.
thread_local std::map<HWND, DialogModels> dialogModels;

std::wstring titleOf(HWND window) {
    constexpr int kLongestTitle = 1024;
    wchar_t text[kLongestTitle];
    const int count = GetWindowTextW(window, text, kLongestTitle);
    return std::wstring(text, static_cast<std::size_t>(count));
}

ComPtr<CDSNumberControl> newNumber(HWND window, const DSControlTitle& title) {
    const auto number = ComPtr<CDSNumberControl>::attach(
        new CDSNumberControl({.label = title.label,
                              .low = title.low,
                              .high = title.high,
                              .decimals = title.decimals.value_or(kDefaultDecimals)}));
    // The observer does not own the control, which owns the observer.
    number->observe(
        [window, control = number.get()] { ruvex::controls::showNumber(window, *control); });
    return number;
}

ComPtr<CDSColourChip> newChip(HWND window) {
    const auto chip = ComPtr<CDSColourChip>::attach(new CDSColourChip);
    chip->observe(
        [window, control = chip.get()] { ruvex::controls::showColour(window, *control); });
    return chip;
}

template <class Model>
void attachModel(std::vector<ControlModel<Model>>& models, HWND window,
                 const ComPtr<Model>& model) {
    models.push_back({window, model});
    if (!SetPropW(window, kDSControlInterface, static_cast<IUnknown*>(model.get()))) {
        throw std::bad_alloc();
    }
}

/// Makes a control of a static whose title describes one. Returns the control's window, or the
/// static if it is an ordinary one.
HWND makeHostControl(HWND dialog, HWND window) {
    const auto title = DSControlTitle::parse(titleOf(window));
    if (!title) return window;
    const HWND control = ruvex::controls::replaceByControl(window, *title);
    DialogModels& models = dialogModels[dialog];
    if (title->kind == DSControlTitle::Class::Number) {
        attachModel(models.numbers, control, newNumber(control, *title));
    } else {
        attachModel(models.chips, control, newChip(control));
    }
    ruvex::controls::becomeControl(control, *title);
    return control;
}

/// A list that is still empty gets room for as many items as an opened list shows at most.
void enlargeList(HWND combo) {
    const auto items = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    const bool empty = items <= 0;
    ruvex::controls::resizeList(combo,
                                empty ? kDSMostListItems : std::min(items, kDSMostListItems));
}

/// The model behind a window; null if the window has none, or one of another class.
template <class Model>
ComPtr<Model> modelOf(HWND window) {
    const ComPtr<IUnknown> found(static_cast<IUnknown*>(GetPropW(window, kDSControlInterface)));
    return found.query<Model>(Model::kModelId);
}

}  // namespace

HRESULT DSMakeControls(HWND dialog) {
    const HRESULT status = ruvex::guarded([&] {
        for (HWND window = GetWindow(dialog, GW_CHILD); window;
             window = GetWindow(window, GW_HWNDNEXT)) {
            if (ruvex::controls::isDropDown(window)) {
                enlargeList(window);
                ruvex::controls::watchList(window);
            }
            const bool ordinary = !GetPropW(window, kDSControlInterface);
            if (ordinary && ruvex::controls::isStatic(window)) {
                window = makeHostControl(dialog, window);
            }
        }
        return S_OK;
    });
    if (FAILED(status)) DSReleaseControls(dialog);
    return status;
}

void DSReleaseControls(HWND dialog) {
    ruvex::controls::releaseToolTips(dialog);
    // Taken out first, since the end of a listener may lead back here.
    const auto models = dialogModels.extract(dialog);
    if (models.empty()) return;
    for (const auto& number : models.mapped().numbers) number.end();
    for (const auto& chip : models.mapped().chips) chip.end();
}

ComPtr<CDSNumberControl> DSNumberControlOf(HWND control) {
    return modelOf<CDSNumberControl>(control);
}

ComPtr<CDSColourChip> DSColourChipOf(HWND control) {
    return modelOf<CDSColourChip>(control);
}
