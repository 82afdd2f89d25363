#include "tests/pages/page_test.h"

#include <algorithm>
#include <random>

#include "host/module/entry_points.h"
#include "pages/resources/resources.h"
#include "sdk/com/module_table.h"

namespace ruvex::test {
namespace {

double randomValue(const ParameterRow& row, std::mt19937& random) {
    if (!row.choices.empty()) return static_cast<double>(random() % row.choices.size());
    if (isCheckBox(row.kind)) return static_cast<double>(random() % 2);
    const Range range = row.controlRange.value_or(Range{0, 1});
    const double value = std::uniform_real_distribution(range.low, range.high)(random);
    return isReal(row.kind) ? value : std::floor(value);
}

bool isStored(const ParameterRow& row) {
    return row.kind != ParameterKind::UiInt && row.kind != ParameterKind::UiBool;
}

/// The control of an entry, and the value that it has to show.
void expectShows(HWND window, const CDSPPGControlMapEntry& entry, double value) {
    const std::string what = toText(entry.property);
    if (const auto number = DSNumberControlOf(window)) {
        EXPECT_EQ(number->value(), value) << what;
    } else if (entry.boundType == VT_BOOL) {
        EXPECT_EQ(DSGetWindowState(window)->checked, value != 0.0) << what;
    } else {
        EXPECT_EQ(DSGetWindowState(window)->selection, static_cast<int>(value)) << what;
    }
}

}  // namespace

void attachModule() {
    static DSModuleInstance self{ruvexResourcesBegin, ruvexResourcesEnd,
                                 "/opt/ruvex/lib/ruvex/V_Ruvex.so"};
    static const bool attached = [] {
        DllMain(&self, DLL_PROCESS_ATTACH, nullptr);
        return DSAddModule(DllGetClassObject) == S_OK;
    }();
    ASSERT_TRUE(attached);
}

std::unique_ptr<runtime::EffectSession> PageTest::makeSession() {
    runtime::EffectSession::Setup setup;
    setup.project = {.width = 720, .height = 576};
    return std::make_unique<runtime::EffectSession>(std::move(setup));
}

PageTest::~PageTest() {
    editor.reset();
    session.reset();
    EXPECT_EQ(DllCanUnloadNow(), S_OK) << objectCount;
}

std::unique_ptr<runtime::OpenPage> PageTest::open(const GUID& classId) {
    auto page = editor->open(classId);
    page->show();
    return page;
}

HWND PageTest::item(const std::unique_ptr<runtime::OpenPage>& page, int id) {
    return GetDlgItem(page->window(), id);
}

const DSWindowState& PageTest::state(const std::unique_ptr<runtime::OpenPage>& page, int id) {
    static const DSWindowState none;
    const DSWindowState* const found = DSGetWindowState(item(page, id));
    EXPECT_TRUE(found) << id;
    return found ? *found : none;
}

ComPtr<CDSNumberControl> PageTest::number(const std::unique_ptr<runtime::OpenPage>& page, int id) {
    return DSNumberControlOf(item(page, id));
}

ComPtr<CDSColourChip> PageTest::chip(const std::unique_ptr<runtime::OpenPage>& page, int id) {
    return DSColourChipOf(item(page, id));
}

void PageTest::type(const std::unique_ptr<runtime::OpenPage>& page, int id,
                    const std::string& text) {
    number(page, id)->type(text);
    number(page, id)->enter();
}

double PageTest::value(ParameterId id, double seconds) const {
    return session->value(row(id).identifier, seconds);
}

void PageTest::set(ParameterId id, double value) {
    session->setValue(row(id).identifier, value);
}

std::vector<runtime::PropertyState> PageTest::states() const {
    return runtime::readStates(session->properties());
}

void PageTest::randomise(unsigned seed) {
    std::mt19937 random(seed);
    for (const ParameterRow& row : parameterTable()) {
        if (!isStored(row)) continue;
        set(row.id, randomValue(row, random));
        if (!isReal(row.kind) || random() % 3 != 0) continue;
        std::vector<DSKey> keys;
        for (unsigned i = random() % 4 + 1; i > 0; --i) {
            const double time = static_cast<double>(random() % 100) / 8.0;
            keys.push_back({time, randomValue(row, random), static_cast<DSKeyMode>(random() % 3)});
        }
        session->setKeys(row.identifier, keys);
    }
}

void expectSame(const std::vector<runtime::PropertyState>& a,
                const std::vector<runtime::PropertyState>& b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_TRUE(runtime::sameBits(a[i], b[i])) << toText(a[i].id);
    }
}

void expectControlsShow(const std::unique_ptr<runtime::OpenPage>& page, runtime::Editor& editor) {
    auto& base = static_cast<CDSBasePropertyPage&>(page->page());
    for (const CDSPPGControlMapEntry& entry : base.GetControlMap()->entries()) {
        const HWND window = base.GetHwndControl(entry.controlId);
        const ParameterRow* const row = findParameter(entry.property);
        if (!entry.boundVariable || !row || !isStored(*row)) continue;
        const double value = editor.session().value(entry.property, editor.time());
        const void* const bound = entry.boundVariable(base);
        const double kept = entry.boundType == VT_R8 ? *static_cast<const double*>(bound)
                                                     : *static_cast<const std::int32_t*>(bound);
        EXPECT_EQ(kept, value) << row->label;
        if (window) expectShows(window, entry, value);
    }
}

}  // namespace ruvex::test
