#include "runtime/undo_stack.h"

#include <gtest/gtest.h>

#include "tests/runtime/edited_object.h"

namespace ruvex::runtime::test {
namespace {

class Undo : public ::testing::Test {
protected:
    HRESULT setLift(LONG value) {
        const VARIANT variant = DSVariantFromLong(value);
        return stack.write({&kLiftId, 1}, [&] { return object->SetValue(kLiftId, 0.0, &variant); });
    }

    HRESULT setDelay(double value, double seconds = 0.0) {
        const VARIANT variant = DSVariantFromReal(value);
        return stack.write({&kDelayId, 1},
                           [&] { return object->SetValue(kDelayId, seconds, &variant); });
    }

    /// A step with one change.
    void liftStep(LONG value, std::uint64_t mergeKey = 0) {
        const UNDO_STYLE style = stack.begin(L"Lift", mergeKey);
        EXPECT_EQ(setLift(value), S_OK);
        EXPECT_EQ(stack.end(style), S_OK);
    }

    LONG lift() { return readState(*object, kLiftId).plain.lVal; }

    double now = 100.0;
    ComPtr<CopyEffect> object = makeEditedObject();
    UndoStack stack{object, [this] { return now; }};
};

TEST_F(Undo, AStepIsUndoneAndRedoneWithOneNotification) {
    const UNDO_STYLE style = stack.begin(L"Both");
    EXPECT_GT(style, DSUNDO_OWN_STEP);
    setLift(5);
    setDelay(0.5);
    stack.end(style);
    EXPECT_EQ(stack.undoName(), L"Both");
    EXPECT_EQ(stack.redoName(), L"");
    ChangeCounter changes(*object);
    EXPECT_EQ(stack.undo(), S_OK);
    EXPECT_EQ(changes.all, 1);
    EXPECT_EQ(changes.single, 0);
    EXPECT_EQ(lift(), 0);
    EXPECT_EQ(object->delay(), 0.0);
    EXPECT_EQ(stack.undoName(), L"");
    EXPECT_EQ(stack.redoName(), L"Both");
    EXPECT_EQ(stack.redo(), S_OK);
    EXPECT_EQ(changes.all, 2);
    EXPECT_EQ(lift(), 5);
    EXPECT_EQ(object->delay(), 0.5);
}

TEST_F(Undo, HasNothingToDoAtFirst) {
    EXPECT_EQ(stack.undo(), S_FALSE);
    EXPECT_EQ(stack.redo(), S_FALSE);
    EXPECT_TRUE(stack.isSaved());
    EXPECT_FALSE(stack.isRecording());
}

TEST_F(Undo, KeysComeBackWithTheirModes) {
    const std::vector<DSKey> keys = {{0.0, 1.0, DSKeyMode::Hold}, {2.0, -0.0, DSKeyMode::Smooth}};
    object->SetKeys(kDelayId, keys.data(), 2);
    const States before = readStates(*object);
    const UNDO_STYLE style = stack.begin(L"Key");
    setDelay(9.0, 1.0);
    stack.end(style);
    const States after = readStates(*object);
    EXPECT_EQ(after[0].keys.size(), 3u);
    stack.undo();
    EXPECT_TRUE(sameStates(readStates(*object), before));
    stack.redo();
    EXPECT_TRUE(sameStates(readStates(*object), after));
}

TEST_F(Undo, AZeroOfTheOtherSignIsAChange) {
    const UNDO_STYLE style = stack.begin(L"Sign");
    setDelay(-0.0);
    stack.end(style);
    EXPECT_EQ(stack.undoCount(), 1u);
    stack.undo();
    EXPECT_FALSE(std::signbit(object->delay()));
}

TEST_F(Undo, NestedBracketsBelongToTheOutermost) {
    const UNDO_STYLE outer = stack.begin(L"Outer");
    setLift(1);
    const UNDO_STYLE inner = stack.begin(L"Inner");
    setLift(2);
    setDelay(3.0);
    EXPECT_EQ(stack.end(outer), E_INVALIDARG) << "it is not the innermost";
    EXPECT_EQ(stack.end(inner), S_OK);
    setLift(4);
    EXPECT_EQ(stack.undoCount(), 0u);
    EXPECT_EQ(stack.undo(), E_UNEXPECTED) << "inside a bracket";
    EXPECT_EQ(stack.end(outer), S_OK);
    EXPECT_EQ(stack.end(outer), E_INVALIDARG) << "it has ended";
    ASSERT_EQ(stack.undoCount(), 1u);
    EXPECT_EQ(stack.undoName(), L"Outer");
    stack.undo();
    EXPECT_EQ(lift(), 0);
    EXPECT_EQ(object->delay(), 0.0);
}

TEST_F(Undo, CancelRestoresTheBeginningOfTheInnermostBracket) {
    const UNDO_STYLE outer = stack.begin(L"Outer");
    setLift(1);
    const UNDO_STYLE inner = stack.begin(L"Inner");
    setLift(2);
    setDelay(3.0);
    EXPECT_EQ(stack.cancel(outer), E_INVALIDARG);
    EXPECT_EQ(stack.cancel(inner), S_OK);
    EXPECT_FALSE(stack.isOpen(inner));
    EXPECT_EQ(lift(), 1);
    EXPECT_EQ(object->delay(), 0.0);
    stack.end(outer);
    stack.undo();
    EXPECT_EQ(lift(), 0);
}

TEST_F(Undo, ACancelledStepLeavesNoTrace) {
    liftStep(1);
    stack.undo();
    const UNDO_STYLE style = stack.begin(L"Drag");
    setLift(7);
    EXPECT_EQ(stack.cancel(style), S_OK);
    EXPECT_EQ(lift(), 0);
    EXPECT_EQ(stack.undoCount(), 0u);
    EXPECT_EQ(stack.redoCount(), 1u);
}

TEST_F(Undo, StepsWithoutAChangeKeepTheStepsToRedo) {
    liftStep(1);
    stack.undo();
    stack.end(stack.begin(L"Empty"));
    liftStep(0);
    const UNDO_STYLE there = stack.begin(L"There and back");
    setLift(5);
    setLift(0);
    stack.end(there);
    EXPECT_EQ(stack.undoCount(), 0u);
    EXPECT_EQ(stack.redoCount(), 1u);
    liftStep(2);
    EXPECT_EQ(stack.undoCount(), 1u);
    EXPECT_EQ(stack.redoCount(), 0u);
}

TEST_F(Undo, AWriteThatFailsIsNoStep) {
    const UNDO_STYLE style = stack.begin(L"Wrong");
    EXPECT_EQ(setDelay(std::nan("")), E_INVALIDARG);
    stack.end(style);
    EXPECT_EQ(stack.undoCount(), 0u);
    EXPECT_EQ(setLift(3), E_UNEXPECTED) << "no bracket is open";
    EXPECT_EQ(lift(), 0);
}

TEST_F(Undo, BracketsCloseWhenTheInnerOnesHaveEnded) {
    const UNDO_STYLE outer = stack.begin(L"Outer");
    const UNDO_STYLE inner = stack.begin(L"Inner");
    setLift(1);
    stack.close(outer);
    EXPECT_FALSE(stack.isOpen(outer));
    EXPECT_TRUE(stack.isRecording());
    stack.close(inner);
    stack.close(inner);
    EXPECT_FALSE(stack.isRecording());
    EXPECT_EQ(stack.undoCount(), 1u);
}

TEST_F(Undo, SuccessiveStepsWithTheSameKeyMerge) {
    liftStep(1, 7);
    now += 0.69;
    liftStep(2, 7);
    now += 0.69;
    liftStep(3, 7);
    EXPECT_EQ(stack.undoCount(), 1u);
    stack.undo();
    EXPECT_EQ(lift(), 0);
    stack.redo();
    EXPECT_EQ(lift(), 3);
}

TEST_F(Undo, AStepMergesWithTheEndOfTheOneBefore) {
    const UNDO_STYLE style = stack.begin(L"Slow", 7);
    setLift(1);
    now += 5.0;
    stack.end(style);
    now += 0.5;
    liftStep(2, 7);
    EXPECT_EQ(stack.undoCount(), 1u);
}

TEST_F(Undo, StepsThatDifferOrAreApartDoNotMerge) {
    liftStep(1, 7);
    liftStep(2, 8);
    EXPECT_EQ(stack.undoCount(), 2u) << "another key";
    liftStep(3, 0);
    liftStep(4, 0);
    EXPECT_EQ(stack.undoCount(), 4u) << "no key";
    liftStep(5, 7);
    now += 0.7;
    liftStep(6, 7);
    EXPECT_EQ(stack.undoCount(), 6u) << "too late";
    const UNDO_STYLE style = stack.begin(L"Delay", 7);
    setDelay(1.0);
    stack.end(style);
    EXPECT_EQ(stack.undoCount(), 7u) << "another property";
    stack.undo();
    stack.redo();
    const UNDO_STYLE next = stack.begin(L"Delay", 7);
    setDelay(2.0);
    stack.end(next);
    EXPECT_EQ(stack.undoCount(), 8u) << "undone in between";
    stack.markSaved();
    const UNDO_STYLE last = stack.begin(L"Delay", 7);
    setDelay(3.0);
    stack.end(last);
    EXPECT_EQ(stack.undoCount(), 9u) << "saved in between";
}

TEST_F(Undo, MergedStepsThatChangeNothingTogetherAreDropped) {
    liftStep(9);
    liftStep(1, 7);
    liftStep(9, 7);
    EXPECT_EQ(stack.undoCount(), 1u);
    stack.undo();
    EXPECT_EQ(lift(), 0);
}

TEST_F(Undo, TheSavedStateIsFoundAgain) {
    liftStep(1);
    EXPECT_FALSE(stack.isSaved());
    stack.markSaved();
    EXPECT_TRUE(stack.isSaved());
    liftStep(2);
    EXPECT_FALSE(stack.isSaved());
    stack.undo();
    EXPECT_TRUE(stack.isSaved());
    stack.undo();
    EXPECT_FALSE(stack.isSaved());
    stack.redo();
    EXPECT_TRUE(stack.isSaved());
    const UNDO_STYLE style = stack.begin(L"Open");
    EXPECT_TRUE(stack.isSaved());
    setLift(4);
    EXPECT_FALSE(stack.isSaved());
    stack.cancel(style);
    EXPECT_TRUE(stack.isSaved());
}

TEST_F(Undo, TheSavedStateIsLostWithTheStepsThatLeadToIt) {
    liftStep(1);
    stack.markSaved();
    stack.undo();
    liftStep(2);
    EXPECT_FALSE(stack.isSaved());
    stack.undo();
    liftStep(1);
    EXPECT_FALSE(stack.isSaved()) << "an equal state on another way counts as another";
}

TEST_F(Undo, ClearKeepsTheStateAndDropsTheSteps) {
    liftStep(1);
    stack.markSaved();
    stack.clear();
    EXPECT_EQ(stack.undoCount(), 0u);
    EXPECT_EQ(stack.undoBytes(), 0u);
    EXPECT_TRUE(stack.isSaved());
    EXPECT_EQ(lift(), 1);
    liftStep(2);
    stack.clear();
    EXPECT_FALSE(stack.isSaved());
}

TEST_F(Undo, MoreThanAThousandSmallStepsAreKept) {
    for (LONG i = 1; i <= 3000; ++i) liftStep(i);
    EXPECT_EQ(stack.undoCount(), 3000u);
    EXPECT_LT(stack.undoBytes(), UndoStack::kKeptBytes);
    for (int i = 0; i < 3000; ++i) EXPECT_EQ(stack.undo(), S_OK);
    EXPECT_EQ(stack.undoBytes(), 0u);
    EXPECT_EQ(lift(), 0);
}

TEST_F(Undo, OfLargeStepsTheOldestBeyondAThousandAreDropped) {
    constexpr ULONG kKeys = 4000;
    std::vector<DSKey> keys;
    for (ULONG i = 0; i < kKeys; ++i) keys.push_back({i * 0.04, 1.0});
    object->SetKeys(kDelayId, keys.data(), kKeys);
    const auto step = [&](int i) {
        const UNDO_STYLE style = stack.begin(L"Key");
        setDelay(i + 2.0);
        stack.end(style);
    };
    static_assert(1000 * kKeys * sizeof(DSKey) > UndoStack::kKeptBytes);
    for (int i = 0; i < 1000; ++i) step(i);
    EXPECT_EQ(stack.undoCount(), 1000u) << "so many are kept, whatever they hold";
    EXPECT_GT(stack.undoBytes(), UndoStack::kKeptBytes);
    stack.undo();
    stack.redo();
    for (int i = 1000; i < 1010; ++i) step(i);
    EXPECT_EQ(stack.undoCount(), 1000u);
    while (stack.undo() == S_OK) {
    }
    EXPECT_EQ(readState(*object, kDelayId).keys.front().value, 11.0) << "of the tenth step";
    EXPECT_FALSE(stack.isSaved()) << "the initial state can't be reached";
}

/// Makes a step of its own when it is notified of all properties.
class Intruder final : public ComObject<IDSPropertyObserver> {
public:
    Intruder(UndoStack& stack, CopyEffect& object) : stack_(stack), object_(object) {}
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        if (!(id == GUID_AllProperties)) return S_OK;
        const UndoBracket bracket(stack_, L"Intruder");
        const VARIANT value = DSVariantFromBool(true);
        return stack_.write({&kInvertId, 1},
                            [&] { return object_.SetValue(kInvertId, 0.0, &value); });
    }

private:
    UndoStack& stack_;
    CopyEffect& object_;
};

TEST_F(Undo, AnObserverMayChangePropertiesWhileAStepIsUndone) {
    liftStep(1);
    liftStep(2);
    Intruder intruder(stack, *object);
    ULONG cookie = 0;
    object->Advise(&intruder, &cookie);
    EXPECT_EQ(stack.undo(), S_OK);
    object->Unadvise(cookie);
    EXPECT_EQ(lift(), 1);
    EXPECT_EQ(stack.undoName(), L"Intruder");
    EXPECT_EQ(stack.undoCount(), 2u);
    EXPECT_EQ(stack.redoCount(), 0u) << "the observer's step replaces it";
    stack.undo();
    stack.undo();
    EXPECT_EQ(lift(), 0);
    EXPECT_EQ(readState(*object, kInvertId).plain.lVal, 0);
}

}  // namespace
}  // namespace ruvex::runtime::test
