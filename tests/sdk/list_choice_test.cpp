#include "sdk/pages/list_choice.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT kList = 1000, kOtherList = 1001;
constexpr bool kOpened = true, kClosed = false;
constexpr auto kNone = DSListEvent::None;
constexpr auto kChosen = DSListEvent::Chosen;
constexpr auto kCancelled = DSListEvent::Cancelled;

TEST(ListChoice, ClosedListChoosesAtOnce) {
    DSListChoice choice;
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_SELCHANGE), kChosen);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_SELCHANGE), kChosen);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kNone);
}

TEST(ListChoice, ArrowKeysChooseWhenTheListCloses) {
    DSListChoice choice;
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELCHANGE), kNone);
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELCHANGE), kNone);
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELENDOK), kNone);
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_CLOSEUP), kChosen);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kNone);
}

TEST(ListChoice, EscapeCancelsOnce) {
    DSListChoice choice;
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELCHANGE), kNone);
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELENDCANCEL), kCancelled);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kNone);
}

TEST(ListChoice, OpeningAndClosingIsNoChoice) {
    DSListChoice choice;
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELENDOK), kNone);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kNone);
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELENDCANCEL), kNone);
}

TEST(ListChoice, ClickChoosesInBothOrders) {
    DSListChoice choice;
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELENDOK), kNone);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kNone);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_SELCHANGE), kChosen);

    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELENDOK), kNone);
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELCHANGE), kNone);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kChosen);
}

TEST(ListChoice, ListsDoNotMeddle) {
    DSListChoice choice;
    EXPECT_EQ(choice.follow(kList, kOpened, CBN_SELCHANGE), kNone);
    EXPECT_EQ(choice.follow(kOtherList, kClosed, CBN_CLOSEUP), kNone);
    EXPECT_EQ(choice.follow(kOtherList, kClosed, CBN_SELENDCANCEL), kNone);
    EXPECT_EQ(choice.follow(kList, kClosed, CBN_CLOSEUP), kChosen);
}

}  // namespace
