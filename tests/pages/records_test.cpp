// The records that bind properties to the controls of a page.

#include <cstring>
#include <functional>

#include "tests/pages/page_test.h"
#include "tests/pages/probe_page.h"

namespace ruvex::test {
namespace {

GUID idOf(ParameterId id) {
    return row(id).identifier;
}

class Records : public testing::Test {
protected:
    static void SetUpTestSuite() { attachModule(); }

    Records() { page->start(*object, site.get()); }
    ~Records() override { page->stop(); }

    void put(ParameterId id, const VARIANT& value) { object->values[idOf(id)] = value; }
    /// Has the page handle a notification, in which it runs `reaction`.
    void notify(const GUID& id, const DSVARIANT* value, const std::function<void()>& reaction) {
        page->reaction = reaction;
        EXPECT_EQ(page->PropertyChanged(id, value, object.get(), nullptr, 0), S_OK);
        page->reaction = nullptr;
    }
    const ScriptedObject::Write& lastWrite() const { return object->writes.back(); }

    ComPtr<ScriptedObject> object = ComPtr<ScriptedObject>::attach(new ScriptedObject);
    ComPtr<ScriptedSite> site = ComPtr<ScriptedSite>::attach(new ScriptedSite(*object));
    ComPtr<ProbePage> page = ComPtr<ProbePage>::attach(new ProbePage);
};

TEST_F(Records, ARecordWithoutAControlWritesItsPropertyAndRedrawsNothing) {
    page->blur.Set(2.5);
    ASSERT_EQ(object->writes.size(), 1u);
    EXPECT_EQ(lastWrite().id, idOf(ParameterId::Blur));
    page->numGhosts.Set(7);
    page->fishEye.Set(1);
    EXPECT_EQ(object->writes.size(), 3u);
    EXPECT_TRUE(page->redrawn.empty());
    page->masterBreakup.Set(3.0);
    EXPECT_EQ(page->redrawn, std::vector<UINT>{1005});
}

TEST_F(Records, ALocalRecordNeverReachesTheHost) {
    page->numGhosts.localOnly = page->fishEye.localOnly = true;
    put(ParameterId::NumGhosts, DSVariantFromLong(9));
    put(ParameterId::FishEye, DSVariantFromBool(true));
    page->numGhosts.Set(4);
    page->fishEye.Set(1);
    EXPECT_TRUE(object->writes.empty());
    EXPECT_EQ(page->numGhosts.Get(), 4);
    // The base class reads for the bound variables; only what the records add counts here.
    notify(idOf(ParameterId::TvType), nullptr, [&] {
        object->reads.clear();
        EXPECT_EQ(page->numGhosts.Get(), 4);
        EXPECT_EQ(page->fishEye.Get(), 1);
        EXPECT_FALSE(page->numGhosts.NotificationUpdates());
        EXPECT_FALSE(page->fishEye.NotificationUpdates());
        page->numGhosts.Set(5);
        EXPECT_TRUE(object->reads.empty());
    });
    EXPECT_TRUE(object->writes.empty());
    EXPECT_EQ(page->numGhosts.value, 5);
}

TEST_F(Records, ANotificationAboutAllPropertiesMakesEveryRecordReadTheHost) {
    put(ParameterId::TvType, DSVariantFromLong(2));
    put(ParameterId::Seed, DSVariantFromLong(77));
    put(ParameterId::NumGhosts, DSVariantFromLong(3));
    put(ParameterId::MasterBreakup, DSVariantFromReal(12.5));
    put(ParameterId::Blur, DSVariantFromReal(1.5));
    put(ParameterId::FishEye, DSVariantFromBool(true));
    const double colour[] = {10.0, 20.0, 30.0, 40.0};
    put(ParameterId::TintColourR, DSVariantFromReal(colour[0]));
    put(ParameterId::TintColourG, DSVariantFromReal(colour[1]));
    put(ParameterId::TintColourB, DSVariantFromReal(colour[2]));
    put(ParameterId::CropColourA, DSVariantFromReal(colour[3]));
    bool reacted = false;
    notify(GUID_AllProperties, nullptr, [&] {
        reacted = true;
        EXPECT_TRUE(page->tvType.NotificationUpdates());
        EXPECT_EQ(page->tvType.value, 2);
        EXPECT_TRUE(page->fishEye.NotificationUpdates());
        EXPECT_EQ(page->fishEye.value, 1);
        float rgba[4] = {};
        EXPECT_TRUE(page->tint.NotificationUpdates(rgba));
        for (int i = 0; i < 4; ++i) EXPECT_EQ(rgba[i], colour[i]);
        const auto readsOf = [&](const std::function<double()>& get, ParameterId id) {
            object->reads.clear();
            const double value = get();
            EXPECT_EQ(object->reads, std::vector<GUID>{idOf(id)});
            return value;
        };
        EXPECT_EQ(readsOf([&] { return page->seed.Get(); }, ParameterId::Seed), 77);
        EXPECT_EQ(readsOf([&] { return page->numGhosts.Get(); }, ParameterId::NumGhosts), 3);
        EXPECT_EQ(readsOf([&] { return page->blur.Get(); }, ParameterId::Blur), 1.5);
        EXPECT_EQ(readsOf([&] { return page->masterBreakup.Get(); }, ParameterId::MasterBreakup),
                  12.5);
        EXPECT_EQ(readsOf([&] { return page->fishEye.Get(); }, ParameterId::FishEye), 1);
    });
    EXPECT_TRUE(reacted);
}

TEST_F(Records, OutsideOfNotificationsOnlyTheBoundVariableIsRead) {
    put(ParameterId::Seed, DSVariantFromLong(77));
    page->seed.value = 5;
    page->blur.value = 0.25;
    page->fishEye.value = 1;
    EXPECT_EQ(page->seed.Get(), 5);
    EXPECT_EQ(page->blur.Get(), 0.25);
    EXPECT_EQ(page->fishEye.Get(), 1);
    EXPECT_TRUE(object->reads.empty());
}

TEST_F(Records, InANotificationTheBoundVariableStandsForAPropertyThatCannotBeRead) {
    page->seed.value = 5;
    page->blur.property = GUID_NoProperty;
    page->blur.value = 0.25;
    put(ParameterId::FishEye, DSVariantFromBool(true));
    notify(idOf(ParameterId::FishEye), nullptr, [&] {
        object->fails = true;
        EXPECT_EQ(page->seed.Get(), 5);
        page->fishEye.value = 0;
        EXPECT_TRUE(page->fishEye.NotificationUpdates()) << "yes, with the bound variable";
        EXPECT_EQ(page->fishEye.value, 0);
        object->fails = false;
        object->reads.clear();
        EXPECT_EQ(page->blur.Get(), 0.25);
        EXPECT_TRUE(object->reads.empty()) << "no property is never asked for";
    });
}

TEST_F(Records, WriteTheirTypesAtTheCurrentTimeWithTheStyleOfTheBracket) {
    site->time = 2.0;
    page->masterBreakup.Set(12.5);
    EXPECT_EQ(lastWrite().value.vt, VT_R8);
    EXPECT_EQ(lastWrite().value.dblVal, 12.5);
    EXPECT_EQ(lastWrite().seconds, 2.0) << "-1 is the site's current time";
    EXPECT_EQ(lastWrite().style, 1u);
    page->BeginPageUndo();
    page->seed.Set(-7);
    EXPECT_EQ(lastWrite().value.vt, VT_I4);
    EXPECT_EQ(lastWrite().value.lVal, -7);
    EXPECT_EQ(lastWrite().style, 7u) << "as the host has given it";
    UNDO_STYLE style = 0;
    page->BeginPageUndo(&style);
    EXPECT_EQ(style, 7u) << "brackets of one page nest";
    page->EndPageUndo();
    page->fishEye.Set(1);
    EXPECT_EQ(lastWrite().value.vt, VT_BOOL);
    EXPECT_EQ(lastWrite().value.lVal, 1) << "in all 32 bits, and not -1";
    EXPECT_EQ(lastWrite().style, 1u) << "every end sets the style back";
    page->EndPageUndo();
    page->fishEye.Set(0);
    EXPECT_EQ(lastWrite().value.lVal, 0);
    EXPECT_EQ(lastWrite().style, 1u);
    EXPECT_EQ(site->log, (std::vector<std::wstring>{L"begin V_Ruvex", L"end 7"}));
}

TEST_F(Records, WithoutAPageTheyDoNothing) {
    VxPPGIntControl number;
    VxPPGBoolControl box;
    VxPPGDoubleControl real;
    VxPPGColourGroup group;
    number.controlId = box.controlId = real.controlId = group.controlId = 1000;
    number.Set(4);
    box.Set(1);
    real.Set(2.0);
    EXPECT_EQ(number.value, 4) << "stored all the same";
    EXPECT_EQ(number.Get(), 0) << "but not given";
    EXPECT_EQ(box.Get(), 0);
    EXPECT_EQ(real.Get(), 0.0);
    EXPECT_FALSE(number.NotificationUpdates());
    number.Show();
    number.Hide();
    number.Enable(false);
    number.SetRange(0.0, 1.0);
    number.ClearCombo();
    number.AddComboString(1002, true);
    const float colour[4] = {};
    float read[4];
    group.SetColour(colour);
    group.UpdateChipFromValues();
    group.UpdateValuesFromChip();
    group.SetNumberRanges();
    group.Show();
    group.Hide();
    EXPECT_FALSE(group.NotificationUpdates(read));
}

/// One case of the table: which notification a record of Seed is asked about.
struct NotificationCase {
    enum Changed { Own, Other, All, None } changed;
    bool hasValue;
    bool readable;
};

TEST_F(Records, AnswerWhetherANotificationConcernsThem) {
    constexpr std::int32_t kBefore = 1, kHost = 2, kCarried = 3;
    const DSVARIANT carried = DSVariantFromLong(kCarried);
    const GUID ids[] = {idOf(ParameterId::Seed), idOf(ParameterId::MasterBreakup),
                        GUID_AllProperties, GUID_NoProperty};
    for (int changed = 0; changed < 4; ++changed) {
        for (const bool hasValue : {false, true}) {
            for (const bool readable : {false, true}) {
                SCOPED_TRACE(testing::Message() << changed << hasValue << readable);
                object->fails = !readable;
                put(ParameterId::Seed, DSVariantFromLong(kHost));
                notify(ids[changed], hasValue ? &carried : nullptr, [&] {
                    page->seed.value = kBefore;
                    const bool concerned = changed == 0 || changed == 2;
                    EXPECT_EQ(page->seed.NotificationUpdates(), concerned);
                    const int fromHost = readable ? kHost : kBefore;
                    const int expected = !concerned ? kBefore : hasValue ? kCarried : fromHost;
                    EXPECT_EQ(page->seed.value, expected);
                });
            }
        }
    }
    object->fails = false;
    // Outside of a notification, and without a page.
    EXPECT_FALSE(page->seed.NotificationUpdates());
    notify(idOf(ParameterId::Seed), &carried, [&] {
        page->seed.page = nullptr;
        EXPECT_FALSE(page->seed.NotificationUpdates());
        page->seed.page = page.get();
    });
}

TEST_F(Records, AValueOfAnotherTypeIsReadFromTheHostInstead) {
    const DSVARIANT real = DSVariantFromReal(22.0);
    put(ParameterId::TvType, DSVariantFromLong(1));
    notify(GUID_AllProperties, &real, [&] {
        EXPECT_TRUE(page->tvType.NotificationUpdates());
        EXPECT_EQ(page->tvType.value, 1);
    });
}

TEST_F(Records, ANestedNotificationKeepsTheOuterOne) {
    const GUID outer = idOf(ParameterId::Seed);
    const GUID inner = idOf(ParameterId::Blur);
    const DSVARIANT value = DSVariantFromReal(1.0);
    bool nested = false;
    notify(outer, nullptr, [&] {
        if (nested) {
            EXPECT_EQ(*page->changedProperty, inner);
            EXPECT_EQ(*page->changedValue, &value);
            return;
        }
        nested = true;
        page->PropertyChanged(inner, &value, object.get(), nullptr, 0);
        ASSERT_TRUE(page->changedProperty);
        EXPECT_EQ(*page->changedProperty, outer);
        EXPECT_EQ(*page->changedValue, nullptr);
    });
    EXPECT_TRUE(nested);
    EXPECT_FALSE(page->changedProperty);
    EXPECT_FALSE(page->changedValue);
}

TEST_F(Records, AHostThatFailsEveryCallDoesNoHarm) {
    object->fails = true;
    site->status = E_FAIL;
    page->BeginPageUndo();
    page->seed.Set(3);
    page->masterBreakup.Set(4.0);
    page->EndPageUndo();
    EXPECT_EQ(page->seed.Get(), 3);
    EXPECT_EQ(page->undoStyle, 1u);
    const float colour[] = {1.0f, 2.0f, 3.0f, 4.0f};
    page->tint.SetColour(colour);
    EXPECT_EQ(page->tint.blue.value, 3.0);
}

TEST_F(Records, APageMayGoWhileItHandlesANotification) {
    ProbePage* const gone = page.get();
    bool reacted = false;
    page->reaction = [&] {
        reacted = true;
        gone->stop();
        page.reset();
        gone->seed.Set(4);
        gone->seed.Show();
    };
    gone->PropertyChanged(idOf(ParameterId::Seed), nullptr, object.get(), nullptr, 0);
    EXPECT_TRUE(reacted);
    page = ComPtr<ProbePage>::attach(new ProbePage);
}

// The chip.

TEST(ChipComponent, IsTruncatedInSinglePrecisionAndClamped) {
    EXPECT_EQ(chipComponent(100.0), 255);
    EXPECT_EQ(chipComponent(100.4), 255);
    EXPECT_EQ(chipComponent(99.9), 254);
    EXPECT_EQ(chipComponent(-3.0), 0);
    EXPECT_EQ(chipComponent(-0.1), 0);
    EXPECT_EQ(chipComponent(1e30), 255);
    EXPECT_EQ(chipComponent(-1e30), 0);
    EXPECT_EQ(chipComponent(24.0), 61);
    EXPECT_EQ(chipComponent(64.5), 164);
    EXPECT_EQ(chipComponent(30.0), 76);
}

TEST(ChipComponent, GivesPercentagesBack) {
    EXPECT_EQ(percentOfChip(255), 100.0);
    EXPECT_EQ(percentOfChip(0), 0.0);
    EXPECT_DOUBLE_EQ(percentOfChip(128), 50.196078431372548);
}

/// Rounds an exact quotient of small whole numbers to single precision, by integers alone: the
/// product of two floats is exact in 48 bits, from which the nearest 24-bit number is taken, ties
/// to even.
std::int32_t componentByIntegers(float percent) {
    const auto mantissaOf = [](float value, int& exponent) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        exponent = static_cast<int>(bits >> 23 & 0xFF) - 150;
        return static_cast<std::uint64_t>((bits & 0x7FFFFF) | 0x800000);
    };
    if (percent == 0.0f) return 0;
    int a = 0;
    int b = 0;
    std::uint64_t product = mantissaOf(percent, a) * mantissaOf(2.55f, b);
    int exponent = a + b;
    const auto shiftOut = [&](int bits) {
        const std::uint64_t rest = product & ((std::uint64_t{1} << bits) - 1);
        const std::uint64_t half = std::uint64_t{1} << (bits - 1);
        product >>= bits;
        if (rest > half || (rest == half && (product & 1) != 0)) ++product;
        exponent += bits;
    };
    int width = 0;
    while (product >> width != 0) ++width;
    if (width > 24) shiftOut(width - 24);
    // Truncated to a whole number.
    return static_cast<std::int32_t>(exponent >= 0 ? product << exponent : product >> -exponent);
}

TEST(ChipComponent, DriftsByOneForTheKnownComponentsOnly) {
    // Components that come back one lower after a round trip through the percentage.
    std::vector<int> drifting;
    for (int i = 0; i < 256; ++i) {
        const std::int32_t expected = componentByIntegers(static_cast<float>(i * 100.0 / 255.0));
        EXPECT_EQ(chipComponent(percentOfChip(i)), expected) << i;
        if (expected != i) {
            EXPECT_EQ(expected, i - 1);
            drifting.push_back(i);
        }
    }
    EXPECT_EQ(drifting, (std::vector<int>{15,  23,  27,  30,  46,  47,  53,  54,  60,  61,  85,
                                          87,  92,  94,  99,  101, 106, 108, 113, 115, 120, 122,
                                          127, 165, 170, 174, 175, 179, 184, 188, 189, 193, 198,
                                          202, 203, 207, 211, 212, 216, 217, 221, 225, 226, 230,
                                          231, 235, 239, 240, 244, 245, 249, 253, 254}));
}

}  // namespace
}  // namespace ruvex::test
