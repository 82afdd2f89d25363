// The crop box in the viewer and the crop parameters: what a drag writes, and what moves the lines.

#include <vector>

#include "sdk/com/com_object.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

using R = VxTRectangle;

constexpr ParameterId kCropParameters[] = {ParameterId::CropLeft, ParameterId::CropRight,
                                           ParameterId::CropBottom, ParameterId::CropTop};

class CropEdits : public ToolTest {
protected:
    /// Edges at 10, 80, 20 and 70 percent of 720x576.
    CropEdits() {
        set(ParameterId::CropLeft, 10);
        set(ParameterId::CropRight, 80);
        set(ParameterId::CropBottom, 20);
        set(ParameterId::CropTop, 70);
        writes.clear();
    }
    std::vector<double> percents() const {
        std::vector<double> values;
        for (const ParameterId id : kCropParameters) values.push_back(value(id));
        return values;
    }

    static constexpr float kLeft = 72, kRight = 576;
    static constexpr float kBottom = 115.2f, kTop = 403.2f;
};

TEST_F(CropEdits, LinesAreAtThePercentages) {
    expectRect({kLeft, kBottom, kRight, kTop});
    EXPECT_EQ(box().limits, (VxRect{0, 0, 720, 576}));
    EXPECT_TRUE(box().isVisible());
}

TEST_F(CropEdits, ADragWritesItsLineOnReleaseAndNothingBefore) {
    press(kLeft + 1, 300);
    for (const float x : {100.0f, 150.0f, 217.0f}) {
        move(x, 310);
        EXPECT_TRUE(writes.empty());
        EXPECT_EQ(percents(), (std::vector<double>{10, 80, 20, 70}));
    }
    expectRect({216, kBottom, kRight, kTop});
    release(217, 310);
    EXPECT_EQ(writes, std::vector{ParameterId::CropLeft});
    EXPECT_EQ(percents(), (std::vector<double>{30, 80, 20, 70}));
    expectRect({216, kBottom, kRight, kTop});
}

TEST_F(CropEdits, ACornerWritesTwoInOrder) {
    drag({kRight, kTop}, {648, 345.6f});
    EXPECT_EQ(writes, (std::vector{ParameterId::CropRight, ParameterId::CropTop}));
    writes.clear();
    drag({kLeft, kBottom}, {144, 57.6f});
    EXPECT_EQ(writes, (std::vector{ParameterId::CropLeft, ParameterId::CropBottom}));
    EXPECT_NEAR(value(ParameterId::CropRight), 90, 1e-4);
    EXPECT_NEAR(value(ParameterId::CropTop), 60, 1e-4);
    EXPECT_NEAR(value(ParameterId::CropLeft), 20, 1e-4);
    EXPECT_NEAR(value(ParameterId::CropBottom), 10, 1e-4);
}

TEST_F(CropEdits, ALeftLineBeyondTheRightOneCollapsesTheBox) {
    press(kLeft, 300);
    move(700, 300);
    expectRect({kRight, kBottom, kRight, kTop});
    release(700, 300);
    EXPECT_EQ(writes, std::vector{ParameterId::CropLeft});
    EXPECT_EQ(percents(), (std::vector<double>{80, 80, 20, 70}));
}

TEST_F(CropEdits, APercentageBeyondTheFrameStaysAndItsLineIsAtTheFrame) {
    set(ParameterId::CropRight, 120);
    expectRect({kLeft, kBottom, 720, kTop});
    EXPECT_EQ(value(ParameterId::CropRight), 120);
    set(ParameterId::CropLeft, -25);
    expectRect({0, kBottom, 720, kTop});
    EXPECT_EQ(value(ParameterId::CropLeft), -25);
}

TEST_F(CropEdits, APressBesideTheLinesWritesNothing) {
    drag({300, 300}, {350, 320});
    EXPECT_TRUE(writes.empty());
    EXPECT_EQ(editor->undoStack().undoCount(), 0u);
}

TEST_F(CropEdits, MessagesOfOtherSendersWriteNothing) {
    box().handle = R::kLeft;
    R other("Other", 0, 0, 1, 1);
    connect(&box(), &other);
    other.penUp();
    VxMessage message(VxMessageId::DragEnded);
    box().handleMessage(&message, nullptr);
    EXPECT_TRUE(writes.empty());
}

// Undo.

