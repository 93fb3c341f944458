// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdio>
#include <string>

#include "tests/io/time_zone.h"

namespace quarnfc::platform {
namespace {

std::string Text(const std::tm& time) {
  char text[64];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d", time.tm_year + 1900, time.tm_mon + 1,
                time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
  return text;
}

std::tm Local(int year, int month, int day, int hour) {
  std::tm local{};
  local.tm_year = year - 1900;
  local.tm_mon = month - 1;
  local.tm_mday = day;
  local.tm_hour = hour;
  local.tm_isdst = -1;
  return local;
}

TEST(Clock, CurrentTimeIsThatOfTheCLibrary) {
  const std::time_t before = std::time(nullptr);
  const std::int64_t now = CurrentTime();
  EXPECT_LE(before, now);
  EXPECT_LE(now, std::time(nullptr));
}

TEST(Clock, LocalTimesHave64Bits) {
  const io_test::TimeZone zone("CST-8");
  constexpr struct {
    std::int64_t time;
    const char* text;
  } kCases[] = {
      {0, "1970-1-1 8:0:0"},
      {1704443400, "2024-1-5 16:30:0"},
      {0x7FFFFFFF, "2038-1-19 11:14:7"},
      {0x80000000, "2038-1-19 11:14:8"},
      {0x100000000, "2106-2-7 14:28:16"},
  };
  for (const auto& c : kCases) {
    std::tm local{};
    ASSERT_TRUE(ToLocalTime(c.time, local)) << c.time;
    EXPECT_EQ(c.text, Text(local));
    EXPECT_EQ(c.time, FromLocalTime(local));
  }
}

TEST(Clock, TimeWithoutALocalTimeFails) {
  std::tm local{};
  EXPECT_FALSE(ToLocalTime(INT64_MAX, local));
}

TEST(Clock, MembersOutOfRangeArePutRight) {
  const io_test::TimeZone zone("CST-8");
  std::tm local = Local(2023, 2, 31, 0);
  std::tm normal = Local(2023, 3, 3, 0);
  EXPECT_EQ(FromLocalTime(normal), FromLocalTime(local));
  EXPECT_EQ("2023-3-3 0:0:0", Text(local));
}

TEST(Clock, SystemDecidesAboutDaylightSaving) {
  const io_test::TimeZone zone("EST5EDT");
  std::tm winter = Local(2024, 1, 5, 0);
  EXPECT_EQ(1704430800, FromLocalTime(winter));
  std::tm summer = Local(2024, 7, 5, 0);
  EXPECT_EQ(1720152000, FromLocalTime(summer));
}

TEST(Clock, LocalTimeThatCannotBeRepresentedIsMinusOne) {
  std::tm local = Local(2024, 1, 1, 0);
  local.tm_year = INT_MAX;
  local.tm_mon = 12;
  EXPECT_EQ(-1, FromLocalTime(local));
}

}  // namespace
}  // namespace quarnfc::platform
