// SPDX-License-Identifier: MIT
#include "player/export_copies.h"

#include "platform/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace kez::player {

namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;

class ExportCopiesTest : public testing::Test {
protected:
    TemporaryFolder store;
    TemporaryFolder home;
    const std::string kez = home / "Pictures/Kez";
    ExportCopies copies { store.path(), kez };
};

TEST_F(ExportCopiesTest, goToThePersonsFolderOnceEach)
{
    store.put("Image  1.JPG", "old");
    copies.runStarts();
    store.put("Image  2.JPG", "new");
    store.put("Image  1.JPG", "written anew");
    EXPECT_EQ(copies.runEnds(), "Copied to " + kez + ": Image  1.JPG, Image  2.JPG\n");
    EXPECT_EQ(home.get("Pictures/Kez/Image  1.JPG"), "written anew");
    EXPECT_EQ(home.get("Pictures/Kez/Image  2.JPG"), "new");
    EXPECT_EQ(copies.runEnds(), ""); // the same are there
    copies.runStarts();
    std::filesystem::remove(home / "Pictures/Kez/Image  2.JPG");
    EXPECT_EQ(copies.runEnds(), ""); // thrown away by the person, and not written since
}

TEST_F(ExportCopiesTest, replaceNothing)
{
    std::filesystem::create_directories(kez);
    home.put("Pictures/Kez/image  1.jpg", "theirs");
    home.put("Pictures/Kez/Image  1 (2).JPG", "also theirs");
    copies.runStarts();
    store.put("Image  1.JPG", "ours");
    EXPECT_THAT(copies.runEnds(), HasSubstr("Image  1.JPG"));
    EXPECT_EQ(home.get("Pictures/Kez/image  1.jpg"), "theirs");
    EXPECT_EQ(home.get("Pictures/Kez/Image  1 (2).JPG"), "also theirs");
    EXPECT_EQ(home.get("Pictures/Kez/Image  1 (3).JPG"), "ours");
}

// A class whose computers share one folder, all told to stop at once.
TEST_F(ExportCopiesTest, ofManyPlayersAtOnceAllStay)
{
    constexpr int players = 8;
    std::vector<std::thread> threads;
    for (int player = 0; player < players; ++player) {
        threads.emplace_back([this, player] {
            const TemporaryFolder own;
            ExportCopies theirs(own.path(), kez);
            theirs.runStarts();
            own.put("Photo  1.JPG", "of player " + std::to_string(player));
            EXPECT_THAT(theirs.runEnds(), HasSubstr("Copied"));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::set<std::string> kept;
    for (const auto& file : std::filesystem::directory_iterator(kez))
        kept.insert(home.get("Pictures/Kez/" + file.path().filename().string()));
    EXPECT_EQ(kept.size(), players);
}

TEST_F(ExportCopiesTest, sayWhatCannotBeCopiedAndWhereItStays)
{
    home.put("Pictures", "a file");
    copies.runStarts();
    store.put("a.BMP", "1");
    EXPECT_THAT(copies.runEnds(),
        testing::AllOf(HasSubstr(kez + " takes no copy of a.BMP"), HasSubstr(store.path())));
    EXPECT_THAT(home.names(), ElementsAre("Pictures"));
}

TEST_F(ExportCopiesTest, areNotMadeWithoutAFolder)
{
    ExportCopies none { store.path(), "" };
    none.runStarts();
    store.put("a.BMP", "1");
    EXPECT_EQ(none.runEnds(), "");
}

} // namespace
} // namespace kez::player