TEST_F(CropEdits, ADragOfACornerIsOneStepAndUndoMovesTheLinesBack) {
    drag({kRight, kTop}, {648, 345.6f});
    runtime::UndoStack& stack = editor->undoStack();
    EXPECT_EQ(stack.undoCount(), 1u);
    EXPECT_EQ(stack.undoName(), L"Crop");
    expectRect({kLeft, kBottom, 648, 345.6f});
    editor->undo();
    EXPECT_EQ(percents(), (std::vector<double>{10, 80, 20, 70}));
    expectRect({kLeft, kBottom, kRight, kTop});
    editor->redo();
    expectRect({kLeft, kBottom, 648, 345.6f});
}

TEST_F(CropEdits, AClickWithoutAMoveWritesTheLineAndIsNoStep) {
    click(kLeft, 300);
    EXPECT_EQ(writes, std::vector{ParameterId::CropLeft});
    EXPECT_EQ(percents(), (std::vector<double>{10, 80, 20, 70}));
    EXPECT_EQ(editor->undoStack().undoCount(), 0u) << "every bit is as before";
}

TEST_F(CropEdits, AClickOnALineWhosePercentageIsNoFloatRoundsIt) {
    set(ParameterId::CropLeft, 10.1);
    click(72.72f, 300);
    EXPECT_NE(value(ParameterId::CropLeft), 10.1);
    EXPECT_NEAR(value(ParameterId::CropLeft), 10.1, 1e-5);
    EXPECT_EQ(editor->undoStack().undoCount(), 1u);
}

TEST_F(CropEdits, AClickOnALineAtTheFrameWritesWhereItIs) {
    set(ParameterId::CropRight, 120);
    click(720, 300);
    EXPECT_EQ(value(ParameterId::CropRight), 100);
    EXPECT_EQ(editor->undoStack().undoCount(), 1u);
}

/// Answers each write as after an undo: all properties have changed.
class TellsOfAll final : public ComObject<IDSPropertyObserver> {
public:
    explicit TellsOfAll(VxTInteract& tool) : tool_(tool) {}
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        return id == GUID_AllProperties ? S_OK
                                        : tool_.OnPropertyChanged(GUID_AllProperties, nullptr);
    }

private:
    VxTInteract& tool_;
};

TEST_F(CropEdits, ACornerIsWrittenAsItWasWhenThePenWentUp) {
    const auto observer = ComPtr<TellsOfAll>::attach(new TellsOfAll(tool()));
    ULONG cookie = 0;
    session->properties().Advise(observer.get(), &cookie);
    drag({kRight, kTop}, {648, 345.6f});
    session->properties().Unadvise(cookie);
    EXPECT_NEAR(value(ParameterId::CropRight), 90, 1e-4);
    EXPECT_NEAR(value(ParameterId::CropTop), 60, 1e-4) << "although its line has been read again";
}

TEST_F(CropEdits, AReleaseByTheHostEndsTheDragAtTheLastPosition) {
    press(kLeft, 300);
    move(144, 300);
    viewer->releasePen();
    EXPECT_EQ(percents(), (std::vector<double>{20, 80, 20, 70}));
    EXPECT_EQ(editor->undoStack().undoCount(), 1u);
    EXPECT_FALSE(editor->undoStack().isRecording());
    move(300, 300);
    EXPECT_EQ(percents(), (std::vector<double>{20, 80, 20, 70}));
}

TEST_F(CropEdits, APageThatClosesDuringADragEndsIt) {
    press(kLeft, 300);
    move(144, 300);
    page.reset();
    EXPECT_EQ(percents(), (std::vector<double>{20, 80, 20, 70}));
    EXPECT_EQ(editor->undoStack().undoName(), L"Crop");
    EXPECT_FALSE(editor->undoStack().isRecording());
    page = open(kCropPageId);
    EXPECT_FALSE(box().isPressed());
    EXPECT_FALSE(box().isHovered());
}

// What looks wrong and is meant.

TEST_F(CropEdits, WithLeftAboveRightTheLinesSwapNamesAndTheBoxJumpsAfterADrag) {
    set(ParameterId::CropLeft, 90);
    writes.clear();
    expectRect({kRight, kBottom, 648, kTop});
    press(kRight, 300);
    EXPECT_EQ(box().handle, R::kLeft) << "the line of Crop Right is the left one now";
    move(504, 300);
    expectRect({504, kBottom, 648, kTop});
    release(504, 300);
    EXPECT_EQ(writes, std::vector{ParameterId::CropLeft});
    EXPECT_EQ(percents(), (std::vector<double>{70, 80, 20, 70}));
    editor->setTime(1.0);
    expectRect({504, kBottom, kRight, kTop});
}

