// SPDX-License-Identifier: MIT
#include "core/list.h"

#include "core/flags.h"

#include <algorithm>
#include <new>
#include <utility>

namespace kez {

namespace {

constexpr std::size_t initialCapacity = 16;

class NamedObject : public Object {
public:
    explicit NamedObject(std::string_view text) { name_ = String(text); }
};

} // namespace

List::List() = default;

List::List(Object* item, Ownership ownership)
    : item_(item)
    , owns_(ownership == Ownership::Owning)
{
}

List::~List()
{
    if (shuttingDown)
        return;
    unlink();
    clear();
    if (owns_)
        delete item_;
}

List* List::at(int position) const
{
    if (position < 0 || position >= count())
        return nullptr;
    closeGaps();
    return children_[static_cast<std::size_t>(position)];
}

int List::index() const
{
    if (parent_ != nullptr)
        parent_->closeGaps();
    return index_;
}

List* List::append(Object* item)
{
    return insertBefore(nullptr, item, Ownership::Owning);
}

List* List::appendRef(Object* item)
{
    return insertBefore(nullptr, item, Ownership::Borrowed);
}

List* List::insertBefore(List* node, Object* item, Ownership ownership)
{
    auto* fresh = new (std::nothrow) List(item, ownership);
    if (fresh != nullptr)
        link(fresh, node);
    return fresh;
}

void List::link(List* node, List* before)
{
    if (before != nullptr || children_.size() == children_.capacity())
        closeGaps();
    if (children_.size() == children_.capacity())
        children_.reserve(children_.empty() ? initialCapacity : 2 * children_.capacity());

    node->parent_ = this;
    node->next_ = before;
    node->prev_ = before != nullptr ? before->prev_ : last_;
    (node->prev_ != nullptr ? node->prev_->next_ : first_) = node;
    (before != nullptr ? before->prev_ : last_) = node;

    const std::size_t position
        = before != nullptr ? static_cast<std::size_t>(before->index_) : children_.size();
    children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(position), node);
    for (std::size_t i = position; i < children_.size(); ++i)
        children_[i]->index_ = static_cast<int>(i);
}

void List::unlink()
{
    if (parent_ == nullptr)
        return;
    if (parent_->cursor == this)
        parent_->cursor = next_ != nullptr ? next_ : prev_;

    (prev_ != nullptr ? prev_->next_ : parent_->first_) = next_;
    (next_ != nullptr ? next_->prev_ : parent_->last_) = prev_;

    auto& siblings = parent_->children_;
    siblings[static_cast<std::size_t>(index_)] = nullptr;
    ++parent_->gaps_;
    for (; !siblings.empty() && siblings.back() == nullptr; --parent_->gaps_)
        siblings.pop_back();

    prev_ = next_ = parent_ = nullptr;
    index_ = -1;
}

void List::closeGaps() const
{
    if (gaps_ == 0)
        return;
    std::erase(children_, nullptr);
    gaps_ = 0;
    for (std::size_t i = 0; i < children_.size(); ++i)
        children_[i]->index_ = static_cast<int>(i);
}

void List::clear()
{
    // From the end, where a removal leaves no gap.
    while (last_ != nullptr)
        delete last_;
}

void List::swapChildren(int a, int b)
{
    std::swap(children_[static_cast<std::size_t>(a)], children_[static_cast<std::size_t>(b)]);
}

void List::quickSort(Compare compare)
{
    closeGaps();
    quickSortRange(compare, 0, count() - 1);
    relink();
}

void List::quickSortRange(Compare compare, int low, int high)
{
    while (low < high) {
        swapChildren(low, (low + high) / 2);
        int middle = low;
        for (int i = low + 1; i <= high; ++i)
            if (compare(*at(i), *at(low)) < 0)
                swapChildren(++middle, i);
        swapChildren(low, middle);
        // The shorter part by recursion, the longer one by the loop: the stack stays shallow on
        // any input, and the parts do not touch each other, so their order is of no account.
        if (middle - low < high - middle) {
            quickSortRange(compare, low, middle - 1);
            low = middle + 1;
        } else {
            quickSortRange(compare, middle + 1, high);
            high = middle - 1;
        }
    }
}

void List::bubbleSort(Compare compare, Direction direction)
{
    closeGaps();
    const int sign = direction == Direction::Ascending ? 1 : -1;
    const auto comes = [&](const List* first, const List* second) {
        return sign * compare(*first, *second) < 0;
    };
    if (!std::ranges::is_sorted(children_, comes))
        std::ranges::stable_sort(children_, comes);
    relink();
}

void List::relink()
{
    List* before = nullptr;
    for (int i = 0; i < count(); ++i) {
        List* node = at(i);
        node->index_ = i;
        node->prev_ = before;
        node->next_ = at(i + 1);
        before = node;
    }
    first_ = at(0);
    last_ = at(count() - 1);
}

List* addName(List& list, std::string_view text)
{
    auto* named = new (std::nothrow) NamedObject(text);
    if (named == nullptr)
        return nullptr;
    List* node = list.append(named);
    if (node == nullptr)
        delete named;
    return node;
}

const String& itemName(const List* node)
{
    static const String none;
    return node != nullptr && node->item() != nullptr ? node->item()->name() : none;
}

} // namespace kez
