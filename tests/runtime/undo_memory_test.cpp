// Running out of memory at each allocation of a bracket, a write, undo and redo.

#include <gtest/gtest.h>

#include "runtime/undo_stack.h"
#include "tests/runtime/edited_object.h"
#include "tests/support/watched_new.h"

namespace ruvex::runtime::test {
namespace {

using ruvex::test::FailingNew;

/// An object with keys, and a stack with a step to undo and one to redo.
struct EditedStack {
    ComPtr<CopyEffect> object = makeEditedObject();
    UndoStack stack{object, [] { return 0.0; }};

    EditedStack() {
        const DSKey keys[] = {{0.0, 1.0}, {1.0, 2.0}};
        object->SetKeys(kDelayId, keys, 2);
        for (const double value : {5.0, 6.0}) {
            const UndoBracket bracket(stack, L"A name that needs memory of its own, being long");
            EXPECT_EQ(write(value), S_OK);
        }
        EXPECT_EQ(stack.undo(), S_OK);
    }

    HRESULT write(double value) {
        const VARIANT variant = DSVariantFromReal(value);
        return stack.write({&kDelayId, 1},
                           [&] { return object->SetValue(kDelayId, 0.5, &variant); });
    }
};

/// Runs `operation`, on a new stack each time, with each of its allocations failing in turn. A
/// failure says E_OUTOFMEMORY and leaves the object and the steps as they were. Gives the number of
/// failures.
template <class Operation>
int failEachAllocation(Operation operation) {
    int failures = 0;
    bool failed = true;
    for (std::size_t failing = 1; failed; ++failing) {
        EditedStack edited;
        const States before = readStates(*edited.object);
        HRESULT status = S_OK;
        {
            const FailingNew memory(failing);
            status = operation(edited);
            failed = memory.failed();
        }
        if (status == S_OK) continue;
        ++failures;
        EXPECT_EQ(status, E_OUTOFMEMORY) << "allocation " << failing;
        EXPECT_TRUE(sameStates(readStates(*edited.object), before)) << "allocation " << failing;
        EXPECT_EQ(edited.stack.undoCount(), 1u) << "allocation " << failing;
        EXPECT_EQ(edited.stack.redoCount(), 1u) << "allocation " << failing;
        EXPECT_EQ(edited.stack.undo(), S_OK) << "allocation " << failing;
        EXPECT_EQ(edited.stack.redo(), S_OK) << "allocation " << failing;
        EXPECT_TRUE(sameStates(readStates(*edited.object), before)) << "allocation " << failing;
    }
    return failures;
}

TEST(UndoInLittleMemory, UndoAndRedoChangeNothingThatTheyCannotFinish) {
    EXPECT_GE(failEachAllocation([](EditedStack& edited) { return edited.stack.undo(); }), 4);
    EXPECT_GE(failEachAllocation([](EditedStack& edited) { return edited.stack.redo(); }), 4);
}

TEST(UndoInLittleMemory, ABracketThatCannotBeginIsNotOpen) {
    const auto begin = [](EditedStack& edited) {
        try {
            edited.stack.end(edited.stack.begin(L"Another name that needs memory of its own"));
        } catch (const std::bad_alloc&) {
            return edited.stack.isRecording() ? E_FAIL : E_OUTOFMEMORY;
        }
        return S_OK;
    };
    EXPECT_GE(failEachAllocation(begin), 2);
}

TEST(UndoInLittleMemory, AWriteThatCannotBeRecordedIsNotMade) {
    int failures = 0;
    bool failed = true;
    for (std::size_t failing = 1; failed; ++failing) {
        EditedStack edited;
        const States before = readStates(*edited.object);
        const UNDO_STYLE style = edited.stack.begin(L"Write");
        HRESULT status = S_OK;
        {
            const FailingNew memory(failing);
            status = edited.write(9.0);
            failed = memory.failed();
        }
        EXPECT_EQ(edited.stack.end(style), S_OK);
        EXPECT_TRUE(status == S_OK || status == E_OUTOFMEMORY) << "allocation " << failing;
        EXPECT_EQ(edited.stack.undoCount(), status == S_OK ? 2u : 1u) << "allocation " << failing;
        EXPECT_EQ(edited.stack.redoCount(), status == S_OK ? 0u : 1u) << "allocation " << failing;
        EXPECT_EQ(sameStates(readStates(*edited.object), before), status != S_OK);
        failures += status != S_OK;
    }
    EXPECT_GE(failures, 3);
}

TEST(UndoInLittleMemory, AnEndKeepsTheStep) {
    bool failed = true;
    for (std::size_t failing = 1; failed; ++failing) {
        EditedStack edited;
        const States before = readStates(*edited.object);
        const UNDO_STYLE style = edited.stack.begin(L"Write");
        EXPECT_EQ(edited.write(9.0), S_OK);
        {
            const FailingNew memory(failing);
            EXPECT_EQ(edited.stack.end(style), S_OK);
            failed = memory.failed();
        }
        EXPECT_FALSE(edited.stack.isRecording());
        EXPECT_EQ(edited.stack.undoCount(), 2u) << "allocation " << failing;
        EXPECT_EQ(edited.stack.undo(), S_OK);
        EXPECT_TRUE(sameStates(readStates(*edited.object), before)) << "allocation " << failing;
    }
}

TEST(UndoInLittleMemory, ACancelThatFailsEndsTheBracketWithItsChanges) {
    int failures = 0;
    bool failed = true;
    for (std::size_t failing = 1; failed; ++failing) {
        EditedStack edited;
        const States before = readStates(*edited.object);
        const UNDO_STYLE style = edited.stack.begin(L"Drag");
        EXPECT_EQ(edited.write(9.0), S_OK);
        const States after = readStates(*edited.object);
        HRESULT status = S_OK;
        {
            const FailingNew memory(failing);
            status = edited.stack.cancel(style);
            failed = memory.failed();
        }
        EXPECT_FALSE(edited.stack.isRecording());
        const bool cancelled = status == S_OK;
        EXPECT_TRUE(sameStates(readStates(*edited.object), cancelled ? before : after));
        failures += !cancelled;
        if (cancelled) continue;
        EXPECT_EQ(status, E_OUTOFMEMORY) << "allocation " << failing;
        EXPECT_EQ(edited.stack.undo(), S_OK);
        EXPECT_TRUE(sameStates(readStates(*edited.object), before)) << "allocation " << failing;
    }
    EXPECT_GE(failures, 3);
}

}  // namespace
}  // namespace ruvex::runtime::test
