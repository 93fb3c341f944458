// SPDX-License-Identifier: MIT
#include <quarnfc/time_utils.h>

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "tests/io/time_zone.h"

namespace {

using io_test::TimeZone;
using QNTimeUtils::GetTimeFromStr;

constexpr unsigned kNotATime = 0xFFFFFFFF;
constexpr unsigned kMidnight = 1704412800;  // 2024-01-05 00:00:00 UTC
constexpr unsigned kMorning = 1704443400;   // 2024-01-05 08:30:00 UTC

std::string Format(unsigned time) {
  return static_cast<const char*>(QNTimeUtils::FormatTime(time));
}

struct Case {
  const char* text;
  unsigned time;
};

// Each as UTC.
void ExpectTimes(std::initializer_list<Case> cases) {
  const TimeZone zone("UTC0");
  for (const auto& [text, time] : cases) EXPECT_EQ(GetTimeFromStr(text), time) << text;
}

// --- texts ------------------------------------------------------------------------------------

TEST(TimeUtils, DateAndTimeOfDayAreRead) {
  ExpectTimes({{"2024-01-05 08:30:00", kMorning},
               {"2024-01-05 08:30:59", kMorning + 59},
               {"2024-1-5 8:30:0", kMorning},
               {"2024-01-05 23:59:59", kMidnight + 86399},
               {"2024-02-29 00:00:00", 1709164800},
               {"1990-01-01 00:00:00", 631152000}});
}

TEST(TimeUtils, DateAloneIsMidnight) {
  ExpectTimes({{"2024-01-05", kMidnight}, {"2024-1-5", kMidnight}, {"2024-01-05 ", kMidnight}});
}

TEST(TimeUtils, FewerThanTwoColonsAreNoTimeOfDay) {
  ExpectTimes({{"2024-01-05 08:30", kMidnight},
               {"2024-01-05 08", kMidnight},
               {"2024-01-05 what stands here:does not matter", kMidnight}});
}

TEST(TimeUtils, BlanksMayStandAroundNumbersButNotBeforeTheDay) {
  ExpectTimes({{" 2024 - 01 -05", kMidnight},
               {"\t2024\n-\r01\t-\t05\t", kMidnight},
               {"2024-01- 05", kNotATime},
               {"2024-01- 05 08:30:00", kNotATime},
               {"2024-01-05   08 : 30 : 00  ", kMorning}});
}

TEST(TimeUtils, TextWithoutTwoDashesIsRefused) {
  ExpectTimes({{"", kNotATime},
               {"2024", kNotATime},
               {"2024-01", kNotATime},
               {"2024/01/05", kNotATime},
               {"08:30:00", kNotATime}});
}

TEST(TimeUtils, NullCountsAsEmpty) { EXPECT_EQ(GetTimeFromStr(nullptr), kNotATime); }

TEST(TimeUtils, NumbersOutsideTheirRangesAreRefused) {
  ExpectTimes({{"1989-12-31", kNotATime},
               {"2501-01-01", kNotATime},
               {"2024-00-01", kNotATime},
               {"2024-13-01", kNotATime},
               {"2024-01-00", kNotATime},
               {"2024-01-32", kNotATime},
               {"2024-01-05 24:00:00", kNotATime},
               {"2024-01-05 00:60:00", kNotATime},
               {"2024-01-05 00:00:60", kNotATime}});
}

TEST(TimeUtils, NumbersTooLongForAnyIntegerAreRefused) {
  ExpectTimes({{"4294969320-01-05", kNotATime},  // 2^32 + 2024
               {"18446744073709553640-01-05", kNotATime},
               {"2024-01-00000000000000000000000000000005", kMidnight},
               {"2024-01-05 99999999999999999999999:00:00", kNotATime}});
}

TEST(TimeUtils, FieldsThatAreNoNumbersAreRefused) {
  ExpectTimes({{"2024-01-05T08:30:00", kNotATime},
               {"2o24-01-05", kNotATime},
               {"2024-0x1-05", kNotATime},
               {"2024-+1-05", kNotATime},
               {"20 24-01-05", kNotATime},
               {"2024--05", kNotATime},
               {"-01-05", kNotATime},
               {"2024-01-", kNotATime},
               {"--", kNotATime},
               {"2024-01-05 ::", kNotATime},
               {"2024-01-05 08:30:", kNotATime},
               {"2024-01-05 08::00", kNotATime},
               {"2024-01-05 08:30:00.5", kNotATime},
               {"2024-01-05 08:30:00:00", kNotATime},
               {"2024-01-05 08:30:00 UTC", kNotATime}});
}

TEST(TimeUtils, OneMinusMayLeadANumber) {
  ExpectTimes({{"2024-01-05 -0:30:00", kMidnight + 1800},
               {"2024-01-05 08:-30:00", kNotATime},
               {"2024-01-05 --0:30:00", kNotATime},
               {"2024-01-05 -:30:00", kNotATime},
               {"-2024-01-05", kNotATime},
               {"2024-01--5", kNotATime}});
}

TEST(TimeUtils, DaysBeyondTheMonthRunIntoTheNext) {
  ExpectTimes({{"2023-02-31", 1677801600},  // 3 March 2023
               {"2023-04-31", 1682899200},  // 1 May 2023
               {"2023-02-29", 1677628800}});
}

TEST(TimeUtils, DatesAfterEarly2106AreCutToThirtyTwoBits) {
  ExpectTimes({{"2106-02-07 06:28:15", 0xFFFFFFFF},
               {"2106-02-07 06:28:16", 0},
               {"2106-02-07 06:28:17", 1},
               {"2500-12-31 23:59:59", 3871859711}});
}

TEST(TimeUtils, DoubleByteCharactersAreNoSeparators) {
  ExpectTimes({{"2024\xC4\xEA"
                "01\xD4\xC2"
                "05\xC8\xD5",
                kNotATime},
               {"\xD6\xD0", kNotATime}});
}

// --- formatting -------------------------------------------------------------------------------

TEST(TimeUtils, FormatPadsEachNumberAfterTheYear) {
  const TimeZone zone("UTC0");
  EXPECT_EQ(Format(0), "1970-01-01 00:00:00");
  EXPECT_EQ(Format(kMorning), "2024-01-05 08:30:00");
  EXPECT_EQ(Format(1720000000), "2024-07-03 09:46:40");
  EXPECT_EQ(Format(0x7FFFFFFF), "2038-01-19 03:14:07");
  EXPECT_EQ(Format(0x80000000), "2038-01-19 03:14:08");
  EXPECT_EQ(Format(0xFFFFFFFF), "2106-02-07 06:28:15");
}

TEST(TimeUtils, CurrentTimeIsThatOfTheSystem) {
  const auto before = static_cast<unsigned>(std::time(nullptr));
  const unsigned now = QNTimeUtils::GetCurTime();
  const auto after = static_cast<unsigned>(std::time(nullptr));
  EXPECT_LE(before, now);
  EXPECT_LE(now, after);
}

TEST(TimeUtils, CurrentFormatTimeIsTheFormattedCurrentTime) {
  std::string now;
  std::string before;
  do {  // once more when a second ends in between
    before = Format(QNTimeUtils::GetCurTime());
    now = static_cast<const char*>(QNTimeUtils::GetCurFormatTime());
  } while (before != Format(QNTimeUtils::GetCurTime()));
  EXPECT_EQ(now, before);
}

// --- time zones -------------------------------------------------------------------------------

TEST(TimeUtils, TextIsLocalTime) {
  const struct {
    const char* zone;
    const char* text;
  } kCases[] = {{"UTC0", "2024-01-05 08:30:00"},
                {"CST-8", "2024-01-05 16:30:00"},
                {"EST5EDT", "2024-01-05 03:30:00"},
                {"PST8PDT", "2024-01-05 00:30:00"}};
  for (const auto& [name, text] : kCases) {
    const TimeZone zone(name);
    EXPECT_EQ(Format(kMorning), text) << name;
    EXPECT_EQ(GetTimeFromStr(text), kMorning) << name;
  }
}

TEST(TimeUtils, SummerTimeIsApplied) {
  const TimeZone zone("EST5EDT");
  EXPECT_EQ(Format(1720000000), "2024-07-03 05:46:40");
  EXPECT_EQ(GetTimeFromStr("2024-07-03 05:46:40"), 1720000000u);
}

TEST(TimeUtils, TextsGoThereAndBackAllYear) {
  for (const char* name : {"UTC0", "CST-8", "EST5EDT", "PST8PDT"}) {
    const TimeZone zone(name);
    for (unsigned time = kMidnight; time < kMidnight + 366 * 86400u; time += 86400 / 2) {
      ASSERT_EQ(GetTimeFromStr(Format(time).c_str()), time) << name << ' ' << Format(time);
    }
  }
}

// On 10 March 2024 the clocks there went from 02:00 to 03:00.
TEST(TimeUtils, TimeThatSummerTimeSkipsIsAnHourBeforeOrAfterIt) {
  const TimeZone zone("EST5EDT");
  const std::string read = Format(GetTimeFromStr("2024-03-10 02:30:00"));
  EXPECT_TRUE(read == "2024-03-10 03:30:00" || read == "2024-03-10 01:30:00") << read;
  EXPECT_EQ(GetTimeFromStr("2024-03-10 03:00:00") - GetTimeFromStr("2024-03-10 01:59:59"), 1u);
}

// On 3 November 2024 the hour from 01:00 came twice.
TEST(TimeUtils, TimeThatComesTwiceIsOneOfTheTwo) {
  const TimeZone zone("EST5EDT");
  const unsigned time = GetTimeFromStr("2024-11-03 01:30:00");
  EXPECT_TRUE(time == 1730611800 || time == 1730615400) << time;
  EXPECT_EQ(Format(time), "2024-11-03 01:30:00");
}

TEST(TimeUtils, LocalTimeBefore1970Formats) {
  const TimeZone zone("EST5EDT");
  EXPECT_EQ(Format(0), "1969-12-31 19:00:00");
}

}  // namespace
