// SPDX-License-Identifier: MIT
// Wide text where the code page takes more than two bytes for a unit, which is more than strings
// make room for at first. Here and not with the strings' own tests, since the converter is led past
// here.
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>
#if defined(_WIN32)
#include <windows.h>

#include <oleauto.h>
#endif

#include <string>
#include <vector>

#include "tests/failing_memory/door.h"
#include "tests/support/string_bytes.h"

namespace {

using quarnfc_test::Bytes;

struct Text {
  const wchar_t* wide;
  int units;
  std::string bytes;
};

// Texts of one, two, three and four bytes a character: below the room of two bytes a unit, at it
// and above it.
const Text kTexts[] = {
    {L"abc", 3, "abc"},
    {L"\x00E9\x00E8", 2, "\xC3\xA9\xC3\xA8"},
    {L"a\x4E2D", 2, "a\xE4\xB8\xAD"},
    {L"\x4E2D", 1, "\xE4\xB8\xAD"},
    {L"ab\x4E2D\x6587", 4, "ab\xE4\xB8\xAD\xE6\x96\x87"},
    {L"a\x4E2D\x6587", 3, "a\xE4\xB8\xAD\xE6\x96\x87"},
    {L"\xD83D\xDE00", 2, "\xF0\x9F\x98\x80"},
};

// A text of count characters, in units of the platform.
std::vector<wchar_t> Wide(std::size_t count) {
  std::vector<wchar_t> wide(count, L'\x4E2D');
  wide.push_back(L'\0');
  return wide;
}

std::string Utf8(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += "\xE4\xB8\xAD";
  return bytes;
}

TEST(Utf8CodePage, WideTextArrivesWholeHoweverManyBytesAUnitTakes) {
  const failing::Utf8CodePage page;
  for (const Text& c : kTexts) {
    EXPECT_EQ(Bytes(CQNString(c.wide)), c.bytes);
    EXPECT_EQ(Bytes(CQNString(c.wide, c.units)), c.bytes);
    CQNString assigned("something");
    assigned = c.wide;
    EXPECT_EQ(Bytes(assigned), c.bytes);
  }
}

TEST(Utf8CodePage, TheRoomOfEveryPoolAndOfTheHeapIsExceeded) {
  const failing::Utf8CodePage page;
  for (const std::size_t count : {31u, 32u, 33u, 64u, 65u, 128u, 256u, 257u, 5000u}) {
    const auto wide = Wide(count);
    EXPECT_EQ(Bytes(CQNString(wide.data())), Utf8(count)) << count;
    EXPECT_EQ(Bytes(CQNString(wide.data(), static_cast<int>(count))), Utf8(count)) << count;
  }
}

TEST(Utf8CodePage, OnlyTheUnitsThatAreCountedAreTaken) {
  const failing::Utf8CodePage page;
  for (const int units : {1, 2, 3}) {
    EXPECT_EQ(Bytes(CQNString(L"\x4E2D\x4E2D\x4E2D\x6587", units)),
              Utf8(static_cast<std::size_t>(units)));
  }
}

TEST(Utf8CodePage, SharedTextsAreNotDisturbed) {
  const failing::Utf8CodePage page;
  CQNString text("shared");
  const CQNString copy(text);
  text = Wide(40).data();
  EXPECT_EQ(Bytes(text), Utf8(40));
  EXPECT_EQ(Bytes(copy), "shared");
}

TEST(Utf8CodePage, SystemStringsHoldTheUnitsOfTheText) {
  const failing::Utf8CodePage page;
  BSTR system_string = CQNString(L"a\x4E2D\xD83D\xDE00").AllocSysString();
  EXPECT_EQ(SysStringLen(system_string), 4u);
  EXPECT_EQ(Bytes(CQNString(system_string)), "a\xE4\xB8\xAD\xF0\x9F\x98\x80");
  SysFreeString(system_string);
}

}  // namespace
