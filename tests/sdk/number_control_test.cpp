#include "sdk/controls/number_control.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "sdk/com/com_ptr.h"
#include "tests/support/reference_count.h"

namespace ruvex {
namespace {

using Edits = std::vector<DSNumberEdit>;
using enum DSNumberEdit;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A control for percentages that records how often it notifies.
class NumberControl : public ::testing::Test {
protected:
    NumberControl() { use({.label = "Amount", .low = 0.0, .high = 100.0}); }

    void use(const CDSNumberControl::Options& options) {
        control = ComPtr<CDSNumberControl>::attach(new CDSNumberControl(options));
        control->listen([this](DSNumberEdit edit) { edits.push_back(edit); });
        control->observe([this] { ++observed; });
    }
    void enter(std::string_view text) {
        control->type(text);
        control->enter();
    }
    HRESULT setRange(double low, double high) {
        const VARIANT ends[] = {DSVariantFromReal(low), DSVariantFromReal(high)};
        return control->SetRange(&ends[0], &ends[1]);
    }

    ComPtr<CDSNumberControl> control;
    Edits edits;
    int observed = 0;
};

TEST_F(NumberControl, ShowsWhatTheProgramSets) {
    control->show(42.5);
    EXPECT_EQ(control->value(), 42.5);
    EXPECT_EQ(control->text(), "42.5");
    EXPECT_EQ(observed, 1);
    control->show(42.5);
    EXPECT_EQ(observed, 1) << "nothing has changed";
    EXPECT_EQ(edits, Edits{}) << "the program notifies nobody";
}

TEST_F(NumberControl, ShowsValuesOutsideTheRangeAsTheyAre) {
    control->show(150.0);
    EXPECT_EQ(control->value(), 150.0);
    EXPECT_EQ(control->text(), "150");
    enter("150");
    EXPECT_EQ(control->value(), 150.0) << "entering it again changes nothing";
    enter("151");
    EXPECT_EQ(control->value(), 100.0);
}

TEST_F(NumberControl, EnterTakesWhatIsTyped) {
    control->type("12.25");
    EXPECT_EQ(control->text(), "12.25");
    EXPECT_EQ(control->value(), 0.0);
    EXPECT_EQ(edits, Edits{});
    control->enter();
    EXPECT_EQ(control->value(), 12.25);
    EXPECT_EQ(edits, Edits{Entered});
    control->enter();
    EXPECT_EQ(edits, Edits{Entered}) << "nothing was typed since";
}

TEST_F(NumberControl, EnterTakesACommaForAPoint) {
    enter(" 64,5 ");
    EXPECT_EQ(control->value(), 64.5);
}

TEST_F(NumberControl, EscapeShowsTheValueAgain) {
    control->show(7.0);
    control->type("9");
    control->revert();
    EXPECT_EQ(control->text(), "7");
    control->enter();
    EXPECT_EQ(control->value(), 7.0);
    EXPECT_EQ(edits, Edits{});
}

TEST_F(NumberControl, TextThatIsNoNumberChangesNothing) {
    control->show(7.0);
    for (const char* text : {"", "abc", "1.2.3", "nan", "inf", "1e999", "--1", "+-1", "0x10"}) {
        enter(text);
        EXPECT_EQ(control->value(), 7.0) << text;
        EXPECT_EQ(control->text(), "7") << text;
    }
    EXPECT_EQ(edits, Edits{});
}

TEST_F(NumberControl, TypingTheShownNumberKeepsTheStoredDigits) {
    control->show(50.196078431372548);
    EXPECT_EQ(control->text(), "50.196");
    for (const char* text : {"50.196", "50,196", " 50.1960"}) enter(text);
    EXPECT_EQ(control->value(), 50.196078431372548);
    EXPECT_EQ(edits, Edits{});
    enter("50.1961");
    EXPECT_EQ(control->value(), 50.1961) << "all typed digits are stored";
}

TEST_F(NumberControl, HoldsWhatIsTypedToTheRangeAndSaysSo) {
    enter("250");
    EXPECT_EQ(control->value(), 100.0);
    EXPECT_EQ(control->remark(), "at most 100");
    control->show(100.0);
    EXPECT_EQ(control->remark(), "at most 100") << "the page shows the stored value again";
    enter("300");
    EXPECT_EQ(control->remark(), "at most 100");
    enter("-3");
    EXPECT_EQ(control->value(), 0.0);
    EXPECT_EQ(control->remark(), "at least 0");
    enter("5");
    EXPECT_EQ(control->remark(), "");
    EXPECT_EQ(edits, (Edits{Entered, Entered, Entered}));
}

TEST_F(NumberControl, WholeNumbersAreRounded) {
    use({.label = "Seed", .low = 0.0, .high = 10000.0, .decimals = 0});
    enter("3.7");
    EXPECT_EQ(control->value(), 4.0);
    EXPECT_EQ(control->text(), "4");
    EXPECT_EQ(control->remark(), "whole numbers only");
    control->step(1, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 5.0) << "no tenths";
    EXPECT_EQ(control->remark(), "");
}

TEST_F(NumberControl, ArrowsStepByOneTenAndATenth) {
    control->step(1);
    EXPECT_EQ(control->value(), 1.0);
    control->step(2, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 21.0);
    control->step(-3, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 20.7);
    control->step(0);
    EXPECT_EQ(edits, (Edits{Stepped, Stepped, Stepped}));
}

TEST_F(NumberControl, StepsStopAtTheEndsOfTheRange) {
    control->show(99.5);
    control->step(1);
    EXPECT_EQ(control->value(), 100.0);
    control->step(1);
    control->step(-20, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 0.0);
    EXPECT_EQ(edits, (Edits{Stepped, Stepped})) << "a step that changes nothing is no edit";
}

TEST_F(NumberControl, AStepEntersWhatIsTypedFirst) {
    control->type("40");
    control->step(1);
    EXPECT_EQ(control->value(), 41.0);
    EXPECT_EQ(edits, (Edits{Entered, Stepped}));
}

TEST_F(NumberControl, TenthsStayDecimal) {
    use({.label = ""});
    for (int tenths = 1; tenths <= 2000; ++tenths) {
        control->step(1, DSStepKeys::Control);
        ASSERT_EQ(control->value(), tenths / 10.0);
    }
    control->show(100.1);
    control->step(-10, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 0.1);
    control->step(-1, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 0.0);
    EXPECT_FALSE(std::signbit(control->value()));
}

TEST_F(NumberControl, StepsAndDragsAddDecimally) {
    use({.label = ""});
    std::mt19937 random(7);
    const auto upTo = [&](int most) {
        return static_cast<int>(random() % (2u * most + 1u)) - most;
    };
    for (int i = 0; i < 20000; ++i) {
        const int thousandths = upTo(20000000), steps = upTo(500);
        control->show(thousandths / 1000.0);
        control->step(steps, DSStepKeys::Control);
        ASSERT_EQ(control->value(), (thousandths + 100 * steps) / 1000.0);
        control->beginDrag();
        control->drag(2 * steps, DSStepKeys::Control);
        control->drag(-2 * steps, DSStepKeys::Control);
        ASSERT_EQ(control->value(), thousandths / 1000.0);
        control->endDrag();
    }
}

TEST_F(NumberControl, HugeAndOddValuesCanBeStepped) {
    use({.label = ""});
    for (const double value : {1e300, -1e300, 1e-300, 1e17, kInfinity, kNaN}) {
        control->show(value);
        control->step(1);
        control->step(-1, DSStepKeys::Control);
        EXPECT_EQ(std::isnan(control->value()), std::isnan(value));
    }
    control->show(std::numeric_limits<double>::max());
    control->step(std::numeric_limits<int>::max(), DSStepKeys::Shift);
    EXPECT_EQ(control->value(), std::numeric_limits<double>::max());
}

TEST_F(NumberControl, TheWheelNeedsTheFocus) {
    control->wheel(3, false);
    EXPECT_EQ(control->value(), 0.0);
    control->wheel(3, true);
    EXPECT_EQ(control->value(), 3.0);
    EXPECT_EQ(edits, Edits{Stepped});
}

TEST_F(NumberControl, DraggingIsOneUnitForTwoPixels) {
    control->beginDrag();
    EXPECT_TRUE(control->dragging());
    control->drag(1);
    EXPECT_EQ(control->value(), 0.0);
    control->drag(2);
    EXPECT_EQ(control->value(), 1.0);
    control->drag(100);
    EXPECT_EQ(control->value(), 50.0);
    control->endDrag();
    EXPECT_FALSE(control->dragging());
    control->drag(10);
    EXPECT_EQ(control->value(), 50.0);
    EXPECT_EQ(edits, (Edits{DragBegan, Dragged, Dragged, DragEnded}));
}

TEST_F(NumberControl, DraggingComputesFromTheFirstValue) {
    control->show(33.3333);
    control->beginDrag();
    for (int pixels = 0; pixels < 400; ++pixels) control->drag(pixels);
    EXPECT_EQ(control->value(), 100.0);
    control->drag(2);
    EXPECT_EQ(control->value(), 34.3333);
    control->drag(-1);
    EXPECT_EQ(control->value(), 33.3333);
    control->endDrag();
}

TEST_F(NumberControl, AnotherKeyGoesOnFromThePresentValue) {
    control->beginDrag();
    control->drag(20);
    EXPECT_EQ(control->value(), 10.0);
    control->drag(20, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 10.0) << "no jump";
    control->drag(26, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 10.3);
    control->drag(26, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 10.3);
    control->drag(30, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 30.3);
    control->drag(34);
    EXPECT_EQ(control->value(), 32.3);
    control->endDrag();
}

TEST_F(NumberControl, ADragOfNothingLeavesAValueOutsideTheRange) {
    control->show(150.0);
    control->beginDrag();
    control->drag(1);
    control->drag(0, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 150.0);
    control->drag(4, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 100.0);
    control->drag(0, DSStepKeys::Shift);
    EXPECT_EQ(control->value(), 150.0);
    control->endDrag();
}

TEST_F(NumberControl, EscapeEndsADragWithTheFirstValue) {
    control->show(12.345678);
    control->beginDrag();
    control->drag(40, DSStepKeys::Shift);
    control->revert();
    EXPECT_FALSE(control->dragging());
    EXPECT_EQ(control->value(), 12.345678);
    control->endDrag();
    EXPECT_EQ(edits, (Edits{DragBegan, Dragged, DragCancelled}));
}

TEST_F(NumberControl, TheProgramMayShowAValueDuringADrag) {
    control->listen([this](DSNumberEdit) { control->show(std::floor(control->value())); });
    control->beginDrag();
    control->drag(3, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 0.0);
    control->drag(22, DSStepKeys::Control);
    EXPECT_EQ(control->value(), 1.0) << "11 tenths, shown as a whole number";
    EXPECT_TRUE(control->dragging());
    control->revert();
}

TEST_F(NumberControl, KeysAndTypingAreIgnoredInADrag) {
    control->beginDrag();
    control->type("5");
    control->enter();
    control->step(1);
    control->beginDrag();
    EXPECT_EQ(edits, Edits{DragBegan});
    control->endDrag();
}

TEST_F(NumberControl, ARangeConcernsOnlyWhatIsEnteredNext) {
    control->show(50.0);
    EXPECT_EQ(setRange(-10.0, 10.0), S_OK);
    EXPECT_EQ(control->value(), 50.0);
    EXPECT_EQ(control->low(), -10.0);
    EXPECT_EQ(control->high(), 10.0);
    EXPECT_EQ(edits, Edits{});
    control->step(1);
    EXPECT_EQ(control->value(), 10.0);
}

TEST_F(NumberControl, RefusesRangesThatAreNone) {
    const VARIANT real = DSVariantFromReal(1.0);
    const VARIANT whole = DSVariantFromLong(1);
    EXPECT_EQ(control->SetRange(nullptr, &real), E_POINTER);
    EXPECT_EQ(control->SetRange(&real, nullptr), E_POINTER);
    EXPECT_EQ(control->SetRange(&whole, &real), E_INVALIDARG);
    EXPECT_EQ(control->SetRange(&real, &whole), E_INVALIDARG);
    EXPECT_EQ(setRange(kNaN, 1.0), E_INVALIDARG);
    EXPECT_EQ(setRange(0.0, kInfinity), E_INVALIDARG);
    EXPECT_EQ(setRange(2.0, 1.0), E_INVALIDARG);
    EXPECT_EQ(control->low(), 0.0);
    EXPECT_EQ(control->high(), 100.0);
    EXPECT_EQ(setRange(1.0, 1.0), S_OK);
}

TEST_F(NumberControl, IgnoresUselessLimitsOfItsOptions) {
    use({.label = "", .low = 5.0, .high = -5.0, .decimals = 99});
    EXPECT_FALSE(control->low() || control->high());
    EXPECT_EQ(control->decimals(), 15);
    use({.label = "", .low = kNaN, .high = kInfinity, .decimals = -1});
    EXPECT_FALSE(control->low() || control->high());
    EXPECT_EQ(control->decimals(), 0);
}

TEST_F(NumberControl, AListenerMayReleaseTheControl) {
    control->listen([this](DSNumberEdit) {
        control->listen(nullptr);
        control->observe(nullptr);
        control.reset();
    });
    CDSNumberControl* const present = control.get();
    present->step(5);
    EXPECT_FALSE(control);
}

TEST_F(NumberControl, AnswersForItsInterface) {
    const auto face = control.query<IDSNumberControl>();
    EXPECT_EQ(face.get(), control.get());
    EXPECT_EQ(test::countOf(*control), 2u);
}

TEST(NumberText, CutsTrailingZeros) {
    EXPECT_EQ(CDSNumberControl::textOf(0.5, 3), "0.5");
    EXPECT_EQ(CDSNumberControl::textOf(64.5, 3), "64.5");
    EXPECT_EQ(CDSNumberControl::textOf(100.0, 3), "100");
    EXPECT_EQ(CDSNumberControl::textOf(0.0625, 3), "0.062");
    EXPECT_EQ(CDSNumberControl::textOf(-2.75, 0), "-3");
    EXPECT_EQ(CDSNumberControl::textOf(120.0, 0), "120");
}

TEST(NumberText, HasNoNegativeZero) {
    for (const int decimals : {0, 1, 3}) {
        EXPECT_EQ(CDSNumberControl::textOf(-0.0, decimals), "0");
        EXPECT_EQ(CDSNumberControl::textOf(-0.0004, decimals), "0");
    }
}

TEST(NumberText, IsShortForHugeValues) {
    EXPECT_EQ(CDSNumberControl::textOf(1e300, 3), "1e+300");
    EXPECT_EQ(CDSNumberControl::textOf(-1e300, 0), "-1e+300");
    EXPECT_EQ(CDSNumberControl::textOf(123456789012345.0, 3), "123456789012345");
    EXPECT_EQ(CDSNumberControl::textOf(kInfinity, 3), "inf");
    EXPECT_EQ(CDSNumberControl::textOf(-kNaN, 3), "nan");
}

TEST(NumberText, ReadsPointAndComma) {
    EXPECT_EQ(CDSNumberControl::valueOf("0.5"), 0.5);
    EXPECT_EQ(CDSNumberControl::valueOf("-0,5"), -0.5);
    EXPECT_EQ(CDSNumberControl::valueOf("+12"), 12.0);
    EXPECT_EQ(CDSNumberControl::valueOf("\t.5 "), 0.5);
    EXPECT_EQ(CDSNumberControl::valueOf("1e3"), 1000.0);
    EXPECT_EQ(CDSNumberControl::valueOf("1,000.5"), std::nullopt);
    EXPECT_EQ(CDSNumberControl::valueOf("5 %"), std::nullopt);
    EXPECT_EQ(CDSNumberControl::valueOf("+"), std::nullopt);
    EXPECT_EQ(CDSNumberControl::valueOf(std::string_view("1\0", 2)), std::nullopt);
}

TEST(NumberText, ReadsBackWithinItsRounding) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double scale = std::pow(10.0, static_cast<double>(random() % 30) - 12.0);
        const double value = (static_cast<double>(random() >> 11) * 0x1p-53 - 0.5) * scale;
        for (const int decimals : {0, 3, 15}) {
            const auto read = CDSNumberControl::valueOf(CDSNumberControl::textOf(value, decimals));
            ASSERT_TRUE(read);
            ASSERT_LE(std::abs(*read - value),
                      0.5000001 * std::pow(10.0, -decimals) + std::abs(value) * 1e-15);
        }
    }
}

}  // namespace
}  // namespace ruvex
