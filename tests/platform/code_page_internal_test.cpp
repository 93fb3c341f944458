// What MultiByteToWideChar and WideCharToMultiByte do with their arguments, whatever the code page.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "platform/platform.h"
#include "tests/platform/wine.h"

namespace {

constexpr UINT kCodePages[] = {CP_ACP, CP_UTF8};

TEST(CodePage, NegativeLengthTakesTheTerminatorToo) {
  for (const UINT code_page : kCodePages) {
    wchar_t units[8] = {};
    EXPECT_EQ(3, MultiByteToWideChar(code_page, 0, "ab", -1, nullptr, 0));
    EXPECT_EQ(3, MultiByteToWideChar(code_page, 0, "ab", -1, units, 8));
    char bytes[8] = {};
    EXPECT_EQ(3, WideCharToMultiByte(code_page, 0, L"ab", -1, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(3, WideCharToMultiByte(code_page, 0, L"ab", -1, bytes, 8, nullptr, nullptr));
    EXPECT_STREQ("ab", bytes);
  }
}

TEST(CodePage, EmptyTextOfUnknownLengthIsItsTerminator) {
  for (const UINT code_page : kCodePages) {
    EXPECT_EQ(1, MultiByteToWideChar(code_page, 0, "", -1, nullptr, 0));
    EXPECT_EQ(1, WideCharToMultiByte(code_page, 0, L"", -1, nullptr, 0, nullptr, nullptr));
  }
}

TEST(CodePage, LengthGivenIsNotExceeded) {
  for (const UINT code_page : kCodePages) {
    const std::vector<char> bytes = {'a', 'b'};  // no terminator behind it
    wchar_t units[2] = {};
    EXPECT_EQ(2, MultiByteToWideChar(code_page, 0, bytes.data(), 2, units, 2));
    const std::vector<wchar_t> wide = {L'a', L'b'};
    char narrow[2] = {};
    EXPECT_EQ(2, WideCharToMultiByte(code_page, 0, wide.data(), 2, narrow, 2, nullptr, nullptr));
  }
}

TEST(CodePage, LeadByteThatEndsTheTextIsNotFollowed) {
  const std::vector<char> gbk = {'a', '\xB0'};
  const std::vector<char> utf8 = {'a', '\xF0'};
  wchar_t units[4] = {};
  EXPECT_EQ(2, MultiByteToWideChar(CP_ACP, 0, gbk.data(), 2, units, 4));
  EXPECT_EQ(2, MultiByteToWideChar(CP_UTF8, 0, utf8.data(), 2, units, 4));
}

TEST(CodePage, BufferOfExactlyTheSizeIsEnough) {
  wchar_t units[3] = {1, 2, 3};
  EXPECT_EQ(2, MultiByteToWideChar(CP_ACP, 0, "\xD6\xD0z", 3, units, 2));
  EXPECT_EQ(3u, static_cast<unsigned int>(units[2]));
  char bytes[4] = {1, 2, 3, 4};
  EXPECT_EQ(3, WideCharToMultiByte(CP_UTF8, 0, L"\u4E2D", 1, bytes, 3, nullptr, nullptr));
  EXPECT_EQ(4, bytes[3]);
}

TEST(CodePage, SmallBufferFailsWithoutBeingOverrun) {
  for (const UINT code_page : kCodePages) {
    wchar_t units[2] = {1, 2};
    SetLastError(0);
    EXPECT_EQ(0, MultiByteToWideChar(code_page, 0, "abc", 3, units, 1));
    EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
    EXPECT_EQ(2u, static_cast<unsigned int>(units[1]));

    char bytes[4] = {1, 2, 3, 4};
    SetLastError(0);
    EXPECT_EQ(0, WideCharToMultiByte(code_page, 0, L"ab\u4E2D", 3, bytes, 3, nullptr, nullptr));
    EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
    EXPECT_EQ(4, bytes[3]);
  }
}

TEST(CodePage, SurrogatePairNeedsRoomForBoth) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine reports half a surrogate pair as a success";
  }
  wchar_t units[1] = {};
  SetLastError(0);
  EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, 0, "\xF0\x9F\x98\x80", 4, units, 1));
  EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
}

