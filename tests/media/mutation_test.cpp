// SPDX-License-Identifier: MIT
// Damaged files of every kind that this layer reads. The sanitizers and the entries' own checks
// find the faults; a test that returns has passed.
#include "fuzz/entries.h"
#include "fuzz/mutations.h"
#include "media/targa_bytes.h"

#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;

namespace {

TEST(Mutations, ofTargaFilesAreReadOrRefused)
{
    const TargaBytesOf seeds[] = {
        { { .imageType = 10, .width = 5, .height = 3, .depth = 24, .descriptor = 0x70 }, { 1 }, {},
            { 0x84, 1, 2, 3, 4, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5, 6, 0x84, 1, 2, 3 } },
        { { .mapType = 1,
              .imageType = 9,
              .mapLength = 2,
              .mapEntryBits = 15,
              .width = 4,
              .height = 2,
              .depth = 8 },
            {}, { 1, 2, 3, 4 }, { 0x83, 1, 3, 0, 1, 0, 1 } },
        { { .imageType = 3, .width = 9, .height = 2, .depth = 1, .descriptor = 0x90 }, {}, {},
            { 1, 2, 3 } },
        { { .imageType = 2, .width = 3, .height = 3, .depth = 32, .descriptor = 0xA0 }, {}, {},
            Bytes(36, 5) },
        { { .imageType = 2, .width = 3, .height = 3, .depth = 24 }, {}, {}, Bytes(27, 5) },
    };
    for (const TargaBytesOf& seed : seeds)
        fuzz::feedMutations(fuzz::feedTargaFile, seed.file(), 4000);
}

TEST(Mutations, ofStreamsAreExpandedOrRefused)
{
    Bytes stream { 0, 2 }; // a block of 512 bytes; with 3, one whose start was skipped
    for (int i = 0; i < 40; ++i)
        for (const int byte : { 2, i, 77, 1, 9, 7, 0, 0, 0, 1 })
            stream.push_back(static_cast<std::uint8_t>(byte));
    stream.insert(stream.end(), { 0, 0 });
    for (const int kind : { 2, 3 }) {
        stream[1] = static_cast<std::uint8_t>(kind);
        fuzz::feedMutations(fuzz::feedDif1, stream, 10'000);
    }
}

TEST(Mutations, ofArchivesListSoundRecordsOnly)
{
    Bytes archive;
    for (int i = 0; i < 6; ++i) {
        archive.insert(archive.end(), { 48, 0, 0, 0, 'n', 'a', 'm', 'e' });
        archive.resize(archive.size() + 40);
    }
    fuzz::feedMutations(fuzz::feedArchive, archive, 20'000);
}

} // namespace
