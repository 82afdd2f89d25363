// Undo and redo of the changes of an object's properties.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "runtime/property_state.h"
#include "sdk/com/com_ptr.h"
#include "sdk/pages/undo_style.h"

namespace ruvex::runtime {

/// Gives a time in seconds that never decreases.
using UndoClock = std::function<double()>;

/// The system's steady clock.
double steadySeconds();

/// Records the changes that are made inside brackets. A bracket with its changes is a step, which
/// can be undone and redone; the changes of nested brackets belong to the outermost one. Undoing
/// restores the plain values and key frames of the step's properties bit for bit, and notifies
/// observers once (GUID_AllProperties).
///
/// A step without changes, or after which all its properties have the same bits as before, is
/// dropped and leaves the steps that can be redone.
///
/// One thread. Observers of the properties may call every function during a notification.
class UndoStack {
public:
    /// The oldest steps are dropped only while there are more steps than this that can be undone,
    /// and they hold more bytes than this.
    static constexpr std::size_t kKeptSteps = 1000;
    static constexpr std::size_t kKeptBytes = std::size_t{64} << 20;
    /// Steps that may merge have to follow each other in less than this, from the end of one to the
    /// beginning of the next.
    static constexpr double kMergeSeconds = 0.7;

    explicit UndoStack(ComPtr<IDSProperties> properties, UndoClock clock = steadySeconds);

    /// Begins a bracket and gives its style, which is above 1. The name and merge key of the
    /// outermost bracket are the step's. A step with a merge key other than 0 merges with the step
    /// before it if that has the same key and the same properties, has just ended (kMergeSeconds),
    /// and nothing was undone, redone or saved in between.
    UNDO_STYLE begin(std::wstring name, std::uint64_t mergeKey = 0);
    /// Ends a bracket. E_INVALIDARG if it is not the innermost one.
    HRESULT end(UNDO_STYLE style);
    /// Undoes the changes of the innermost bracket and ends it. E_INVALIDARG for another bracket.
    /// If there is no memory for that, the bracket ends with its changes, and the result is
    /// E_OUTOFMEMORY.
    HRESULT cancel(UNDO_STYLE style);
    /// Ends a bracket as soon as the brackets inside it have ended. Does nothing if it is not open.
    void close(UNDO_STYLE style);
    bool isOpen(UNDO_STYLE style) const;
    bool isRecording() const { return !brackets_.empty(); }

    /// Calls `change`, which changes these properties, as a part of the innermost bracket, and
    /// gives its status. Without calling it: E_UNEXPECTED if no bracket is open, E_INVALIDARG for
    /// an unknown identifier, E_OUTOFMEMORY. The identifiers must not be aliases.
    HRESULT write(std::span<const GUID> ids, const std::function<HRESULT()>& change);

    /// S_FALSE if there is no step to undo or redo, E_UNEXPECTED inside a bracket. Any other
    /// failure, for lack of memory, changes nothing.
    HRESULT undo();
    HRESULT redo();

    std::size_t undoCount() const { return undo_.size(); }
    std::size_t redoCount() const { return redo_.size(); }
    /// The name of the step that is undone or redone next; empty if there is none.
    std::wstring undoName() const;
    std::wstring redoName() const;
    /// The memory of the steps that can be undone, about.
    std::size_t undoBytes() const { return bytes_; }

    /// Marks the present state as the saved one.
    void markSaved();
    /// Whether the present state is the saved one, or at first the initial one. False for good, up
    /// to the next markSaved, if that state can't be reached by undo and redo any more.
    bool isSaved() const;

    /// Drops all steps. Brackets stay open, without the changes so far.
    void clear();

private:
    /// A change holds the state of its property at the other side of the step: before it while the
    /// step can be undone, after it while it can be redone.
    struct Change {
        PropertyState other;
        std::size_t depth;  ///< The number of open brackets when it was recorded.
    };
    struct Step {
        std::wstring name;
        std::uint64_t mergeKey = 0;
        double begun = 0.0;
        double ended = 0.0;
        std::vector<Change> changes{};

        std::size_t bytes() const;
    };
    struct Bracket {
        UNDO_STYLE style;
        bool closed = false;
    };
    /// Lists, since moving a step from one to another needs no memory.
    using Steps = std::list<Step>;

    void record(const GUID& id);
    void endInnermost();
    void joinOuterBracket();
    void endStep();
    void push(Steps& ended);
    void dropOldest();
    bool hasChanged(const Step& step) const;
    bool merges(const Step& step) const;
    HRESULT exchange(Steps& from, Steps& to);
    void moveLast(Steps& from, Steps& to, std::vector<PropertyState>& states);
    HRESULT restoreInnermost();

    ComPtr<IDSProperties> properties_;
    UndoClock clock_;
    std::vector<Bracket> brackets_;
    UNDO_STYLE lastStyle_ = DSUNDO_OWN_STEP;
    Steps open_;  ///< One step while a bracket is open.
    Steps undo_;  ///< The next to undo last.
    Steps redo_;  ///< The next to redo last.
    std::size_t bytes_ = 0;
    bool mayMerge_ = false;
    std::optional<std::size_t> saved_ = 0;  ///< The number of steps before the saved state.
};

/// A bracket as long as it lives.
class UndoBracket {
public:
    UndoBracket(UndoStack& stack, std::wstring name) : stack_(stack), style_(stack.begin(name)) {}
    ~UndoBracket() { stack_.close(style_); }
    UndoBracket(const UndoBracket&) = delete;
    UndoBracket& operator=(const UndoBracket&) = delete;

private:
    UndoStack& stack_;
    UNDO_STYLE style_;
};

}  // namespace ruvex::runtime
