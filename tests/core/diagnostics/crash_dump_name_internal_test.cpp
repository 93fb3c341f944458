// SPDX-License-Identifier: MIT
#include "core/diagnostics/crash_dump_name.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace {

const void* Address(std::uintptr_t address) { return reinterpret_cast<const void*>(address); }

std::tm Time(int month, int day, int hour, int minute, int second) {
  std::tm time{};
  time.tm_year = 126;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  return time;
}

TEST(CrashDumpName, HasNoPaddingAndNoYear) {
  const struct {
    std::tm time;
    const char* prefix;
    const void* info;
    const char* expected;
  } cases[] = {
      {Time(3, 3, 14, 5, 9), "App", Address(0x12AB), "App3_3_14_5_9(0x12AB).dmp"},
      {Time(12, 31, 23, 59, 59), "", Address(0xabcdef), "12_31_23_59_59(0xABCDEF).dmp"},
      {Time(1, 1, 0, 0, 0), "%s", nullptr, "%s1_1_0_0_0(0x0).dmp"},
      {Time(1, 1, 0, 0, 0), "a", Address(0x7FFF00000010), "a1_1_0_0_0(0x10).dmp"},
      {Time(1, 1, 0, 0, 0), "a", Address(0x1FFFFFFFF), "a1_1_0_0_0(0xFFFFFFFF).dmp"},
  };
  for (const auto& c : cases) {
    char name[64];
    EXPECT_TRUE(quarnfc::FormatDumpName(&c.time, c.prefix, c.info, name, sizeof name));
    EXPECT_STREQ(name, c.expected);
  }
}

TEST(CrashDumpName, StaysInItsFolder) {
  const struct {
    const char* prefix;
    const char* expected;
  } cases[] = {
      {"../x", ".._x1_1_0_0_0(0x0).dmp"},
      {"..\\x", ".._x1_1_0_0_0(0x0).dmp"},
      {"/etc/x", "_etc_x1_1_0_0_0(0x0).dmp"},
      {"c:x", "c_x1_1_0_0_0(0x0).dmp"},
      {"a\r\n\t\x01\x7F", "a_____1_1_0_0_0(0x0).dmp"},
      {"\x95\x5Cx", "\x95\x5Cx1_1_0_0_0(0x0).dmp"},  // a character that ends in a backslash
      {"\xD6\xD0",
       "\xD6\xD0"
       "1_1_0_0_0(0x0).dmp"},  // two bytes, one character
      {"\xD6\xD0/x", "\xD6\xD0_x1_1_0_0_0(0x0).dmp"},
      {"\xB0/../x", "\xB0_.._x1_1_0_0_0(0x0).dmp"},  // half a character hides no slash
      {"\xB0\x1Fx", "\xB0_x1_1_0_0_0(0x0).dmp"},
  };
  const std::tm time = Time(1, 1, 0, 0, 0);
  for (const auto& c : cases) {
    char name[64];
    EXPECT_TRUE(quarnfc::FormatDumpName(&time, c.prefix, nullptr, name, sizeof name));
    EXPECT_STREQ(name, c.expected);
  }
}

TEST(CrashDumpName, WithoutATimeIsFixed) {
  char name[64];
  EXPECT_TRUE(quarnfc::FormatDumpName(nullptr, "App", Address(1), name, sizeof name));
  EXPECT_STREQ(name, "error.dmp");
}

TEST(CrashDumpName, ReportsANameThatDoesNotFit) {
  const std::tm time = Time(1, 1, 0, 0, 0);
  char name[sizeof "ab1_1_0_0_0(0x0).dmp"];
  EXPECT_TRUE(quarnfc::FormatDumpName(&time, "ab", nullptr, name, sizeof name));
  EXPECT_FALSE(quarnfc::FormatDumpName(&time, "abc", nullptr, name, sizeof name));
  EXPECT_FALSE(quarnfc::FormatDumpName(nullptr, "", nullptr, name, 4));
}

}  // namespace
