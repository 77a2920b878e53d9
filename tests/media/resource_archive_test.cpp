// SPDX-License-Identifier: MIT
#include "media/resource_archive.h"

#include "platform/temporary_folder.h"
#include "support/debug_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using namespace kez;
using namespace kez::test;
using testing::HasSubstr;

namespace {

std::string record(const std::string& name, const std::string& body)
{
    const std::size_t length = 4 + name.size() + 1 + body.size();
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(length >> 8 * i);
    return bytes + name + '\0' + body;
}

// What lies behind the name of a record.
std::string bodyOf(const std::uint8_t* found)
{
    if (found == nullptr)
        return "(none)";
    const std::size_t length = found[0] | static_cast<std::size_t>(found[1]) << 8;
    const std::string whole(reinterpret_cast<const char*>(found), length);
    return whole.substr(whole.find('\0', 4) + 1);
}

// The archive lies in "data", loose files may lie there, in "extra" and in the current directory.
class Archives : public testing::Test {
protected:
    Archives()
    {
        std::filesystem::create_directory(folder / "data");
        std::filesystem::create_directory(folder / "extra");
        std::filesystem::current_path(folder.path());
    }

    ~Archives() override { std::filesystem::current_path(before); }

    std::string find(const char* name) { return bodyOf(archive.find(name)); }

