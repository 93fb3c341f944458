// SPDX-License-Identifier: MIT
#include "core/text/transcode.h"

#include <gtest/gtest.h>
#include <quarnfc/fixed_alloc.h>

#include <new>
#include <string>
#include <vector>

namespace quarnfc {
namespace {

std::vector<unsigned int> UnitsOf(const wchar_t* text) {
  std::vector<unsigned int> units;
  while (*text != 0) units.push_back(static_cast<unsigned int>(*text++));
  return units;
}

using Units = std::vector<unsigned int>;

TEST(Transcode, ConvertsWholeTextsIntoNewBuffers) {
  EXPECT_EQ((Units{'a', 0x4E2D, 'z'}), UnitsOf(ToWide(Encoding::kAnsi, "a\xD6\xD0z").get()));
  EXPECT_EQ((Units{'a', 0x4E2D}), UnitsOf(ToWide(Encoding::kUtf8, "a\xE4\xB8\xAD").get()));
  EXPECT_STREQ("a\xD6\xD0z", FromWide(Encoding::kAnsi, L"a\u4E2Dz").get());
  EXPECT_STREQ("a\xE4\xB8\xADz", FromWide(Encoding::kUtf8, L"a\u4E2Dz").get());
  EXPECT_STREQ("", FromWide(Encoding::kUtf8, L"").get());
  EXPECT_EQ(Units{}, UnitsOf(ToWide(Encoding::kAnsi, "").get()));
}

TEST(Transcode, NullStaysNull) {
  EXPECT_EQ(nullptr, ToWide(Encoding::kAnsi, nullptr));
  EXPECT_EQ(nullptr, FromWide(Encoding::kUtf8, nullptr));
}

// A block that was given back is the next one its pool gives out.
TEST(Transcode, ScratchTextStandsInThePoolForItsLength) {
  struct {
    std::size_t units;  // with the terminator
    CQNFixedAlloc* pool;
  } cases[] = {
      {1, _TempData128B()},    {64, _TempData128B()},   {65, _TempData256B()},
      {128, _TempData256B()},  {129, _TempData512B()},  {256, _TempData512B()},
      {257, _TempData1024B()}, {512, _TempData1024B()},
  };
  for (const auto& c : cases) {
    void* block = c.pool->Alloc();
    c.pool->Free(block);
    WideScratch wide(Encoding::kAnsi, std::string(c.units - 1, 'x').c_str());
    EXPECT_EQ(block, wide.Text()) << c.units;
    EXPECT_EQ(c.units - 1, wide.Units().size());
    EXPECT_EQ(0u, static_cast<unsigned int>(wide.Text()[c.units - 1]));
  }
  const WideScratch large(Encoding::kAnsi, std::string(512, 'x').c_str());
  EXPECT_EQ(512u, UnitsOf(large.Text()).size());
}

TEST(Transcode, ShortTextsGoToUtf8WithRoomForThreeBytesOfEach) {
  const struct {
    std::string ansi;
    std::string utf8;
  } cases[] = {
      {"a", "a"},
      {"a\xD6\xD0z", "a\xE4\xB8\xADz"},
      {std::string(kShortText, '\x80'),
       [] {
         std::string euros;
         for (int i = 0; i < kShortText; ++i) euros += "\xE2\x82\xAC";
         return euros;
       }()},
  };
  for (const auto& c : cases) {
    std::string target(kMostUtf8Bytes * c.ansi.size() + 1, '#');
    target.erase(static_cast<std::size_t>(AnsiToUtf8(c.ansi, target.data()) - target.data()));
    EXPECT_EQ(c.utf8, target);
  }
}

TEST(Transcode, TextsThatAreNotShortOrEmptyAreRefusedInsteadOfCut) {
  std::string target(kMostUtf8Bytes * (kShortText + 1), '#');
  EXPECT_THROW(AnsiToUtf8("", target.data()), std::bad_alloc);
  EXPECT_THROW(AnsiToUtf8(std::string(kShortText + 1, 'x'), target.data()), std::bad_alloc);
}

}  // namespace
}  // namespace quarnfc
