#include "runtime/viewer_pen.h"

#include <algorithm>
#include <utility>

namespace ruvex::runtime {

HRESULT ViewerPen::down(const ComPtr<IDSInteractiveTool>& tool, const tagVWPENEVENT& event) {
    const ComPtr<IDSInteractiveTool> target = tool_ ? tool_ : tool;
    if (!target) return S_FALSE;
    if (std::ranges::find(buttons_, event.button) == buttons_.end()) {
        buttons_.push_back(event.button);
    }
    tool_ = target;
    last_ = event;
    return target->OnPenDown(&event);
}

HRESULT ViewerPen::move(const ComPtr<IDSInteractiveTool>& tool, const tagVWPENEVENT& event) {
    const ComPtr<IDSInteractiveTool> target = tool_ ? tool_ : tool;
    last_ = event;
    return target ? target->OnPenMove(&event) : S_FALSE;
}

HRESULT ViewerPen::up(const tagVWPENEVENT& event) {
    if (std::erase(buttons_, event.button) == 0) return S_FALSE;
    last_ = event;
    const ComPtr<IDSInteractiveTool> target = tool_;
    if (buttons_.empty()) tool_.reset();
    return target->OnPenUp(&event);
}

HRESULT ViewerPen::release() {
    const ComPtr<IDSInteractiveTool> target = std::exchange(tool_, nullptr);
    const std::vector<LONG> buttons = std::exchange(buttons_, {});
    if (!target) return S_FALSE;
    tagVWPENEVENT event = last_;
    for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
        event.button = *button;
        target->OnPenUp(&event);
    }
    return S_OK;
}

}  // namespace ruvex::runtime
