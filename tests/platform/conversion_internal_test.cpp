// SPDX-License-Identifier: MIT
// What the conversions do with their arguments, whatever the encoding.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "platform/code_page.h"
#include "tests/platform/wine.h"

namespace quarnfc::platform {
namespace {

constexpr Encoding kEncodings[] = {Encoding::kAnsi, Encoding::kUtf8};

TEST(Conversion, NegativeLengthTakesTheTerminatorToo) {
  for (const Encoding encoding : kEncodings) {
    wchar_t units[8] = {};
    EXPECT_EQ(3, ToUtf16(encoding, "ab", kTerminated, nullptr, 0));
    EXPECT_EQ(3, ToUtf16(encoding, "ab", kTerminated, units, 8));
    char bytes[8] = {};
    EXPECT_EQ(3, FromUtf16(encoding, L"ab", kTerminated, nullptr, 0));
    EXPECT_EQ(3, FromUtf16(encoding, L"ab", kTerminated, bytes, 8));
    EXPECT_STREQ("ab", bytes);
  }
}

TEST(Conversion, EmptyTextOfUnknownLengthIsItsTerminator) {
  for (const Encoding encoding : kEncodings) {
    EXPECT_EQ(1, ToUtf16(encoding, "", kTerminated, nullptr, 0));
    EXPECT_EQ(1, FromUtf16(encoding, L"", kTerminated, nullptr, 0));
  }
}

TEST(Conversion, LengthGivenIsNotExceeded) {
  for (const Encoding encoding : kEncodings) {
    const std::vector<char> bytes = {'a', 'b'};  // no terminator behind it
    wchar_t units[2] = {};
    EXPECT_EQ(2, ToUtf16(encoding, bytes.data(), 2, units, 2));
    const std::vector<wchar_t> wide = {L'a', L'b'};
    char narrow[2] = {};
    EXPECT_EQ(2, FromUtf16(encoding, wide.data(), 2, narrow, 2));
  }
}

TEST(Conversion, LeadByteThatEndsTheTextIsNotFollowed) {
  const std::vector<char> gbk = {'a', '\xB0'};
  const std::vector<char> utf8 = {'a', '\xF0'};
  wchar_t units[4] = {};
  EXPECT_EQ(2, ToUtf16(Encoding::kAnsi, gbk.data(), 2, units, 4));
  EXPECT_EQ(2, ToUtf16(Encoding::kUtf8, utf8.data(), 2, units, 4));
}

TEST(Conversion, BufferOfExactlyTheSizeIsEnough) {
  wchar_t units[3] = {1, 2, 3};
  EXPECT_EQ(2, ToUtf16(Encoding::kAnsi, "\xD6\xD0z", 3, units, 2));
  EXPECT_EQ(3u, static_cast<unsigned int>(units[2]));
  char bytes[4] = {1, 2, 3, 4};
  EXPECT_EQ(3, FromUtf16(Encoding::kUtf8, L"\u4E2D", 1, bytes, 3));
  EXPECT_EQ(4, bytes[3]);
}

TEST(Conversion, SmallBufferFailsWithoutBeingOverrun) {
  for (const Encoding encoding : kEncodings) {
    wchar_t units[2] = {1, 2};
    EXPECT_EQ(0, ToUtf16(encoding, "abc", 3, units, 1));
    EXPECT_EQ(2u, static_cast<unsigned int>(units[1]));

    char bytes[4] = {1, 2, 3, 4};
    EXPECT_EQ(0, FromUtf16(encoding, L"ab\u4E2D", 3, bytes, 3));
    EXPECT_EQ(4, bytes[3]);
  }
}

TEST(Conversion, SurrogatePairNeedsRoomForBoth) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine reports half a surrogate pair as a success";
  }
  wchar_t units[1] = {};
  EXPECT_EQ(0, ToUtf16(Encoding::kUtf8, "\xF0\x9F\x98\x80", 4, units, 1));
}

// Every capacity below the size that was asked for is too small, and every other is enough. The
// sources are on the heap without a byte to spare, where a sanitizer sees any step beyond them.
TEST(Conversion, SizeAskedForIsTheSmallestThatIsEnough) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine reports half a surrogate pair as a success";
  }
  constexpr char kBytes[] = "a\x40\x5C\x7F\x80\x8F\xB0\xBF\xC3\xE4\xED\xF0\xF4\xFE\xFF";
  std::mt19937 random;
  for (int round = 0; round < 20'000; ++round) {
    std::vector<char> source(1 + random() % 12);
    for (char& byte : source) {
      byte = kBytes[random() % sizeof(kBytes)];
    }
    const int length = static_cast<int>(source.size());
    const Encoding encoding = kEncodings[round % 2];
    const int size = ToUtf16(encoding, source.data(), length, nullptr, 0);
    std::vector<wchar_t> units;
    for (int capacity = 1; capacity <= size + 1; ++capacity) {
      units.assign(static_cast<std::size_t>(capacity), 0);
      const int expected = capacity < size ? 0 : size;
      ASSERT_EQ(expected, ToUtf16(encoding, source.data(), length, units.data(), capacity));
    }
    const int byte_size = FromUtf16(encoding, units.data(), size, nullptr, 0);
    for (int capacity = 1; capacity <= byte_size + 1; ++capacity) {
      std::vector<char> bytes(static_cast<std::size_t>(capacity));
      const int expected = capacity < byte_size ? 0 : byte_size;
      ASSERT_EQ(expected, FromUtf16(encoding, units.data(), size, bytes.data(), capacity));
    }
  }
}

struct BadCall {
  const char* name;
  bool has_source;
  int length;
  bool has_destination;
  int capacity;
};

constexpr BadCall kBadCalls[] = {
    {"no source", false, 1, true, 4},
    {"length 0", true, 0, true, 4},
    {"no destination", true, 1, false, 4},
    {"negative capacity", true, 1, true, -1},
};

TEST(Conversion, BadArgumentsFail) {
  for (const BadCall& c : kBadCalls) {
    for (const Encoding encoding : kEncodings) {
      SCOPED_TRACE(c.name);
      wchar_t units[4] = {};
      EXPECT_EQ(0, ToUtf16(encoding, c.has_source ? "a" : nullptr, c.length,
                           c.has_destination ? units : nullptr, c.capacity));
      char bytes[4] = {};
      EXPECT_EQ(0, FromUtf16(encoding, c.has_source ? L"a" : nullptr, c.length,
                             c.has_destination ? bytes : nullptr, c.capacity));
    }
  }
}

TEST(Conversion, SourceMustNotBeTheDestination) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine does not compare the two";
  }
  wchar_t units[4] = {L'a'};
  auto* bytes = reinterpret_cast<char*>(units);
  EXPECT_EQ(0, ToUtf16(Encoding::kAnsi, bytes, 1, units, 4));
  EXPECT_EQ(0, FromUtf16(Encoding::kAnsi, units, 1, bytes, 4));
}

}  // namespace
}  // namespace quarnfc::platform
