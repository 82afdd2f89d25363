#include "tests/tool/tool_test.h"

#include "sdk/com/com_object.h"

namespace ruvex::test {

class ToolTest::WriteLog final : public ComObject<IDSPropertyObserver> {
public:
    explicit WriteLog(std::vector<ParameterId>& writes) : writes_(writes) {}
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        if (const ParameterRow* const found = findParameter(id)) writes_.push_back(found->id);
        return S_OK;
    }

private:
    std::vector<ParameterId>& writes_;
};

ToolTest::ToolTest(const runtime::Project& project)
    : userToWorld_(1.0 / project.pixelAspect),
      log_(ComPtr<WriteLog>::attach(new WriteLog(writes))) {
    editor.reset();
    session =
        std::make_unique<runtime::EffectSession>(runtime::EffectSession::Setup{.project = project});
    editor = std::make_unique<runtime::Editor>(*session, [this] { return clock; });
    viewer = std::make_unique<runtime::Viewer>(*editor, [this](ULONG, const RECT*) {
        ++redraws;
        if (onRedraw) onRedraw();
    });
    page = open(kCropPageId);
    session->properties().Advise(log_.get(), &cookie_);
}

ToolTest::~ToolTest() {
    session->properties().Unadvise(cookie_);
    page.reset();
    EXPECT_TRUE(VWControllerContexts().empty());
}

VxTInteract& ToolTest::tool() {
    // The viewer keeps it.
    return *interactiveTool(VWControllerContexts().at(0).tool.get());
}

VxTDsCrop& ToolTest::box() {
    return static_cast<VxTDsCrop&>(*tool().viewZero.children.head->item);
}

tagVWPENEVENT ToolTest::event(float x, float y, LONG button) const {
    return {.button = button, .x = x * userToWorld_, .y = y * userToWorld_};
}

HRESULT ToolTest::press(float x, float y, LONG button) {
    return viewer->penDown(event(x, y, button));
}

HRESULT ToolTest::move(float x, float y, LONG button) {
    return viewer->penMove(event(x, y, button));
}

HRESULT ToolTest::release(float x, float y, LONG button) {
    return viewer->penUp(event(x, y, button));
}

void ToolTest::drag(VxPosition from, VxPosition to) {
    press(from.x, from.y);
    if (from != to) move(to.x, to.y);
    release(to.x, to.y);
}

void ToolTest::restore(const VxRect& rect) {
    box().setRect(rect.x0, rect.y0, rect.x1, rect.y1);
}

void ToolTest::expectRect(const VxRect& expected) {
    constexpr float kTolerance = 1e-3f;
    const VxRect& rect = box().rect;
    EXPECT_NEAR(rect.x0, expected.x0, kTolerance);
    EXPECT_NEAR(rect.y0, expected.y0, kTolerance);
    EXPECT_NEAR(rect.x1, expected.x1, kTolerance);
    EXPECT_NEAR(rect.y1, expected.y1, kTolerance);
}

}  // namespace ruvex::test
