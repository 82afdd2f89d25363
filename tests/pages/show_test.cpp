// Showing a page, and its connection to the effect and the on-screen controls.

#include <algorithm>
#include <numeric>
#include <random>

#include "host/base/vx_ds_effect.h"
#include "sdk/com/com_object.h"
#include "sdk/com/guarded.h"
#include "tests/pages/page_test.h"
#include "tests/pages/probe_page.h"

namespace ruvex::test {
namespace {

/// An effect of the family that notes which page is in front.
class FamilyEffect final : public ComObject<IUnknown>, public VxDsEffect {
public:
    HRESULT QueryInterface(const GUID& id, void** out) override {
        if (id != kRuvexClassId && id != kVxDsEffectId) return ComObject::QueryInterface(id, out);
        *out = static_cast<VxDsEffect*>(this);
        AddRef();
        return S_OK;
    }

    void linkOverlay() override {}
    void pageActivated(const char* page, std::int32_t a, std::int32_t b) override {
        activated.push_back(page ? page : "(null)");
        EXPECT_EQ(a, 0);
        EXPECT_EQ(b, 0);
    }
    void updateOverlay() override {}
    HRESULT aggregationResult() override { return S_OK; }
    HRESULT extraVerify() override { return S_OK; }

    std::vector<std::string> activated;
};

/// A page over an object, in a base class whose Show fails if it is told to.
template <class Page>
class ShownPage {
public:
    explicit ShownPage(IUnknown* object) {
        EXPECT_EQ(page->SetObjects(object ? 1 : 0, &object), S_OK);
        EXPECT_EQ(page->Activate(nullptr, nullptr, FALSE), S_OK);
    }
    ~ShownPage() {
        page->Deactivate();
        page->SetObjects(0, nullptr);
    }

    ComPtr<Page> page = ComPtr<Page>::attach(new Page);
};

class PlainPage final : public VxDsPPG {
public:
    explicit PlainPage(const char* name = "plain") : VxDsPPG(2, 5, name) {}
};

class UnnamedPage final : public VxDsPPG {
public:
    UnnamedPage() : VxDsPPG(2, 5, nullptr) {}
};

class ShowPage : public testing::Test {
protected:
    static void SetUpTestSuite() { attachModule(); }
    ComPtr<FamilyEffect> effect = ComPtr<FamilyEffect>::attach(new FamilyEffect);
};

TEST_F(ShowPage, TellsTheEffectWhichPageIsInFront) {
    ShownPage<PlainPage> shown(effect.get());
    for (const UINT command : {SW_HIDE, SW_SHOWNA}) {
        EXPECT_EQ(shown.page->Show(command), S_OK);
        EXPECT_FALSE(shown.page->isShown) << command;
        EXPECT_TRUE(effect->activated.empty());
    }
    for (const UINT command : {SW_SHOWNORMAL, SW_SHOW}) {
        effect->activated.clear();
        EXPECT_EQ(shown.page->Show(command), S_OK);
        EXPECT_TRUE(shown.page->isShown);
        EXPECT_EQ(effect->activated, std::vector<std::string>{"plain"});
    }
    shown.page->Show(SW_HIDE);
    EXPECT_FALSE(shown.page->isShown);
    EXPECT_EQ(effect->activated.size(), 1u);
}

TEST_F(ShowPage, APageWithoutANameGivesNone) {
    ShownPage<UnnamedPage> shown(effect.get());
    shown.page->Show(SW_SHOW);
    EXPECT_EQ(effect->activated, std::vector<std::string>{"(null)"});
}

TEST_F(ShowPage, CallsTheHostTwice) {
    ShownPage<PlainPage> shown(effect.get());
    const HWND dialog = shown.page->GetHwndDialog();
    for (const UINT command : {SW_SHOWNORMAL, SW_HIDE, SW_SHOW}) {
        int calls = 0;
        // Undoes what the first call does, so that the second one has something to change.
        const auto before = DSObserveWindows([&](HWND window, DSWindowChange) {
            const bool isShown = DSGetWindowState(dialog)->shown();
            if (window != dialog || isShown != (command != SW_HIDE)) return;
            if (++calls == 1) ShowWindow(dialog, isShown ? SW_HIDE : SW_SHOW);
        });
        shown.page->Show(command);
        DSObserveWindows(before);
        EXPECT_EQ(calls, 2) << command;
    }
}

/// Its dialog goes while the effect is told that the page is in front, so that the second call of
/// the host's Show fails.
class VanishingEffect final : public ComObject<IUnknown>, public VxDsEffect {
public:
    HRESULT QueryInterface(const GUID& id, void** out) override {
        if (id != kRuvexClassId) return ComObject::QueryInterface(id, out);
        *out = static_cast<VxDsEffect*>(this);
        AddRef();
        return S_OK;
    }
    void linkOverlay() override {}
    void pageActivated(const char*, std::int32_t, std::int32_t) override { page->Deactivate(); }
    void updateOverlay() override {}
    HRESULT aggregationResult() override { return S_OK; }
    HRESULT extraVerify() override { return S_OK; }

