// The on-screen controls of the effect in the stand-in host's viewer, with a scripted pen. The
// module's objects are part of the test program.

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "overlay/vx_t_ds_crop.h"
#include "overlay/vx_t_interact.h"
#include "runtime/viewer.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {

inline const GUID& idOf(ParameterId id) {
    return row(id).identifier;
}

/// A project of 720x576, with the Cropping page open unless a test closes it.
class ToolTest : public PageTest {
protected:
    ToolTest() : ToolTest({.width = 720, .height = 576}) {}
    explicit ToolTest(const runtime::Project& project);
    ~ToolTest() override;

    /// The tool in the viewer.
    static VxTInteract& tool();
    /// The crop box in it.
    static VxTDsCrop& box();

    // The pen, in user units of the project frame.
    HRESULT press(float x, float y, LONG button = 1);
    HRESULT move(float x, float y, LONG button = 0);
    HRESULT release(float x, float y, LONG button = 1);
    void drag(VxPosition from, VxPosition to);
    void click(float x, float y) { drag({x, y}, {x, y}); }

    /// Sets the box's corners, and nothing else.
    static void restore(const VxRect& rect);
    /// Expects these corners, to a thousandth of a unit.
    static void expectRect(const VxRect& expected);

    /// Keeps notifications of properties from the box as long as it lives.
    class Silence {
    public:
        explicit Silence(ToolTest&) { tool().dsObjects.removeAll(&box()); }
        ~Silence() { tool().dsObjects.append(&box()); }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;
    };

    /// How often a tool has asked for a redraw.
    int redraws = 0;
    /// What a redraw does besides.
    std::function<void()> onRedraw;
    /// The parameters of all notifications so far.
    std::vector<ParameterId> writes;
    std::unique_ptr<runtime::Viewer> viewer;
    std::unique_ptr<runtime::OpenPage> page;

private:
    class WriteLog;

    tagVWPENEVENT event(float x, float y, LONG button) const;

    double userToWorld_;
    ComPtr<WriteLog> log_;
    ULONG cookie_ = 0;
};

}  // namespace ruvex::test
