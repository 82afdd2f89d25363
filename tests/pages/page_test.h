// The effect's property pages in the stand-in host. The module's objects are part of the test
// program, so that a test can look into a page.

#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "host/base/class_ids.h"
#include "pages/vx_ds_ppg.h"
#include "parameters/parameter_table.h"
#include "runtime/editor.h"
#include "sdk/controls/host_controls.h"
#include "sdk/window/window_tree.h"

namespace ruvex::test {

/// The module's page classes in the order of their tabs.
inline constexpr GUID kPageIds[] = {kRuvexPageId, kGunsPageId,    kBreakup1PageId, kBreakup2PageId,
                                    kShashPageId, kEffectsPageId, kCropPageId,     kHelpPageId};

/// Attaches the module that is part of this program, as its loader does, and serves its classes.
void attachModule();

class PageTest : public testing::Test {
protected:
    static void SetUpTestSuite() { attachModule(); }
    /// Nothing of the module is left.
    ~PageTest() override;

    /// Opens and shows a page.
    std::unique_ptr<runtime::OpenPage> open(const GUID& classId);
    /// The object of an open page.
    template <class Page>
    static Page& as(const std::unique_ptr<runtime::OpenPage>& page) {
        return static_cast<Page&>(page->page());
    }

    static HWND item(const std::unique_ptr<runtime::OpenPage>& page, int id);
    static const DSWindowState& state(const std::unique_ptr<runtime::OpenPage>& page, int id);
    static ComPtr<CDSNumberControl> number(const std::unique_ptr<runtime::OpenPage>& page, int id);
    static ComPtr<CDSColourChip> chip(const std::unique_ptr<runtime::OpenPage>& page, int id);
    /// Types a number and Enter.
    static void type(const std::unique_ptr<runtime::OpenPage>& page, int id,
                     const std::string& text);

    double value(ParameterId id, double seconds = 0.0) const;
    /// Changes a parameter from outside of all pages.
    void set(ParameterId id, double value);
    /// The states of all properties: plain values and keys.
    std::vector<runtime::PropertyState> states() const;
    /// Gives every parameter but the two of the pages a random value in its range, and some reals
    /// random keys.
    void randomise(unsigned seed);

    double clock = 0.0;
    std::unique_ptr<runtime::EffectSession> session = makeSession();
    std::unique_ptr<runtime::Editor> editor =
        std::make_unique<runtime::Editor>(*session, [this] { return clock; });

private:
    static std::unique_ptr<runtime::EffectSession> makeSession();
};

/// Expects that both lists have the same bits.
void expectSame(const std::vector<runtime::PropertyState>& a,
                const std::vector<runtime::PropertyState>& b);

/// Expects that each control of a page shows its parameter's value at the editor's time.
void expectControlsShow(const std::unique_ptr<runtime::OpenPage>& page, runtime::Editor& editor);

}  // namespace ruvex::test
