// SPDX-License-Identifier: MIT
#include "core/list.h"

#include "core/flags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace kez {
namespace {

using testing::ElementsAre;

/// An object with a number that counts how many of its kind are alive.
class Numbered : public Object {
public:
    explicit Numbered(int ownNumber)
        : number(ownNumber)
    {
        ++alive;
    }

    ~Numbered() override { --alive; }

    int number;
    static inline int alive = 0;
};

int numberOf(const List& node)
{
    return static_cast<Numbered*>(node.item())->number;
}

std::vector<int> numbers(const List& list)
{
    std::vector<int> result;
    for (List* node = list.first(); node != nullptr; node = node->next())
        result.push_back(numberOf(*node));
    return result;
}

/// Links, index and parents must all tell the same order.
void expectConsistent(const List& list, const std::vector<int>& expected)
{
    ASSERT_EQ(numbers(list), expected);
    ASSERT_EQ(list.count(), static_cast<int>(expected.size()));
    const List* before = nullptr;
    for (int i = 0; i < list.count(); ++i) {
        const List* node = list.at(i);
        ASSERT_EQ(node->index(), i);
        ASSERT_EQ(node->parent(), &list);
        ASSERT_EQ(node->prev(), before);
        ASSERT_EQ(node->next(), list.at(i + 1));
        ASSERT_EQ(numberOf(*node), expected[static_cast<std::size_t>(i)]);
        before = node;
    }
    ASSERT_EQ(list.first(), list.at(0));
    ASSERT_EQ(list.last(), before);
    ASSERT_EQ(list.at(-1), nullptr);
}

int byTens(const List& a, const List& b)
{
    return numberOf(a) / 10 - numberOf(b) / 10;
}

int byNumber(const List& a, const List& b)
{
    return numberOf(a) - numberOf(b);
}

List* byLinks(const List& list, int position)
{
    List* node = list.first();
    for (int i = 0; i < position; ++i)
        node = node->next();
    return node;
}

class ListTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(Numbered::alive, 0); }

    static void fill(List& list, const std::vector<int>& values)
    {
        for (int value : values)
            list.append(new Numbered(value));
    }
};

TEST_F(ListTest, keepsIndexAndLinksTogetherThroughRandomChanges)
{
    std::mt19937 random(20240517);
    for (int round = 0; round < 40; ++round) {
        List list;
        std::vector<int> model;
        for (int step = 0; step < 120; ++step) {
            const int size = static_cast<int>(model.size());
            const auto position = static_cast<int>(random() % static_cast<unsigned>(size + 1));
            switch (random() % 5) {
            case 0:
            case 1:
                list.append(new Numbered(step));
                model.push_back(step);
                break;
            case 2:
                list.insertBefore(list.at(position), new Numbered(step));
                model.insert(model.begin() + position, step);
                break;
            case 3:
                if (position < size) {
                    delete byLinks(list, position);
                    model.erase(model.begin() + position);
                }
                break;
            default:
                list.bubbleSort(byTens, List::Direction::Ascending);
                std::stable_sort(
                    model.begin(), model.end(), [](int a, int b) { return a / 10 < b / 10; });
            }
            if (random() % 4 != 0) // several gaps may gather before anyone looks
                continue;
            ASSERT_NO_FATAL_FAILURE(expectConsistent(list, model)) << round << " " << step;
        }
    }
}

TEST_F(ListTest, sortsRandomListsBothWays)
{
    std::mt19937 random(7);
    for (int size : { 0, 1, 2, 3, 17, 200 }) {
        List list;
        std::vector<int> model;
        for (int i = 0; i < size; ++i)
            model.push_back(static_cast<int>(random() % 50));
        fill(list, model);
        list.quickSort(byNumber);
        std::sort(model.begin(), model.end());
        expectConsistent(list, model);
        list.bubbleSort(byNumber, List::Direction::Descending);
        std::reverse(model.begin(), model.end());
        expectConsistent(list, model);
    }
}

TEST_F(ListTest, survivesSortingALongListInOrder)
{
    List list;
    for (int i = 0; i < 3000; ++i)
        list.append(new Numbered(1)); // the worst case for the depth of the recursion
    list.quickSort(byNumber);
    EXPECT_EQ(list.count(), 3000);
}

TEST_F(ListTest, indexHasRoomForSixteenAndDoubles)
{
    List list;
    for (int i = 0; i < 16; ++i)
        list.append(new Numbered(i));
    EXPECT_EQ(list.capacity(), 16);
    List* seventeenth = list.append(new Numbered(16));
    EXPECT_EQ(list.capacity(), 32);
    EXPECT_EQ(list.at(16), seventeenth);
}

TEST_F(ListTest, cursorMovesOnWhenItsChildLeaves)
{
    List list;
    fill(list, { 1, 2, 3 });
    list.cursor = list.at(1);
    delete list.at(1);
    EXPECT_EQ(numberOf(*list.cursor), 3);
    delete list.last();
    EXPECT_EQ(numberOf(*list.cursor), 1);
    delete list.last();
    EXPECT_EQ(list.cursor, nullptr);
}

TEST_F(ListTest, deletesOnlyWhatItOwns)
{
    auto borrowed = std::make_unique<Numbered>(2);
    List* unlinked = nullptr;
    {
        List list;
        fill(list, { 1, 4 });
        list.appendRef(borrowed.get());
        unlinked = list.first();
        unlinked->append(new Numbered(3)); // lists nest
        unlinked->unlink(); // the caller's now, with what is in it
        unlinked->unlink();
        EXPECT_EQ(unlinked->index(), -1);
        EXPECT_EQ(unlinked->parent(), nullptr);
        EXPECT_EQ(Numbered::alive, 4);
    }
    EXPECT_EQ(Numbered::alive, 3);
    delete unlinked;
    EXPECT_EQ(Numbered::alive, 1);
}

TEST_F(ListTest, deletesNothingDuringShutdown)
{
    auto owned = std::make_unique<Numbered>(1);
    {
        List list(owned.get(), Ownership::Owning);
        shuttingDown = true;
    }
    shuttingDown = false;
    EXPECT_EQ(Numbered::alive, 1);
}

TEST(NameList, holdsNamesInOrder)
{
    List list;
    addName(list, "Photo  1");
    List* node = addName(list, "");
    EXPECT_EQ(itemName(list.first()), "Photo  1");
    EXPECT_EQ(itemName(node), "");
    EXPECT_EQ(list.first()->item()->caption, "");
    EXPECT_EQ(itemName(nullptr), "");
    EXPECT_EQ(itemName(&list), "");
}

} // namespace
} // namespace kez
