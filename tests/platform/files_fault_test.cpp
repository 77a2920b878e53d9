// SPDX-License-Identifier: MIT
#include "platform/file_texts.h"
#include "platform/temporary_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace kez::files {
namespace {

using test::TemporaryFolder;

// Asks only at the end whether all went well.
bool writeInPieces(const std::string& path)
{
    Writer writer(path);
    for (const std::string piece : { "n", "e", "w" })
        writer.write(bytesOf(piece));
    return writer.commit();
}

struct Operation {
    const char* name;
    std::function<bool(const TemporaryFolder&)> run;
    int writes;
};

const Operation operations[] = {
    { "write", [](const auto& folder) { return write(folder / "a.cam", bytesOf("new")); }, 1 },
    { "copy", [](const auto& folder) { return copy(folder / "source", folder / "a.cam"); }, 1 },
    { "pieces", [](const auto& folder) { return writeInPieces(folder / "a.cam"); }, 3 },
};

// Runs the operation once over an existing file and once where none is.
void expectOldOrNew(const Operation& operation, const Fault::Plan& plan, bool succeeds)
{
    for (const bool existing : { true, false }) {
        SCOPED_TRACE(existing ? "over a file" : "where none is");
        const TemporaryFolder folder;
        folder.put("source", "new");
        if (existing)
            folder.put("a.cam", "old");
        {
            const Fault fault(plan);
            EXPECT_EQ(operation.run(folder), succeeds);
        }
        const std::string left = existing ? "old" : "(none)";
        EXPECT_EQ(folder.get("a.cam"), succeeds ? "new" : left);
        EXPECT_EQ(folder.names(),
            existing || succeeds ? Names({ "a.cam", "source" }) : Names({ "source" }));
    }
}

TEST(FilesFault, whateverFailsTheOldFileStaysOrTheNewOneIsThere)
{
    for (const Operation& operation : operations)
        for (int number = 0; number <= 3; ++number) {
            SCOPED_TRACE(std::string(operation.name) + " " + std::to_string(number));
            expectOldOrNew(operation, { .failWriteNumber = number }, number >= operation.writes);
            expectOldOrNew(operation, { .failCommitNumber = number }, number >= 1);
            expectOldOrNew(operation, { .roomBytes = number }, number == 3);
        }
}

TEST(FilesFault, roomIsSharedByTheFilesThatAreWritten)
{
    const TemporaryFolder folder;
    const Fault fault({ .roomBytes = 5 });
    EXPECT_TRUE(write(folder / "a", bytesOf("four")));
    EXPECT_FALSE(write(folder / "b", bytesOf("two")));
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
    EXPECT_TRUE(write(folder / "c", bytesOf("1")));
    EXPECT_EQ(folder.names(), Names({ "a", "c" }));
}

TEST(FilesFault, renamesAndRemovesFailOnRequestAndWorkAgainAfterwards)
{
    const TemporaryFolder folder;
    folder.put("a", "A");
    {
        const Fault fault({ .renamesFail = true, .removesFail = true });
        EXPECT_FALSE(rename(folder / "a", folder / "b"));
        EXPECT_FALSE(remove(folder / "a"));
        EXPECT_EQ(GetLastError(), ERROR_IO_DEVICE);
    }
    EXPECT_TRUE(rename(folder / "a", folder / "b"));
    EXPECT_EQ(folder.get("b"), "A");
    EXPECT_TRUE(remove(folder / "b"));
    EXPECT_TRUE(folder.names().empty());
}

} // namespace
} // namespace kez::files
