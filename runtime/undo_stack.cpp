#include "runtime/undo_stack.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "runtime/error.h"

namespace ruvex::runtime {

double steadySeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

std::size_t UndoStack::Step::bytes() const {
    std::size_t sum = sizeof(Step) + name.size() * sizeof(wchar_t);
    for (const Change& change : changes) {
        sum += sizeof(Change) + change.other.keys.size() * sizeof(DSKey);
    }
    return sum;
}

UndoStack::UndoStack(ComPtr<IDSProperties> properties, UndoClock clock)
    : properties_(std::move(properties)), clock_(std::move(clock)) {}

UNDO_STYLE UndoStack::begin(std::wstring name, std::uint64_t mergeKey) {
    Steps step;
    if (brackets_.empty()) step.push_back({std::move(name), mergeKey, clock_()});
    // 0 and 1 are no brackets.
    const UNDO_STYLE style = std::max<UNDO_STYLE>(lastStyle_ + 1, DSUNDO_OWN_STEP + 1);
    brackets_.push_back({style});
    open_.splice(open_.end(), step);
    return lastStyle_ = style;
}

HRESULT UndoStack::end(UNDO_STYLE style) {
    if (brackets_.empty() || brackets_.back().style != style) return E_INVALIDARG;
    close(style);
    return S_OK;
}

void UndoStack::close(UNDO_STYLE style) {
    for (Bracket& bracket : brackets_) {
        if (bracket.style == style) bracket.closed = true;
    }
    while (!brackets_.empty() && brackets_.back().closed) endInnermost();
}

HRESULT UndoStack::cancel(UNDO_STYLE style) {
    if (brackets_.empty() || brackets_.back().style != style) return E_INVALIDARG;
    const HRESULT status = guardedStatus([&] { return restoreInnermost(); });
    close(style);
    return status;
}

bool UndoStack::isOpen(UNDO_STYLE style) const {
    return std::ranges::any_of(brackets_, [&](const Bracket& bracket) {
        return bracket.style == style && !bracket.closed;
    });
}

HRESULT UndoStack::write(std::span<const GUID> ids, const std::function<HRESULT()>& change) {
    if (brackets_.empty()) return E_UNEXPECTED;
    const HRESULT status = guardedStatus([&] {
        for (const GUID& id : ids) record(id);
        return S_OK;
    });
    return FAILED(status) ? status : change();
}

/// Keeps the state of a property before its first change in the innermost bracket.
void UndoStack::record(const GUID& id) {
    std::vector<Change>& changes = open_.back().changes;
    const std::size_t depth = brackets_.size();
    const bool recorded = std::ranges::any_of(changes, [&](const Change& change) {
        return change.depth == depth && change.other.id == id;
    });
    if (!recorded) changes.push_back({readState(*properties_, id), depth});
}

void UndoStack::endInnermost() {
    if (brackets_.size() > 1) {
        joinOuterBracket();
        brackets_.pop_back();
    } else {
        brackets_.pop_back();
        endStep();
    }
}

/// Of the changes of one property, the outer bracket keeps the first, which has the oldest state.
void UndoStack::joinOuterBracket() {
    std::vector<Change>& changes = open_.back().changes;
    const std::size_t outer = brackets_.size() - 1;
    auto kept = changes.begin();
    for (Change& change : changes) {
        change.depth = std::min(change.depth, outer);
        const bool repeated = std::any_of(changes.begin(), kept, [&](const Change& earlier) {
            return earlier.depth == change.depth && earlier.other.id == change.other.id;
        });
        if (repeated) continue;
        if (&*kept != &change) *kept = std::move(change);
        ++kept;
    }
    changes.erase(kept, changes.end());
}

void UndoStack::endStep() {
    Steps ended;
    ended.splice(ended.end(), open_);
    Step& step = ended.back();
    if (!hasChanged(step)) return;
    step.ended = clock_();
    if (!merges(step)) return push(ended);
    Step& previous = undo_.back();
    previous.ended = step.ended;
    if (hasChanged(previous)) return;
    bytes_ -= previous.bytes();
    undo_.pop_back();
    mayMerge_ = false;
}

void UndoStack::push(Steps& ended) {
    if (saved_ && *saved_ > undo_.size()) saved_.reset();
    redo_.clear();
    bytes_ += ended.back().bytes();
    undo_.splice(undo_.end(), ended);
    mayMerge_ = true;
    while (undo_.size() > kKeptSteps && bytes_ > kKeptBytes) dropOldest();
}

void UndoStack::dropOldest() {
    bytes_ -= undo_.front().bytes();
    undo_.pop_front();
    if (saved_ == std::size_t{0}) {
        saved_.reset();
    } else if (saved_) {
        --*saved_;
    }
}

/// Whether a property of the step has other bits now than before the step. Without memory to find
/// out: yes.
bool UndoStack::hasChanged(const Step& step) const {
    // Of the changes of one property in nested brackets, the first has the state before the step.
    const auto isFirst = [&](const Change& change) {
        const auto hasSameId = [&](const Change& other) {
            return other.other.id == change.other.id;
        };
        return &*std::ranges::find_if(step.changes, hasSameId) == &change;
    };
    try {
        return std::ranges::any_of(step.changes, [&](const Change& change) {
            return isFirst(change) &&
                   !sameBits(readState(*properties_, change.other.id), change.other);
        });
    } catch (...) {
        return true;
    }
}

bool UndoStack::merges(const Step& step) const {
    if (!mayMerge_ || undo_.empty() || step.mergeKey == 0) return false;
    const Step& previous = undo_.back();
    if (previous.mergeKey != step.mergeKey || step.begun - previous.ended >= kMergeSeconds) {
        return false;
    }
    return std::ranges::is_permutation(
        step.changes, previous.changes,
        [](const Change& a, const Change& b) { return a.other.id == b.other.id; });
}

HRESULT UndoStack::undo() {
    return exchange(undo_, redo_);
}

HRESULT UndoStack::redo() {
    return exchange(redo_, undo_);
}

HRESULT UndoStack::exchange(Steps& from, Steps& to) {
    if (isRecording()) return E_UNEXPECTED;
    if (from.empty()) return S_FALSE;
    return guardedStatus([&] {
        const std::vector<Change>& changes = from.back().changes;
        std::vector<PropertyState> present;
        std::vector<DSPropertyState> views;
        for (const Change& change : changes) {
            present.push_back(readState(*properties_, change.other.id));
            views.push_back(viewOf(change.other));
        }
        // The step moves first, so that observers find it in its new place. The key frames of the
        // views stay where they are when states are exchanged.
        const bool couldMerge = std::exchange(mayMerge_, false);
        moveLast(from, to, present);
        const HRESULT status =
            properties_->SetStates(views.data(), static_cast<ULONG>(views.size()));
        if (FAILED(status)) {
            moveLast(to, from, present);
            mayMerge_ = couldMerge;
        }
        return status;
    });
}

/// Moves a step, and exchanges its states with `states`. Needs no memory.
void UndoStack::moveLast(Steps& from, Steps& to, std::vector<PropertyState>& states) {
    Step& step = from.back();
    if (&from == &undo_) bytes_ -= step.bytes();
    for (std::size_t i = 0; i < states.size(); ++i) std::swap(step.changes[i].other, states[i]);
    if (&to == &undo_) bytes_ += step.bytes();
    to.splice(to.end(), from, std::prev(from.end()));
}

/// Writes the states that the properties had at the beginning of the innermost bracket.
HRESULT UndoStack::restoreInnermost() {
    const std::vector<Change>& changes = open_.back().changes;
    std::vector<PropertyState> states;
    for (const Change& change : changes) {
        if (change.depth == brackets_.size()) states.push_back(change.other);
    }
    const std::vector<DSPropertyState> views = viewsOf(states);
    return properties_->SetStates(views.data(), static_cast<ULONG>(views.size()));
}

std::wstring UndoStack::undoName() const {
    return undo_.empty() ? std::wstring() : undo_.back().name;
}

std::wstring UndoStack::redoName() const {
    return redo_.empty() ? std::wstring() : redo_.back().name;
}

void UndoStack::markSaved() {
    saved_ = undo_.size();
    mayMerge_ = false;
}

bool UndoStack::isSaved() const {
    return saved_ == undo_.size() && (open_.empty() || !hasChanged(open_.back()));
}

void UndoStack::clear() {
    if (!isSaved()) saved_.reset();
    if (saved_) saved_ = 0;
    undo_.clear();
    redo_.clear();
    for (Step& step : open_) step.changes.clear();
    bytes_ = 0;
    mayMerge_ = false;
}

}  // namespace ruvex::runtime
