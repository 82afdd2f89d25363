#include "overlay/vx_list.h"

#include <gtest/gtest.h>
#include <vector>

namespace ruvex {
namespace {

using Ints = VxList<const int*>;

const int kNumbers[] = {0, 1, 2, 3};

std::vector<int> itemsOf(const Ints& list) {
    std::vector<int> items;
    for (const Ints::Node* node = list.head; node; node = node->next) items.push_back(*node->item);
    return items;
}

/// The same, read from the end.
std::vector<int> backwards(const Ints& list) {
    std::vector<int> items;
    for (const Ints::Node* node = list.tail; node; node = node->previous) {
        items.push_back(*node->item);
    }
    return items;
}

class List : public testing::Test {
protected:
    List() {
        for (const int& number : kNumbers) list.append(&number);
    }

    /// Walks the list and removes a node during the visit of another one.
    std::vector<int> walkRemoving(int during, int removed) {
        std::vector<int> visited;
        list.walk([&](const int* item) {
            visited.push_back(*item);
            if (*item == during) {
                if (auto* const node = list.find(&kNumbers[removed])) list.remove(node);
            }
            return visited.size() < 20;
        });
        return visited;
    }

    Ints list;
};

TEST_F(List, AppendsAtTheEndAndReturnsTheItem) {
    Ints other;
    EXPECT_TRUE(other.empty());
    EXPECT_EQ(other.append(&kNumbers[2]), &kNumbers[2]);
    EXPECT_EQ(other.head, other.tail);
    EXPECT_EQ(itemsOf(list), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(backwards(list), (std::vector<int>{3, 2, 1, 0}));
}

TEST_F(List, RemovesTheFirstAMiddleAndTheLastNode) {
    EXPECT_EQ(list.remove(list.head), &kNumbers[0]);
    EXPECT_EQ(list.remove(list.tail), &kNumbers[3]);
    EXPECT_EQ(itemsOf(list), (std::vector<int>{1, 2}));
    EXPECT_EQ(backwards(list), (std::vector<int>{2, 1}));
    list.remove(list.head);
    list.remove(list.head);
    EXPECT_EQ(list.head, nullptr);
    EXPECT_EQ(list.tail, nullptr);
    EXPECT_EQ(list.cursor, nullptr);
}

TEST_F(List, TheCursorOnARemovedNodeMovesToThePreviousElseToTheNext) {
    list.cursor = list.head->next;
    list.remove(list.cursor);
    EXPECT_EQ(list.cursor, list.head) << "back to the previous";
    list.remove(list.cursor);
    EXPECT_EQ(*list.cursor->item, 2) << "there is none: on to the next";
    list.cursor = list.tail;
    list.remove(list.tail);
    EXPECT_EQ(list.cursor, list.head);
    list.remove(list.head);
    EXPECT_EQ(list.cursor, nullptr) << "the only node";
}

TEST_F(List, TheCursorOnAnotherNodeStays) {
    list.cursor = list.head->next;
    list.remove(list.head);
    EXPECT_EQ(*list.cursor->item, 1);
    list.remove(list.tail);
    EXPECT_EQ(*list.cursor->item, 1);
}

TEST_F(List, AWalkMayRemoveTheFirstNodeWhileItVisitsIt) {
    EXPECT_EQ(walkRemoving(0, 0), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(itemsOf(list), (std::vector<int>{1, 2, 3}));
}

TEST_F(List, AWalkMayRemoveAMiddleNodeWhileItVisitsIt) {
    EXPECT_EQ(walkRemoving(2, 2), (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(List, AWalkMayRemoveTheLastNodeWhileItVisitsIt) {
    EXPECT_EQ(walkRemoving(3, 3), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(backwards(list), (std::vector<int>{2, 1, 0}));
}

TEST_F(List, AWalkMayRemoveTheOnlyNode) {
    Ints one;
    one.append(&kNumbers[1]);
    int visits = 0;
    one.walk([&](const int*) {
        ++visits;
        one.remove(one.head);
        return true;
    });
    EXPECT_EQ(visits, 1);
    EXPECT_TRUE(one.empty());
}

TEST_F(List, AWalkThatRemovesTheNextNodeVisitsThePresentOneAgain) {
    EXPECT_EQ(walkRemoving(1, 2), (std::vector<int>{0, 1, 1, 3}));
}

TEST_F(List, AWalkMayRemoveNodesThatItHasVisited) {
    EXPECT_EQ(walkRemoving(2, 0), (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(List, AWalkInsideAWalkEndsTheOuterOne) {
    std::vector<int> visited;
    list.walk([&](const int* item) {
        visited.push_back(*item);
        list.walk([](const int*) { return true; });
        return true;
    });
    EXPECT_EQ(visited, std::vector<int>{0});
}

TEST_F(List, AWalkEndsWhereItIsTold) {
    std::vector<int> visited;
    list.walk([&](const int* item) {
        visited.push_back(*item);
        return *item < 1;
    });
    EXPECT_EQ(visited, (std::vector<int>{0, 1}));
}

TEST_F(List, ExchangesItsNodesAndItsCursorWithThoseOfAnother) {
    Ints other;
    other.append(&kNumbers[2]);
    list.cursor = list.tail;
    list.swap(other);
    EXPECT_EQ(itemsOf(list), std::vector<int>{2});
    EXPECT_EQ(list.cursor, nullptr);
    EXPECT_EQ(itemsOf(other), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(backwards(other), (std::vector<int>{3, 2, 1, 0}));
    EXPECT_EQ(other.cursor, other.tail);
}

TEST_F(List, FindsAndRemovesAllNodesOfAnItem) {
    list.append(&kNumbers[1]);
    EXPECT_EQ(list.find(&kNumbers[1]), list.head->next) << "the first of them";
    EXPECT_TRUE(list.removeAll(&kNumbers[1]));
    EXPECT_EQ(itemsOf(list), (std::vector<int>{0, 2, 3}));
    EXPECT_FALSE(list.removeAll(&kNumbers[1]));
    EXPECT_EQ(list.find(&kNumbers[1]), nullptr);
}

}  // namespace
}  // namespace ruvex
