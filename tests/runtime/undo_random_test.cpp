// Random edits, brackets, undo and redo against a plain model that keeps full copies of all states.

#include <gtest/gtest.h>
#include <optional>
#include <set>

#include "runtime/undo_stack.h"
#include "tests/runtime/edited_object.h"

namespace ruvex::runtime::test {
namespace {

/// All states before and after a step; `version` numbers the state after it.
struct ModelStep {
    States before;
    States after;
    int versionBefore;
    int version;
    std::uint64_t mergeKey;
    double ended;
    std::set<int> written;  ///< Indices of properties.
};

class UndoModel {
public:
    explicit UndoModel(States initial) : current(std::move(initial)) {}

    void begin(std::uint64_t mergeKey, double now) {
        if (brackets_.empty()) {
            key_ = mergeKey;
            begun_ = now;
            written_.clear();
        }
        brackets_.push_back(current);
    }
    void wrote(int property, States after) {
        written_.insert(property);
        current = std::move(after);
    }
    void cancel(double now) {
        current = brackets_.back();
        end(now);
    }
    void end(double now) {
        const States before = brackets_.front();
        brackets_.pop_back();
        if (!brackets_.empty() || sameStates(before, current)) return;
        if (merges()) {
            ModelStep& top = undo.back();
            top.after = current;
            top.ended = now;
            if (sameStates(top.before, current)) {
                version_ = top.versionBefore;
                undo.pop_back();
                mayMerge_ = false;
            }
            return;
        }
        redo.clear();
        undo.push_back({before, current, version_, ++lastVersion_, key_, now, written_});
        version_ = lastVersion_;
        mayMerge_ = true;
    }
    void undoStep() {
        mayMerge_ = mayMerge_ && undo.empty();
        if (undo.empty()) return;
        current = undo.back().before;
        version_ = undo.back().versionBefore;
        redo.push_back(undo.back());
        undo.pop_back();
    }
    void redoStep() {
        mayMerge_ = mayMerge_ && redo.empty();
        if (redo.empty()) return;
        current = redo.back().after;
        version_ = redo.back().version;
        undo.push_back(redo.back());
        redo.pop_back();
    }
    void save() {
        saved_ = version_;
        mayMerge_ = false;
    }
    bool isSaved() const {
        return saved_ == version_ && (brackets_.empty() || sameStates(brackets_.front(), current));
    }
    std::size_t depth() const { return brackets_.size(); }

    States current;
    std::vector<ModelStep> undo;
    std::vector<ModelStep> redo;

private:
    bool merges() const {
        return mayMerge_ && !undo.empty() && key_ != 0 && undo.back().mergeKey == key_ &&
               begun_ - undo.back().ended < 0.7 && undo.back().written == written_;
    }

    std::vector<States> brackets_;
    std::uint64_t key_ = 0;
    double begun_ = 0.0;
    std::set<int> written_;
    int version_ = 0;
    int lastVersion_ = 0;
    int saved_ = 0;
    bool mayMerge_ = false;
};

class RandomEdits {
public:
    explicit RandomEdits(unsigned seed) : random_(seed) {}

    void run(int edits) {
        for (int i = 0; i < edits; ++i) {
            now_ += 0.1 * static_cast<double>(random_() % 5);
            step();
            if (testing::Test::HasFailure()) return;
            ASSERT_TRUE(sameStates(readStates(*object_), model_.current)) << "edit " << i;
            ASSERT_EQ(stack_.undoCount(), model_.undo.size()) << "edit " << i;
            ASSERT_EQ(stack_.redoCount(), model_.redo.size()) << "edit " << i;
            ASSERT_EQ(stack_.isSaved(), model_.isSaved()) << "edit " << i;
            ASSERT_EQ(stack_.isRecording(), model_.depth() > 0) << "edit " << i;
        }
    }

private:
    void step() {
        const unsigned kind = random_() % 12;
        if (kind < 5 && model_.depth() > 0) return write();
        if (kind < 7 && model_.depth() < 3) return begin();
        if (kind < 9 && model_.depth() > 0) return end(kind == 8);
        if (kind == 11 && random_() % 4 == 0 && model_.depth() == 0) {
            stack_.markSaved();
            return model_.save();
        }
        if (model_.depth() > 0) return;
        ChangeCounter changes(*object_);
        if (kind % 2 == 0) {
            EXPECT_EQ(stack_.undo(), model_.undo.empty() ? S_FALSE : S_OK);
            EXPECT_EQ(changes.all, model_.undo.empty() ? 0 : 1);
            model_.undoStep();
        } else {
            EXPECT_EQ(stack_.redo(), model_.redo.empty() ? S_FALSE : S_OK);
            EXPECT_EQ(changes.all, model_.redo.empty() ? 0 : 1);
            model_.redoStep();
        }
    }

    void begin() {
        const std::uint64_t mergeKey = random_() % 3;
        styles_.push_back(stack_.begin(L"Edit", mergeKey));
        model_.begin(mergeKey, now_);
    }

    void end(bool cancel) {
        const UNDO_STYLE style = styles_.back();
        styles_.pop_back();
        EXPECT_EQ(cancel ? stack_.cancel(style) : stack_.end(style), S_OK);
        cancel ? model_.cancel(now_) : model_.end(now_);
    }

    void write() {
        const int property = static_cast<int>(random_() % 3);
        const GUID id = property == 0 ? kDelayId : property == 1 ? kLiftId : kInvertId;
        EXPECT_EQ(stack_.write({&id, 1}, [&] { return change(property, id); }), S_OK);
        model_.wrote(property, readStates(*object_));
    }

    HRESULT change(int property, const GUID& id) {
        if (property == 0 && random_() % 3 == 0) {
            const std::vector<DSKey> keys = randomKeys(random_, 3);
            const HRESULT status =
                object_->SetKeys(id, keys.data(), static_cast<ULONG>(keys.size()));
            return status == S_FALSE ? S_OK : status;
        }
        // Few values, so that some edits change nothing.
        const LONG whole = static_cast<LONG>(random_() % 3);
        const VARIANT values[] = {DSVariantFromReal(whole == 0 ? -0.0 : randomReal(random_)),
                                  DSVariantFromLong(whole), DSVariantFromBool(whole == 0)};
        return object_->SetValue(id, 0.5 * (random_() % 4), &values[property]);
    }

    std::mt19937 random_;
    double now_ = 0.0;
    ComPtr<CopyEffect> object_ = makeEditedObject();
    UndoStack stack_{object_, [this] { return now_; }};
    UndoModel model_{readStates(*object_)};
    std::vector<UNDO_STYLE> styles_;
};

TEST(RandomUndo, AgreesWithFullCopiesOfAllStates) {
    for (unsigned seed = 1; seed <= 25; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomEdits(seed).run(1000);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace ruvex::runtime::test
