// The host's base class of pages: the life of a page, and damaged resources.

#include <cstring>
#include <limits>

#include "pages/resources/resource_ids.h"
#include "pages/resources/resources.h"
#include "sdk/resources/byte_reader.h"
#include "sdk/resources/resource_file.h"
#include "tests/pages/page_test.h"
#include "tests/pages/probe_page.h"

namespace ruvex::test {
namespace {

class BasePage : public testing::Test {
protected:
    static void SetUpTestSuite() { attachModule(); }

    ComPtr<ScriptedObject> object = ComPtr<ScriptedObject>::attach(new ScriptedObject);
    ComPtr<ScriptedSite> site = ComPtr<ScriptedSite>::attach(new ScriptedSite(*object));
    ComPtr<ProbePage> page = ComPtr<ProbePage>::attach(new ProbePage);
};

TEST_F(BasePage, IsFoundThroughItsInterfaces) {
    for (const GUID& id :
         {IID_IUnknown, IID_IPropertyPage, IID_IDsPropertyPage, IID_IDSPropertyObserver}) {
        ComPtr<IUnknown> found;
        EXPECT_EQ(page->QueryInterface(id, found.putVoid()), S_OK);
    }
    void* none = &none;
    EXPECT_EQ(page->QueryInterface(IID_IDSPageSite, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(page->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(BasePage, WithoutItsDialogItRefusesWhatNeedsOne) {
    const RECT place{0, 0, 10, 10};
    EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(page->Move(&place), E_UNEXPECTED);
    EXPECT_EQ(page->Move(nullptr), E_POINTER);
    EXPECT_EQ(page->Deactivate(), S_FALSE);
    HWND window = reinterpret_cast<HWND>(1);
    EXPECT_EQ(page->GetPageWindow(&window), S_OK);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(page->GetPageWindow(nullptr), E_POINTER);
    EXPECT_EQ(page->GetPageInfo(nullptr), E_POINTER);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(page->Apply(), S_OK);
}

TEST_F(BasePage, RefusesObjectsAndSitesOutOfTurn) {
    IUnknown* const inspected[] = {object.get(), nullptr};
    EXPECT_EQ(page->SetObjects(1, nullptr), E_POINTER);
    EXPECT_EQ(page->SetObjects(2, const_cast<IUnknown**>(inspected)), E_POINTER);
    EXPECT_EQ(page->GetObjectCount(), 0u) << "none of them";
    EXPECT_EQ(page->SetPageSite(
                  reinterpret_cast<IPropertyPageSite*>(static_cast<IUnknown*>(object.get()))),
              E_NOINTERFACE);
    page->start(*object, site.get());
    EXPECT_EQ(page->SetPageSite(site.get()), E_UNEXPECTED) << "a second one";
    EXPECT_EQ(page->Activate(nullptr, nullptr, FALSE), E_UNEXPECTED);
    page->stop();
}

TEST_F(BasePage, TakesItsPlace) {
    page->start(*object, site.get());
    const RECT place{10, 20, 200, 180};
    EXPECT_EQ(page->Move(&place), S_OK);
    EXPECT_EQ(DSGetWindowState(page->GetHwndDialog())->rect, (DSDialogRect{10, 20, 190, 160}));
    constexpr LONG kFar = std::numeric_limits<LONG>::max();
    for (const RECT& wrong :
         {RECT{-kFar, 0, kFar, 10}, RECT{0, 10, 10, 0}, RECT{0, 0, 10, 40000}}) {
        EXPECT_EQ(page->Move(&wrong), E_INVALIDARG);
    }
    page->stop();
}

TEST_F(BasePage, WithoutASiteItWritesToTheObjectItself) {
    page->start(*object, nullptr);
    page->BeginPageUndo();
    page->seed.Set(12);
    page->EndPageUndo();
    ASSERT_EQ(object->writes.size(), 1u);
    EXPECT_EQ(object->writes[0].seconds, 0.0);
    DSNumberControlOf(page->GetHwndControl(IDC_SEED))->beginDrag();
    DSNumberControlOf(page->GetHwndControl(IDC_SEED))->drag(8);
    DSNumberControlOf(page->GetHwndControl(IDC_SEED))->endDrag();
    EXPECT_EQ(page->seed.value, 16);
    page->stop();
    // Without an object neither.
    EXPECT_EQ(page->SetPlainProperty(page->seed.property, nullptr, nullptr, 1), E_POINTER);
    const VARIANT value = DSVariantFromLong(1);
    EXPECT_EQ(page->SetPlainProperty(page->seed.property, &value, nullptr, 1), E_UNEXPECTED);
    VARIANT read{};
    EXPECT_EQ(page->GetPlainProperty(page->seed.property, &read, nullptr), E_UNEXPECTED);
}

TEST_F(BasePage, WithoutASiteACancelledDragWritesTheFirstValueBack) {
    page->start(*object, nullptr);
    page->seed.Set(12);
    const auto number = DSNumberControlOf(page->GetHwndControl(IDC_SEED));
    number->beginDrag();
    number->drag(8);
    EXPECT_EQ(page->seed.value, 16);
    number->revert();
    EXPECT_EQ(number->value(), 12.0);
    EXPECT_EQ(page->seed.value, 12);
    EXPECT_EQ(object->values[page->seed.property].lVal, 12);
    page->stop();
}

TEST_F(BasePage, ABracketEndsAtTheSiteThatBeganIt) {
    page->start(*object, site.get());
    page->BeginPageUndo();
    page->stop();
    const auto other = ComPtr<ScriptedSite>::attach(new ScriptedSite(*object));
    page->start(*object, other.get());
    page->EndPageUndo();
    EXPECT_EQ(site->log, (std::vector<std::wstring>{L"begin V_Ruvex", L"end 7"}));
    EXPECT_TRUE(other->log.empty());
    page->stop();
}

TEST_F(BasePage, ClosingDuringADragEndsItsBracket) {
    page->start(*object, site.get());
    DSNumberControlOf(page->GetHwndControl(IDC_SEED))->beginDrag();
    page->stop();
    EXPECT_EQ(site->log, (std::vector<std::wstring>{L"begin Seed", L"end 7"}));
}

TEST_F(BasePage, ACommandMayCloseThePage) {
    page->start(*object, site.get());
    bool closed = false;
    const auto before = DSObserveWindows([&](HWND, DSWindowChange change) {
        if (closed || change != DSWindowChange::Changed) return;
        closed = true;
        page->stop();
    });
    DSChooseItem(page->GetHwndControl(IDC_TV_TYPE), 0);
    const auto number = DSNumberControlOf(page->GetHwndControl(IDC_SEED));
    if (number) number->step(1);
    DSObserveWindows(before);
    EXPECT_TRUE(closed);
}

TEST_F(BasePage, AnActivationThatClosesThePageFails) {
    object->values[page->masterBreakup.property] = DSVariantFromReal(1.0);
    int events = 0;
    for (int event = 1;; ++event) {
        events = 0;
        IUnknown* inspected = object.get();
        page->SetObjects(1, &inspected);
        const auto before = DSObserveWindows([&](HWND, DSWindowChange) {
            if (++events == event) page->Deactivate();
        });
        const HRESULT status = page->Activate(nullptr, nullptr, FALSE);
        DSObserveWindows(before);
        EXPECT_EQ(SUCCEEDED(status), page->GetHwndDialog() != nullptr) << event;
        page->stop();
        if (events < event) break;
    }
}

TEST_F(BasePage, AnotherTimeThanNowIsThatTime) {
    object->values[page->masterBreakup.property] = DSVariantFromReal(1.0);
    page->start(*object, site.get());
    site->time = 4.0;
    VARIANT value{};
    object->readTimes.clear();
    for (const double time : {-1.0, 0.0, 2.5}) {
        page->GetAnimatedProperty(page->masterBreakup.property, &value, nullptr, time);
    }
    EXPECT_EQ(object->readTimes, (std::vector<double>{4.0, 0.0, 2.5}));
    page->stop();
}

// Resources.

using Bytes = std::vector<unsigned char>;

/// The offsets of the type numbers of all records of a type.
std::vector<std::size_t> typeOffsets(const Bytes& file, ResourceType type) {
    std::vector<std::size_t> offsets;
    ByteReader reader(file);
    while (reader.remaining() > 0) {
        const std::size_t start = reader.position();
        const std::uint32_t dataSize = reader.u32();
        const std::uint32_t headerSize = reader.u32();
        const std::uint16_t mark = reader.u16();
        const std::uint16_t number = reader.u16();
        const bool wanted = mark == 0xFFFF && number == static_cast<std::uint16_t>(type);
        if (wanted) offsets.push_back(start + 10);
        ByteReader rest(std::span<const unsigned char>(file).subspan(start));
        rest.take(headerSize);
        rest.take(dataSize);
        rest.alignTo4();
        reader = ByteReader(file);
        reader.take(start + rest.position());
        if (rest.failed() || headerSize == 0) break;
    }
    return offsets;
}

/// Uses other resources as those of the module.
class OtherResources {
public:
    explicit OtherResources(const Bytes& bytes)
        : other_{bytes.data(), bytes.data() + bytes.size()}, own_(moduleInstance) {
        moduleInstance = &other_;
    }
    ~OtherResources() { moduleInstance = own_; }

private:
    DSModuleInstance other_;
    HINSTANCE own_;
};

class DamagedResources : public PageTest {
protected:
    /// The property map keeps the module's handle, so it is made before that is replaced.
    DamagedResources() { states(); }

    /// Opens all pages; gives how many could be opened. Lists without strings lack items.
    int openAll(bool withItems = true) {
        int opened = 0;
        for (const GUID& id : kPageIds) {
            try {
                const auto page = open(id);
                if (withItems) expectControlsShow(page, *editor);
                ++opened;
            } catch (const std::exception&) {
            }
        }
        return opened;
    }

    const Bytes whole{ruvexResourcesBegin, ruvexResourcesEnd};
};

TEST_F(DamagedResources, PagesOpenWithoutAnyBlockOfStrings) {
    const auto blocks = typeOffsets(whole, ResourceType::String);
    ASSERT_GT(blocks.size(), 10u);
    for (const std::size_t block : blocks) {
        Bytes bytes = whole;
        bytes[block] = 77;
        const OtherResources used(bytes);
        EXPECT_EQ(openAll(false), 8) << block;
    }
}

TEST_F(DamagedResources, APageWithoutItsDialogCannotBeOpened) {
    const auto dialogs = typeOffsets(whole, ResourceType::Dialog);
    ASSERT_EQ(dialogs.size(), 8u);
    for (const std::size_t dialog : dialogs) {
        Bytes bytes = whole;
        bytes[dialog] = 77;
        const OtherResources used(bytes);
        EXPECT_EQ(openAll(), 7);
    }
    const Bytes none;
    const OtherResources used(none);
    EXPECT_EQ(openAll(), 0);
}

}  // namespace
}  // namespace ruvex::test