    const std::filesystem::path before = std::filesystem::current_path();
    TemporaryFolder folder;
    ResourceArchive archive { nullptr, nullptr };
    const char* const path = "data\\kez.wad";
};

TEST_F(Archives, findsRecordsWhateverTheCaseOfTheirLetters)
{
    folder.put("data/kez.wad",
        record("camBack.sp5", "one") + record("\xC4.sp5", "two") + record("camBack.SP5", "three"));
    archive.open(path);
    EXPECT_EQ(archive.count(), 3);
    EXPECT_EQ(find("CAMBACK.sp5"), "one") << "the first of two counts";
    EXPECT_EQ(find("\xC4.SP5"), "two");
    EXPECT_EQ(find("\xE4.sp5"), "(none)") << "only 'A' to 'Z' fold";
    EXPECT_EQ(find("camBack.sp"), "(none)");
    EXPECT_EQ(find("camBack.sp55"), "(none)");
    EXPECT_EQ(archive.find(nullptr), nullptr);
}

TEST_F(Archives, countsTheSameRecordsWhateverFollowsTheLast)
{
    const std::string records = record("a", "1") + record("b", "2");
    for (const std::string& tail : { std::string(), std::string(1, '\0'), std::string(4, '\0'),
             std::string(9, '\0'), std::string(4, '\0') + record("c", "3") }) {
        folder.put("data/kez.wad", records + tail);
        archive.open(path);
        EXPECT_EQ(archive.count(), 2) << tail.size();
    }
}

TEST_F(Archives, expandsACompressedArchive)
{
    // 12 bytes: the record, of 8, and zeroes.
    folder.put("data/kez.wad",
        std::string("DIF1\x04\0\x03\0\x02\x08\0\x02\0\0\x02"
                    "ab\x02\0x\0\0",
            23));
    archive.open(path);
    EXPECT_EQ(archive.count(), 1);
    EXPECT_EQ(find("ab"), "x");
}

TEST_F(Archives, looksForLooseFilesInThreePlaces)
{
    folder.put("data/kez.wad", record("inside", "archive"));
    folder.put("data/inside", record("inside", "loose"));
    folder.put("data/one", record("one", "beside the archive"));
    folder.put("extra/one", record("one", "extra"));
    folder.put("extra/two", record("two", "extra"));
    folder.put("two", record("two", "here"));
    folder.put("Three", record("three", "here"));
    ResourceArchive wide("data\\kez.wad", "extra");
    EXPECT_EQ(bodyOf(wide.find("inside")), "archive") << "a loose file never hides a record";
    EXPECT_EQ(bodyOf(wide.find("ONE")), "beside the archive");
    EXPECT_EQ(bodyOf(wide.find("two")), "extra");
    EXPECT_EQ(bodyOf(wide.find("three")), "here") << "files' names ignore case";
    EXPECT_EQ(wide.count(), 4);
    EXPECT_EQ(bodyOf(wide.find("two")), "extra");
    EXPECT_EQ(wide.count(), 4) << "a loose file is read once";
    wide.release();
    EXPECT_EQ(bodyOf(wide.find("one")), "extra") << "the archive's directory is forgotten";
}

TEST_F(Archives, givesALooseFileTheNameStoredInIt)
{
    folder.put("data/kez.wad", record("inside", "archive"));
    folder.put("alias", record("Proper", "it"));
    archive.open(path);
    EXPECT_EQ(find("alias"), "it");
    EXPECT_EQ(find("alias"), "it");
    EXPECT_EQ(archive.count(), 3) << "read and added at every such lookup";
    EXPECT_EQ(find("proper"), "it");
}

TEST_F(Archives, takesTheFirstLooseFileAsTheArchiveWhileThereIsNone)
{
    folder.put("set", record("first", "1") + record("second", "2"));
    folder.put("later", record("later", "3") + record("unseen", "4"));
    EXPECT_EQ(find("set"), "1");
    EXPECT_EQ(archive.count(), 2);
    EXPECT_EQ(find("second"), "2");
    EXPECT_EQ(find("later"), "3");
    EXPECT_EQ(archive.count(), 3) << "then a loose file gives one record";
}

TEST_F(Archives, keepsPointersValidWhileItGrows)
{
    folder.put("data/kez.wad", record("inside", "archive"));
    archive.open(path);
    std::uint8_t* first = archive.find("inside");
    first[11] = 'A';
    for (int i = 0; i < 100; ++i) {
        const std::string name = "loose" + std::to_string(i);
        folder.put(name, record(name, name));
        ASSERT_EQ(find(name.c_str()), name);
    }
    EXPECT_EQ(archive.find("inside"), first);
    EXPECT_EQ(bodyOf(first), "Archive");
    EXPECT_EQ(find("loose0"), "loose0");
}

TEST_F(Archives, boundsNamesAndPaths)
{
    const std::string name39(39, 'n');
    const std::string name40(40, 'm');
    folder.put(
        "data/kez.wad", record(name39, "in") + record(name40, "never") + record("z", "last"));
    DebugOutput log;
    archive.open(path);
    EXPECT_EQ(find(name39.c_str()), "in");
    EXPECT_EQ(find(name40.c_str()), "(none)");
    EXPECT_EQ(find("z"), "last") << "the records behind a bad name are kept";
    EXPECT_THAT(log.text(), HasSubstr("kez.wad: the record at byte 46"));
    EXPECT_EQ(find(std::string(5000, 'x').c_str()), "(none)");

    const std::string deep(99, 'd');
    std::filesystem::create_directory(folder / deep);
    folder.put(deep + "/q", record("q", "deep"));
    ResourceArchive tooDeep("data\\kez.wad", deep.c_str());
    EXPECT_EQ(tooDeep.find("q"), nullptr) << "99 characters leave no room for the backslash";
}

TEST_F(Archives, refusesWhatIsDamagedAndSaysSo)
{
    const struct {
        const char* name;
        std::string bytes;
        int count;
        const char* said;
    } cases[] = {
        { "length behind the data", record("a", "1") + std::string("\xFF\0\0\0b\0", 6), 1,
            "kez.wad: the record at byte 7 has a length that runs past the data" },
        { "length within the name", record("a", "1") + std::string("\x04\0\0\0b\0", 6), 1,
            "kez.wad: the record at byte 7" },
        { "name without end", std::string("\x06\0\0\0ab", 6), 0,
            "kez.wad: the record at byte 0 has a name" },
        { "empty", "", 0, "" },
        { "half a header", "DIF1", 0, "kez.wad: the compressed data end early" },
        { "stream without end", std::string("DIF1\x02\0\x02\0\x01x", 10), 0,
            "kez.wad: the compressed data end early" },
        { "stream longer than announced", std::string("DIF1\x01\0\x01\0\x02xy\0\0", 13), 0,
            "kez.wad: the compressed data hold more than they announce" },
        { "more than can be", std::string("DIF1\xFF\xFF\xFF\xFF\0\0", 10), 0,
            "kez.wad: it announces" },
    };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        folder.put("data/kez.wad", each.bytes);
        DebugOutput log;
        archive.open(path);
        EXPECT_EQ(archive.count(), each.count);
        EXPECT_THAT(log.text(), HasSubstr(each.said));
        archive.release();
        folder.put("data/kez.wad", record("sound", "1"));
        archive.open(path);
        folder.put("loose", each.bytes);
        EXPECT_EQ(bodyOf(archive.addFile("loose")), each.count == 1 ? "1" : "(none)");
    }
    DebugOutput log;
    archive.open("data\\none.wad");
    EXPECT_EQ(archive.find("nothing"), nullptr);
    EXPECT_EQ(log.text(), "") << "what is missing is the caller's to report";
}

} // namespace
