// Pages that are closed and opened, and steps that are undone, in the middle of what they do.

#include <functional>

#include "pages/resources/resource_ids.h"
#include "sdk/com/com_object.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {
namespace {

using OpenedPage = std::unique_ptr<runtime::OpenPage>;

/// Calls an action at the event with a number, from 1 on: a change of a window or of a property.
class Interruption {
public:
    Interruption(IDSProperties& properties, int event, std::function<void()> action)
        : properties_(&properties), left_(event), action_(std::move(action)) {
        before_ = DSObserveWindows([this](HWND, DSWindowChange) { count(); });
        properties_->Advise(observer_.get(), &cookie_);
        observer_->heard = [this] { count(); };
    }
    ~Interruption() {
        DSObserveWindows(before_);
        properties_->Unadvise(cookie_);
    }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    bool reached() const { return left_ <= 0; }

private:
    class Observer final : public ComObject<IDSPropertyObserver> {
    public:
        HRESULT PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                                unsigned short) override {
            heard();
            return S_OK;
        }
        std::function<void()> heard;
    };

    void count() {
        if (--left_ == 0) action_();
    }

    ComPtr<IDSProperties> properties_;
    ComPtr<Observer> observer_ = ComPtr<Observer>::attach(new Observer);
    ULONG cookie_ = 0;
    int left_;
    std::function<void()> action_;
    DSWindowObserver before_;
};

class Reentrance : public PageTest {
protected:
    /// Something that a user does with a page.
    struct Use {
        GUID page;
        std::function<void(Reentrance&, const OpenedPage&)> operation;
    };

    static void drag(const OpenedPage& page, int id, bool cancel) {
        const auto control = number(page, id);
        control->beginDrag();
        control->drag(10);
        control->drag(20);
        cancel ? control->revert() : control->endDrag();
    }

    static std::vector<Use> uses() {
        const auto click = [](int id) {
            return [id](Reentrance&, const OpenedPage& page) { DSClickButton(item(page, id)); };
        };
        return {
            {kRuvexPageId,
             [](Reentrance&, const OpenedPage& page) { DSChooseItem(item(page, IDC_PRESETS), 7); }},
            {kRuvexPageId,
             [](Reentrance&, const OpenedPage& page) { DSChooseItem(item(page, IDC_TV_TYPE), 1); }},
            {kRuvexPageId, click(IDC_MAIN_RESET)},
            {kRuvexPageId,
             [](Reentrance&, const OpenedPage& page) {
                 chip(page, IDC_TINT_CHIP)->pick({1, 2, 3, 255});
             }},
            {kCropPageId,
             [](Reentrance&, const OpenedPage& page) {
                 chip(page, IDC_CROP_CHIP)->pick({1, 2, 3, 255});
             }},
            {kCropPageId, click(IDC_CROPPING_RESET)},
            {kEffectsPageId, click(IDC_FISH_EYE)},
            {kEffectsPageId,
             [](Reentrance&, const OpenedPage& page) {
                 const auto control = number(page, IDC_BLUR);
                 control->type("7");
                 control->enter();
             }},
            {kEffectsPageId,
             [](Reentrance&, const OpenedPage& page) { number(page, IDC_BLUR)->step(1); }},
            {kEffectsPageId,
             [](Reentrance&, const OpenedPage& page) { drag(page, IDC_BLUR, false); }},
            {kEffectsPageId,
             [](Reentrance&, const OpenedPage& page) { drag(page, IDC_BLUR, true); }},
            {kGunsPageId, [](Reentrance& test, const OpenedPage&) { test.editor->undo(); }},
            {kGunsPageId, [](Reentrance& test, const OpenedPage&) { test.editor->setTime(1.0); }},
        };
    }

    /// Runs each use with an action at each of its events.
    void interruptAll(const std::function<void(OpenedPage&)>& action) {
        int number = 0;
        for (const Use& use : uses()) {
            SCOPED_TRACE(++number);
            bool reached = true;
            for (int event = 1; reached; ++event) {
                SCOPED_TRACE(event);
                set(ParameterId::TvType, 2.0);
                editor->setValue(row(ParameterId::TvBrightnessRed).identifier, event);
                OpenedPage page = open(use.page);
                {
                    const Interruption interruption(session->properties(), event,
                                                    [&] { action(page); });
                    use.operation(*this, page);
                    reached = interruption.reached();
                }
                EXPECT_FALSE(editor->undoStack().isRecording());
                if (page) expectControlsShow(page, *editor);
            }
        }
    }
};

TEST_F(Reentrance, APageMayBeClosedAtAnyEvent) {
    interruptAll([](OpenedPage& page) { page.reset(); });
}

TEST_F(Reentrance, AnotherPageMayBeOpenedAtAnyEvent) {
    interruptAll([&](OpenedPage&) {
        const OpenedPage other = open(kRuvexPageId);
        EXPECT_TRUE(other->window());
    });
}

TEST_F(Reentrance, ThePageMayBeReplacedAtAnyEvent) {
    interruptAll([&](OpenedPage& page) {
        page.reset();
        page = open(kEffectsPageId);
    });
}

TEST_F(Reentrance, UndoAndRedoMayBeCalledAtAnyEvent) {
    interruptAll([&](OpenedPage&) {
        editor->undo();
        editor->redo();
    });
}

TEST_F(Reentrance, TimeMayChangeAtAnyEvent) {
    session->setKeys(row(ParameterId::Blur).identifier, {{0.0, 1.0}, {10.0, 11.0}});
    session->setKeys(row(ParameterId::TintColourG).identifier, {{0.0, 10.0}, {10.0, 20.0}});
    double time = 0.0;
    interruptAll([&](OpenedPage&) { editor->setTime(time += 0.25); });
}

TEST_F(Reentrance, TwoEditorsOfOneEffectKeepTheirOwnSteps) {
    runtime::Editor other(*session, [this] { return clock; });
    const OpenedPage page = open(kEffectsPageId);
    {
        OpenedPage second = other.open(kEffectsPageId);
        second->show();
        number(page, IDC_BLUR)->beginDrag();
        number(page, IDC_BLUR)->drag(4);
        type(second, IDC_RESOLUTION, "50");
        other.undo();
        EXPECT_EQ(value(ParameterId::Resolution), 100.0);
        EXPECT_EQ(number(page, IDC_RESOLUTION)->value(), 100.0);
        EXPECT_EQ(value(ParameterId::Blur), 2.0) << "belongs to the first editor";
        number(page, IDC_BLUR)->endDrag();
        EXPECT_EQ(number(second, IDC_BLUR)->value(), 2.0);
        editor->undo();
        EXPECT_EQ(number(second, IDC_BLUR)->value(), 0.0);
    }
    EXPECT_EQ(other.undoStack().undoCount(), 0u);
}

}  // namespace
}  // namespace ruvex::test
