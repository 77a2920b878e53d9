// SPDX-License-Identifier: MIT
/// The engine's one container: a doubly linked list of nodes with an index for access by position.
/// Every list is itself a node and every element a node that holds an item, so lists nest.
/// Registries, display lists, layers, name lists and the album are `List`s.
///
/// Invariants: a child's `index` is its position in the parent's index, and the index has the order
/// of the links. Children that leave leave gaps in it, which close when a position is next asked
/// for: appending and leaving take the same short time in lists of any length.
#pragma once

#include "core/object.h"

#include <string_view>
#include <vector>

namespace kez {

/// Does destroying the node delete its item?
enum class Ownership { Owning, Borrowed };

class List {
public:
    enum class Direction { Ascending, Descending };

    /// Negative when the first item comes first, positive when the second does.
    using Compare = int (*)(const List& first, const List& second);

    List();
    List(Object* item, Ownership ownership);
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    /// Leaves its parent, destroys the children and deletes the item if it owns it. Once
    /// `shuttingDown` is set it does none of these and only frees the index.
    ~List();

    [[nodiscard]] List* first() const { return first_; }

    [[nodiscard]] List* last() const { return last_; }

    [[nodiscard]] List* next() const { return next_; }

    [[nodiscard]] List* prev() const { return prev_; }

    [[nodiscard]] List* parent() const { return parent_; }

    [[nodiscard]] Object* item() const { return item_; }

    [[nodiscard]] bool owns() const { return owns_; }

    [[nodiscard]] int index() const; ///< −1 in no list.

    [[nodiscard]] int count() const { return static_cast<int>(children_.size() - gaps_); }

    /// Entries that the index has room for: 16 with the first child, then doubled when full.
    [[nodiscard]] int capacity() const { return static_cast<int>(children_.capacity()); }

    [[nodiscard]] List* at(int position) const; ///< Null out of range.

    /// New last child. The list owns the node; the node owns the item (append) or not (appendRef).
    /// Null when there is no memory; the item then stays the caller's.
    List* append(Object* item);
    List* appendRef(Object* item);

    /// New child in front of `node`, or the last one when `node` is null.
    List* insertBefore(List* node, Object* item, Ownership ownership = Ownership::Owning);

    /// Leaves the parent. The parent's cursor moves to the next sibling, or to the previous one.
    void unlink();

    void clear(); ///< Destroys every child.

    void quickSort(Compare compare); ///< Not stable.
    /// Equal items keep their order. What is in order already costs one comparison an item.
    void bubbleSort(Compare compare, Direction direction);

    List* cursor = nullptr; ///< A child that a walker has marked as current.

private:
    void link(List* node, List* before);
    void closeGaps() const;
    void swapChildren(int a, int b);
    void quickSortRange(Compare compare, int low, int high);
    void relink();

    mutable int index_ = -1; ///< In the parent's index as it is, gaps and all.
    Object* item_ = nullptr;
    bool owns_ = true;
    List* first_ = nullptr;
    List* last_ = nullptr;
    List* prev_ = nullptr;
    List* next_ = nullptr;
    List* parent_ = nullptr;
    mutable std::vector<List*> children_; ///< Null where a child has left; never at the end.
    mutable std::size_t gaps_ = 0;
};

/// Name lists: appends an owning node with a plain `Object` of that name and an empty caption.
List* addName(List& list, std::string_view text);

/// The name of a node's item; an empty name for a null node or a bare list.
const String& itemName(const List* node);

} // namespace kez