// Every capacity below the size that was asked for is too small, and every other is enough. The
// sources are on the heap without a byte to spare, where a sanitizer sees any step beyond them.
TEST(CodePage, SizeAskedForIsTheSmallestThatIsEnough) {
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
    const UINT code_page = kCodePages[round % 2];
    const int size = MultiByteToWideChar(code_page, 0, source.data(), length, nullptr, 0);
    std::vector<wchar_t> units;
    for (int capacity = 1; capacity <= size + 1; ++capacity) {
      units.assign(static_cast<std::size_t>(capacity), 0);
      const int expected = capacity < size ? 0 : size;
      ASSERT_EQ(expected,
                MultiByteToWideChar(code_page, 0, source.data(), length, units.data(), capacity));
    }
    const int byte_size =
        WideCharToMultiByte(code_page, 0, units.data(), size, nullptr, 0, nullptr, nullptr);
    for (int capacity = 1; capacity <= byte_size + 1; ++capacity) {
      std::vector<char> bytes(static_cast<std::size_t>(capacity));
      const int expected = capacity < byte_size ? 0 : byte_size;
      ASSERT_EQ(expected, WideCharToMultiByte(code_page, 0, units.data(), size, bytes.data(),
                                              capacity, nullptr, nullptr));
    }
  }
}

struct BadCall {
  const char* name;
  DWORD error;
  UINT code_page;
  DWORD flags;
  bool has_source;
  int length;
  bool has_destination;
  int capacity;
};

constexpr BadCall kBadCalls[] = {
    {"no source", ERROR_INVALID_PARAMETER, CP_ACP, 0, false, 1, true, 4},
    {"length 0", ERROR_INVALID_PARAMETER, CP_ACP, 0, true, 0, true, 4},
    {"length 0, UTF-8", ERROR_INVALID_PARAMETER, CP_UTF8, 0, true, 0, true, 4},
    {"no destination", ERROR_INVALID_PARAMETER, CP_ACP, 0, true, 1, false, 4},
    {"negative capacity", ERROR_INVALID_PARAMETER, CP_ACP, 0, true, 1, true, -1},
    {"unknown code page", ERROR_INVALID_PARAMETER, 12345, 0, true, 1, true, 4},
    {"unknown flags", ERROR_INVALID_FLAGS, CP_ACP, 0x1000, true, 1, true, 4},
};

TEST(CodePage, BadArgumentsFailWithTheirError) {
  for (const BadCall& c : kBadCalls) {
    SCOPED_TRACE(c.name);
    wchar_t units[4] = {};
    SetLastError(0);
    EXPECT_EQ(0, MultiByteToWideChar(c.code_page, c.flags, c.has_source ? "a" : nullptr, c.length,
                                     c.has_destination ? units : nullptr, c.capacity));
    EXPECT_EQ(c.error, GetLastError());

    char bytes[4] = {};
    SetLastError(0);
    EXPECT_EQ(
        0, WideCharToMultiByte(c.code_page, c.flags, c.has_source ? L"a" : nullptr, c.length,
                               c.has_destination ? bytes : nullptr, c.capacity, nullptr, nullptr));
    EXPECT_EQ(c.error, GetLastError());
  }
}

TEST(CodePage, SourceMustNotBeTheDestination) {
  if (quarnfc_test::RunsUnderWine()) {
    GTEST_SKIP() << "Wine does not compare the two";
  }
  wchar_t units[4] = {L'a'};
  auto* bytes = reinterpret_cast<char*>(units);
  SetLastError(0);
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, bytes, 1, units, 4));
  EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
  SetLastError(0);
  EXPECT_EQ(0, WideCharToMultiByte(CP_ACP, 0, units, 1, bytes, 4, nullptr, nullptr));
  EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
}

TEST(CodePage, SuccessLeavesTheLastErrorAlone) {
  for (const UINT code_page : kCodePages) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(1, MultiByteToWideChar(code_page, 0, "a", 1, nullptr, 0));
    EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, GetLastError());
  }
}

TEST(CodePage, OemTextIsAnsiText) {
  char text[] = "a\xD6\xD0\x95\x5C";
  EXPECT_NE(0, CharToOemA(text, text));
  EXPECT_STREQ("a\xD6\xD0\x95\x5C", text);
  char copy[8] = {};
  EXPECT_NE(0, OemToCharA(text, copy));
  EXPECT_STREQ(text, copy);
  EXPECT_EQ(0, CharToOemA(nullptr, copy));
  EXPECT_EQ(0, OemToCharA(text, nullptr));
}

}  // namespace
