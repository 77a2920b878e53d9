// SPDX-License-Identifier: MIT
/// A store in a folder of its own, and pictures for it.
#pragma once

#include "activity/album.h"
#include "activity/camera_slots.h"
#include "activity/picture_names.h"
#include "activity/stored_pictures.h"
#include "core/flags.h"
#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace kez::test {

using Picture = std::vector<std::uint8_t>;

/// Every pixel is different from its neighbours; no key colour occurs.
inline Picture makePicture(int width, int height, int seed = 1)
{
    Picture picture;
    for (int i = 0; i < width * height; ++i)
        for (const int factor : { 7, 31, 3 })
            picture.push_back(static_cast<std::uint8_t>((i * factor + seed * 13) % 250));
    return picture;
}

class StoreTest : public testing::Test {
protected:
    void SetUp() override
    {
        setDataPath(folder.path().c_str());
        diskBudget = 1 << 30;
        diskUsed = 0;
        unsavedPictures = false;
        importFailed = false;
        album().clear();
        resetSlots();
    }

    void TearDown() override { setDataPath(nullptr); }

    void put(const std::string& name, const std::string& bytes = "x") const
    {
        std::filesystem::create_directories(std::filesystem::path(folder / name).parent_path());
        folder.put(name, bytes);
    }

    bool has(const std::string& name) const { return std::filesystem::exists(folder / name); }

    /// An album entry with its two files.
    void putPhoto(const std::string& name) const
    {
        put("photo/" + name + ".cam", "picture of " + name);
        put("clipboard/" + name + ".clip", "clip of " + name);
    }

    TemporaryFolder folder;
};

} // namespace kez::test
