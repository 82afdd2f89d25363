// The order in which a page prepares its controls and links itself to its effect.

#include <algorithm>
#include <map>

#include "sdk/com/com_object.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {
namespace {

using Log = std::vector<std::string>;

/// A number control that notes its new ranges.
class NotingNumber final : public ComObject<IDSNumberControl> {
public:
    NotingNumber(int id, Log& log) : id_(id), log_(log) {}
    HRESULT SetRange(const VARIANT*, const VARIANT*) override {
        log_.push_back("range " + std::to_string(id_));
        return S_OK;
    }

private:
    int id_;
    Log& log_;
};

/// An object of no family that notes for what it is asked.
class AskedObject final : public ComObject<IUnknown> {
public:
    explicit AskedObject(Log& log) : log_(log) {}
    HRESULT QueryInterface(const GUID& id, void** out) override {
        if (id == kRuvexClassId) log_.push_back("link to the effect");
        if (id == kVxDsEffectId) log_.push_back("link to the family");
        return ComObject::QueryInterface(id, out);
    }

private:
    Log& log_;
};

/// What a page does to its controls while it is activated.
class Recording {
public:
    explicit Recording(const GUID& classId) {
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage,
                         page_.putVoid());
        IUnknown* object = object_.get();
        page_->SetObjects(1, &object);
        log.clear();
        const auto before = DSObserveWindows(
            [this](HWND window, DSWindowChange change) { onChange(window, change); });
        page_->Activate(nullptr, nullptr, FALSE);
        DSObserveWindows(before);
    }
    ~Recording() {
        page_->Deactivate();
        page_->SetObjects(0, nullptr);
    }

    Log log;

private:
    void onChange(HWND window, DSWindowChange change) {
        const DSWindowState* const state = DSGetWindowState(window);
        if (change != DSWindowChange::Changed || !state) return;
        if (state->className == "dsnewnumberctrl") listen(window, state->id);
        if (state->className == "combobox" && !state->items.empty()) {
            // Once for all items of a list.
            const std::string filled = "fill " + std::to_string(state->id);
            if (log.empty() || log.back() != filled) log.push_back(filled);
        }
    }

    /// Puts the noting control in the place of the host's.
    void listen(HWND window, int id) {
        if (!GetPropW(window, kDSControlInterface) || numbers_.contains(window)) return;
        const auto number = ComPtr<NotingNumber>::attach(new NotingNumber(id, log));
        numbers_[window] = number;
        SetPropW(window, kDSControlInterface, static_cast<IUnknown*>(number.get()));
    }

    ComPtr<AskedObject> object_ = ComPtr<AskedObject>::attach(new AskedObject(log));
    ComPtr<IPropertyPage> page_;
    std::map<HWND, ComPtr<NotingNumber>> numbers_;
};

Log withRanges(Log log, int first, int last) {
    for (int id = first; id <= last; ++id) log.push_back("range " + std::to_string(id));
    return log;
}

Log operator+(Log log, const char* entry) {
    log.emplace_back(entry);
    return log;
}

class InitOrder : public testing::Test {
protected:
    static void SetUpTestSuite() { attachModule(); }

    /// Of the steps up to the link; the values that are shown afterwards do not count.
    static Log logOf(const GUID& classId) {
        Log log = Recording(classId).log;
        const auto link = std::ranges::find_if(
            log, [](const std::string& entry) { return entry.starts_with("link"); });
        if (link != log.end()) log.erase(link + 1, log.end());
        return log;
    }
};

TEST_F(InitOrder, OfTheMainPage) {
    const Log before = withRanges({"fill 1000"}, 1001, 1007) + "fill 1008";
    EXPECT_EQ(logOf(kRuvexPageId), withRanges(before, 1011, 1013) + "link to the effect");
}

TEST_F(InitOrder, OfThePagesOfNumbers) {
    EXPECT_EQ(logOf(kGunsPageId), withRanges({}, 1063, 1071) + "link to the effect");
    EXPECT_EQ(logOf(kBreakup1PageId), withRanges({}, 1074, 1084) + "link to the effect");
    EXPECT_EQ(logOf(kBreakup2PageId), withRanges({}, 1087, 1098) + "link to the effect");
}

TEST_F(InitOrder, OfTheShashPage) {
    EXPECT_EQ(logOf(kShashPageId), withRanges({"fill 1100"}, 1101, 1103) + "link to the effect");
}

TEST_F(InitOrder, OfTheEffectsPage) {
    const Log before = withRanges(withRanges({}, 1105, 1105) + "fill 1106", 1107, 1112);
    EXPECT_EQ(logOf(kEffectsPageId),
              withRanges(before, 1114, 1115) + "fill 1117" + "link to the effect");
}

TEST_F(InitOrder, OfTheCropPageWhichAsksForAnyEffectOfTheFamily) {
    const Log before = withRanges({}, 5000, 5003) + "fill 5004" + "fill 5005";
    EXPECT_EQ(logOf(kCropPageId), withRanges(before, 5008, 5011) + "link to the family");
}

TEST_F(InitOrder, OfTheHelpPage) {
    EXPECT_EQ(logOf(kHelpPageId), Log{"link to the effect"});
}

}  // namespace
}  // namespace ruvex::test
