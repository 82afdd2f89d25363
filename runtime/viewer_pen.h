// The tool in which the pen is down.

#pragma once

#include <vector>

#include "sdk/com/com_ptr.h"
#include "sdk/viewer/interactive_tool.h"

namespace ruvex::runtime {

/// Passes pen events on to tools. From the press of a button until all buttons are up, a drag, all
/// events go to the tool in which the first button went down.
///
/// A tool may call every function while it gets an event. Its status is handed back.
class ViewerPen {
public:
    /// `tool` gets the event if there is no drag; it may be null. S_FALSE without any tool.
    HRESULT down(const ComPtr<IDSInteractiveTool>& tool, const tagVWPENEVENT& event);
    HRESULT move(const ComPtr<IDSInteractiveTool>& tool, const tagVWPENEVENT& event);
    /// S_FALSE for a button that did not go down in a tool.
    HRESULT up(const tagVWPENEVENT& event);

    /// Ends a drag: the tool gets OnPenUp at the last position for each button that is down, the
    /// last one first. S_FALSE if there is no drag.
    HRESULT release();
    /// The tool of the drag; null if there is none.
    const ComPtr<IDSInteractiveTool>& tool() const { return tool_; }

private:
    ComPtr<IDSInteractiveTool> tool_;
    std::vector<LONG> buttons_;  ///< Those that are down, in the order of their presses.
    tagVWPENEVENT last_{};
};

}  // namespace ruvex::runtime