TEST_F(CropEdits, ABoxThatIsCollapsedAtTheLeftBorderIsOpenedByThePageAlone) {
    set(ParameterId::CropLeft, 0);
    set(ParameterId::CropRight, 0);
    drag({0, 300}, {200, 300});
    EXPECT_EQ(percents(), (std::vector<double>{0, 0, 20, 70}));
    set(ParameterId::CropRight, 50);
    expectRect({0, kBottom, 360, kTop});
}

TEST_F(CropEdits, APenThatLeavesTheFrameAndComesBackMovesTheLineByWhatItCameBack) {
    press(kLeft, 300);
    move(-100, 300);
    expectRect({0, kBottom, kRight, kTop});
    move(-64, 300);
    expectRect({36, kBottom, kRight, kTop});
    release(-64, 300);
    EXPECT_EQ(value(ParameterId::CropLeft), 5);
}

TEST_F(CropEdits, AChangeOfTheTimeDuringADragResetsTheLine) {
    press(kLeft, 300);
    move(144, 300);
    editor->setTime(0.5);
    expectRect({kLeft, kBottom, kRight, kTop});
    release(144, 300);
    EXPECT_EQ(value(ParameterId::CropLeft), 10);
}

// Keys, time and notifications.

TEST_F(CropEdits, LinesFollowTheKeysOfAParameter) {
    const DSKey keys[] = {{.time = 0.0, .value = 0.0}, {.time = 2.0, .value = 50.0}};
    editor->setKeys(idOf(ParameterId::CropLeft), keys);
    expectRect({0, kBottom, kRight, kTop});
    editor->setTime(1.0);
    expectRect({180, kBottom, kRight, kTop});
    editor->setTime(9.0);
    expectRect({360, kBottom, kRight, kTop});
}

TEST_F(CropEdits, ADragAtATimeBetweenKeysSetsAKey) {
    const DSKey keys[] = {{.time = 0.0, .value = 0.0}, {.time = 2.0, .value = 50.0}};
    editor->setKeys(idOf(ParameterId::CropLeft), keys);
    editor->setTime(1.0);
    drag({180, 300}, {252, 300});
    EXPECT_EQ(session->keys(idOf(ParameterId::CropLeft)).size(), 3u);
    EXPECT_EQ(value(ParameterId::CropLeft, 1.0), 35);
    EXPECT_EQ(value(ParameterId::CropLeft, 0.0), 0);
}

/// Calls propertyChanged of the box as it is, and gives what it returned.
TEST_F(CropEdits, OnlyTheParametersOfTheNotificationMoveLines) {
    const VxRect before = box().rect;
    const VxRect fifty{360, 288, 360, 288};
    const DSVARIANT given = DSVariantFromReal(50);
    for (int i = 0; i < 4; ++i) {
        for (const bool withValue : {true, false}) {
            restore(before);
            // What the effect has: 50 % everywhere, of which the box has not heard.
            const Silence silence(*this);
            for (const ParameterId id : kCropParameters) set(id, 50);
            EXPECT_EQ(box().propertyChanged(idOf(kCropParameters[i]), withValue ? &given : nullptr),
                      1);
            VxRect expected = before;
            if (i == 0) expected.x0 = 360;
            if (i == 1) expected.x1 = 360;
            if (i == 2) expected.y0 = 288;
            if (i == 3) expected.y1 = 288;
            expectRect(expected);
        }
    }
    for (const bool withValue : {true, false}) {
        restore(before);
        EXPECT_EQ(box().propertyChanged(GUID_AllProperties, withValue ? &given : nullptr), 1);
        expectRect(fifty);
        for (const GUID& other : {GUID_NoProperty, idOf(ParameterId::CropColourR)}) {
            restore(before);
            EXPECT_EQ(box().propertyChanged(other, withValue ? &given : nullptr), 0);
            expectRect(before);
        }
    }
}

TEST_F(CropEdits, AFailedReadChangesNothing) {
    const VxRect before = box().rect;
    for (GUID VxTDsCrop::*property : {&VxTDsCrop::leftProperty, &VxTDsCrop::rightProperty,
                                      &VxTDsCrop::bottomProperty, &VxTDsCrop::topProperty}) {
        const Silence silence(*this);
        for (const ParameterId id : kCropParameters) set(id, 50);
        const GUID kept = box().*property;
        for (const GUID& unreadable : {GUID_NoProperty, kToolClassId}) {
            box().*property = unreadable;
            box().readProperties();
            expectRect(before);
            box().timeChanged(1.0);
            expectRect(before);
        }
        box().*property = kept;
    }
}

}  // namespace
}  // namespace ruvex::test
