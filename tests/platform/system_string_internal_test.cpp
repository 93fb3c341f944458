// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#if defined(_WIN32)
#include <windows.h>

#include <oleauto.h>
#endif

#include <cstring>
#include <vector>

#include "platform/system_string.h"
#include "tests/support/bytes.h"

namespace quarnfc::platform {
namespace {

using quarnfc_test::Units;
using quarnfc_test::UnitsOf;
using namespace std::string_view_literals;

Units UnitsOfString(BSTR string) { return Units(string, string + SysStringLen(string)); }

TEST(SystemString, CopiesTheUnitsAndTerminatesThem) {
  const wchar_t source[] = L"a\0\u4E2D";
  BSTR string = AllocSystemString(source, 3);
  EXPECT_EQ(UnitsOf(u"a\0\u4E2D"sv), UnitsOfString(string));
  EXPECT_EQ(0u, static_cast<unsigned int>(string[3]));
  SysFreeString(string);
}

TEST(SystemString, ByteCountStandsInFrontOfTheText) {
  BSTR string = AllocSystemString(L"abc", 3);
  unsigned int byte_count = 0;
  std::memcpy(&byte_count, reinterpret_cast<const char*>(string) - 4, 4);
  EXPECT_EQ(6u, byte_count);
  SysFreeString(string);
}

TEST(SystemString, WithoutSourceIsTerminatedOnly) {
  BSTR string = AllocSystemString(nullptr, 5);
  EXPECT_EQ(5u, SysStringLen(string));
  EXPECT_EQ(0u, static_cast<unsigned int>(string[5]));
  SysFreeString(string);
}

TEST(SystemString, NullHasNoLengthAndIsReleasedSafely) {
  EXPECT_EQ(0u, SysStringLen(nullptr));
  SysFreeString(nullptr);
}

TEST(SystemString, TooLongFails) {
  EXPECT_EQ(nullptr, AllocSystemString(nullptr, 0x7FFFFFFF));
  EXPECT_EQ(nullptr, AllocSystemString(nullptr, 0xFFFFFFFF));
}

TEST(SystemString, ReallocReplacesTheText) {
  BSTR string = AllocSystemString(L"abc", 3);
  EXPECT_TRUE(ReallocSystemString(string, L"vwxyz", 5));
  EXPECT_EQ(UnitsOf(u"vwxyz"), UnitsOfString(string));
  EXPECT_TRUE(ReallocSystemString(string, L"", 0));
  EXPECT_EQ(0u, SysStringLen(string));
  SysFreeString(string);
}

TEST(SystemString, ReallocWithoutSourceKeepsWhatFits) {
  BSTR string = AllocSystemString(L"abc", 3);
  EXPECT_TRUE(ReallocSystemString(string, nullptr, 2));
  EXPECT_EQ(UnitsOf(u"ab"), UnitsOfString(string));
  EXPECT_TRUE(ReallocSystemString(string, nullptr, 1000));
  EXPECT_EQ(1000u, SysStringLen(string));
  EXPECT_EQ('b', string[1]);
  EXPECT_EQ(0u, static_cast<unsigned int>(string[1000]));
  SysFreeString(string);
}

TEST(SystemString, ReallocMakesAStringOutOfNull) {
  BSTR string = nullptr;
  EXPECT_TRUE(ReallocSystemString(string, L"ab", 2));
  EXPECT_EQ(UnitsOf(u"ab"), UnitsOfString(string));
  SysFreeString(string);
}

TEST(SystemString, ReallocThatFailsKeepsTheString) {
  BSTR string = AllocSystemString(L"abc", 3);
  EXPECT_FALSE(ReallocSystemString(string, nullptr, 0x7FFFFFFF));
  EXPECT_EQ(UnitsOf(u"abc"), UnitsOfString(string));
  SysFreeString(string);
}

}  // namespace
}  // namespace quarnfc::platform
