// SPDX-License-Identifier: MIT
#include "core/object.h"

#include <gtest/gtest.h>

namespace kez {
namespace {

TEST(Object, tellsItsNames)
{
    Object object;
    object.setName("apple");
    object.caption = "green";
    String out;
    EXPECT_EQ(&object.getName(out, false), &out);
    EXPECT_EQ(out, "apple");
    EXPECT_EQ(object.getName(out, true), "green");
    EXPECT_EQ(object.className(), "Object");
    EXPECT_EQ(object.clone(), nullptr);
    object.setName(nullptr);
    EXPECT_EQ(object.name(), "");
}

} // namespace
} // namespace kez