    IPropertyPage* page = nullptr;
};

TEST_F(ShowPage, GivesTheFailureOfEitherCall) {
    ShownPage<PlainPage> shown(effect.get());
    EXPECT_EQ(shown.page->Show(77), E_INVALIDARG) << "the first call";
    EXPECT_TRUE(effect->activated.empty());
    const auto vanishing = ComPtr<VanishingEffect>::attach(new VanishingEffect);
    ShownPage<PlainPage> second(vanishing.get());
    vanishing->page = second.page.get();
    EXPECT_EQ(second.page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_TRUE(second.page->isShown) << "is not taken back";
}

TEST_F(ShowPage, WithoutAnEffectOfTheFamilyNothingIsLinked) {
    const auto other = ComPtr<ScriptedObject>::attach(new ScriptedObject);
    for (IUnknown* object :
         {static_cast<IUnknown*>(other.get()), static_cast<IUnknown*>(nullptr)}) {
        ShownPage<PlainPage> shown(object);
        EXPECT_FALSE(shown.page->effect);
        EXPECT_FALSE(shown.page->GetInteractiveTool());
        EXPECT_EQ(shown.page->Show(SW_SHOW), S_OK);
        EXPECT_EQ(shown.page->Help(L""), S_OK);
    }
}

TEST_F(ShowPage, OnlyTheFirstObjectIsLinked) {
    const auto second = ComPtr<FamilyEffect>::attach(new FamilyEffect);
    IUnknown* objects[] = {effect.get(), second.get()};
    const auto page = ComPtr<PlainPage>::attach(new PlainPage);
    ASSERT_EQ(page->SetObjects(2, objects), S_OK);
    ASSERT_EQ(page->Activate(nullptr, nullptr, FALSE), S_OK);
    EXPECT_EQ(page->effect, static_cast<VxDsEffect*>(effect.get()));
    EXPECT_EQ(page->SetObjects(0, nullptr), E_UNEXPECTED) << "while it is active";
    page->Deactivate();
    page->SetObjects(0, nullptr);
}

TEST_F(ShowPage, KeepsTheEffectUntilItIsDestroyed) {
    {
        ShownPage<PlainPage> shown(effect.get());
        EXPECT_EQ(effect->overlay.users(), 1) << "counted, although there is no tool";
        shown.page->Deactivate();
        EXPECT_EQ(effect->overlay.users(), 1);
        EXPECT_EQ(shown.page->Activate(nullptr, nullptr, FALSE), S_OK);
        EXPECT_EQ(effect->overlay.users(), 1) << "the first use has ended";
    }
    EXPECT_EQ(effect->overlay.users(), 0);
    effect->AddRef();
    EXPECT_EQ(effect->Release(), 1u) << "the page has let go of the effect";
}

TEST_F(ShowPage, APaintEffectIsNotCounted) {
    effect->effectKind = EffectKind::Paint;
    ShownPage<PlainPage> shown(effect.get());
    EXPECT_EQ(shown.page->effect, static_cast<VxDsEffect*>(effect.get()));
    EXPECT_EQ(effect->overlay.users(), 0);
    // A page whose use was not counted takes nothing away from another one.
    effect->effectKind = EffectKind::Filter;
    effect->beginOverlay(effect.get());
    shown.page->Deactivate();
    shown.page->SetObjects(0, nullptr);
    shown.page.reset();
    EXPECT_EQ(effect->overlay.users(), 1);
    effect->endOverlay();
    shown.page = ComPtr<PlainPage>::attach(new PlainPage);
}

class OverlayOfPages : public PageTest {
protected:
    const VxDsEffect& effect() const {
        void* found = nullptr;
        EXPECT_EQ(session->effect().QueryInterface(kRuvexClassId, &found), S_OK);
        session->effect().Release();
        return *static_cast<VxDsEffect*>(found);
    }
};

TEST_F(OverlayOfPages, APageFillsItsListsInOrderBeforeItIsLinked) {
    const std::vector<int> lists[] = {{1000, 1008}, {},           {},           {},
                                      {1100},       {1106, 1117}, {5004, 5005}, {}};
    const VxDsEffect& linked = effect();
    for (std::size_t i = 0; i < std::size(kPageIds); ++i) {
        std::vector<int> filled;
        const auto before = DSObserveWindows([&](HWND window, DSWindowChange) {
            const DSWindowState* const list = DSGetWindowState(window);
            if (linked.overlay.users() > 0 || !list || list->items.empty()) return;
            if (filled.empty() || filled.back() != list->id) filled.push_back(list->id);
        });
        const auto page = open(kPageIds[i]);
        DSObserveWindows(before);
        EXPECT_EQ(filled, lists[i]) << i;
        EXPECT_EQ(linked.overlay.users(), 1);
    }
}

TEST_F(OverlayOfPages, CountsThePagesInAnyOrder) {
    std::mt19937 random(7);
    const VxDsEffect& counting = effect();
    for (int round = 0; round < 200; ++round) {
        std::vector<int> order(8);
        std::iota(order.begin(), order.end(), 0);
        std::ranges::shuffle(order, random);
        std::vector<std::unique_ptr<runtime::OpenPage>> pages;
        for (const int i : order) {
            pages.push_back(open(kPageIds[i]));
            EXPECT_EQ(counting.overlay.users(), static_cast<int>(pages.size()));
        }
        std::ranges::shuffle(pages, random);
        while (!pages.empty()) {
            pages.pop_back();
            EXPECT_EQ(counting.overlay.users(), static_cast<int>(pages.size()));
        }
    }
}

TEST_F(OverlayOfPages, EveryPageAnswersTheAggregationAndItsResources) {
    for (const GUID& id : kPageIds) {
        const auto page = open(id);
        EXPECT_EQ(as<VxDsPPG>(page).aggregationResult(), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(as<VxDsPPG>(page).GetResourceInstance(), moduleInstance);
    }
}

}  // namespace
}  // namespace ruvex::test
