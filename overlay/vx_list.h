// A doubly linked list of pointers with one iteration position.

#pragma once

#include <utility>

namespace ruvex {

/// Owns its nodes, not the items. `walk` is the only function that uses the list's one `cursor` to
/// go from node to node, so a walk inside another walk of the same list ends the outer one. A call
/// made by `walk` may remove the present node. If it removes the NEXT node instead, the cursor goes
/// back to the present one, which is then visited again.
template <class T>
class VxList {
public:
    struct Node {
        T item;
        Node* next = nullptr;
        Node* previous = nullptr;
    };

    VxList() = default;
    VxList(const VxList&) = delete;
    VxList& operator=(const VxList&) = delete;
    virtual ~VxList() {
        while (head) remove(head);
    }

    /// Exchanges all nodes, and the cursors, of two lists.
    void swap(VxList& other) noexcept {
        std::swap(head, other.head);
        std::swap(tail, other.tail);
        std::swap(cursor, other.cursor);
    }

    /// Adds an item at the end and returns it. Throws std::bad_alloc.
    T append(T item) {
        Node* const node = new Node{item, nullptr, tail};
        (tail ? tail->next : head) = node;
        tail = node;
        return item;
    }

    /// Removes a node of this list and returns its item. A cursor on the node moves to the previous
    /// node, or, without one, to the next.
    T remove(Node* node) {
        if (cursor == node) cursor = node->previous ? node->previous : node->next;
        (node->previous ? node->previous->next : head) = node->next;
        (node->next ? node->next->previous : tail) = node->previous;
        const T item = node->item;
        delete node;
        return item;
    }

    /// The first node with this item; null if there is none. Does not use the cursor.
    Node* find(T item) const {
        Node* node = head;
        while (node && node->item != item) node = node->next;
        return node;
    }

    /// Removes every node with this item; false if there was none. Does not use the cursor.
    bool removeAll(T item) {
        bool removed = false;
        while (Node* const node = find(item)) {
            remove(node);
            removed = true;
        }
        return removed;
    }

    /// Calls `visit` for each item from the first to the last, until it returns false. The cursor
    /// is on the next node during a call, so that the call may remove the present one.
    template <class Visit>
    void walk(Visit visit) {
        cursor = head;
        while (Node* const node = cursor) {
            cursor = node->next;
            if (!visit(node->item)) return;
        }
    }

    bool empty() const { return !head; }

    Node* head = nullptr;
    Node* tail = nullptr;
    Node* cursor = nullptr;
};

}  // namespace ruvex
