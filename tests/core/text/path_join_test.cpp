// SPDX-License-Identifier: MIT
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;

std::string Joined(const char* base, const char* path) {
  return text_test::TakeText(qnUnionPath(base, path));
}

constexpr const char* kNull = "(null)";

struct PathCase {
  const char* base;
  const char* path;
  const char* joined;
};

template <std::size_t kCount>
void ExpectJoined(const PathCase (&cases)[kCount]) {
  for (const PathCase& c : cases) EXPECT_EQ(Joined(c.base, c.path), c.joined) << c.path;
}

TEST(PathJoin, AppendsARelativePath) {
  ExpectJoined({
      {"C:\\data", "sub/a.txt", "C:\\data\\sub\\a.txt"},
      {"C:\\data", "a.txt", "C:\\data\\a.txt"},
      {"C:/data/x", "y/z", "C:\\data\\x\\y\\z"},
      {"data", "x", "data\\x"},
      {"data", "xy", "data\\xy"},
      {"", "xy", "\\xy"},
      {"C:\\data", "a..b\\..\\c", "C:\\data\\a..b\\..\\c"},  // inner dots are not resolved
  });
}

TEST(PathJoin, TheBaseEndsWithExactlyOneBackslash) {
  ExpectJoined({
      {"C:\\data\\", "xy", "C:\\data\\xy"},
      {"C:\\data\\\\\\", "xy", "C:\\data\\xy"},
      {"C:/data//", "xy", "C:\\data\\xy"},
      {"\\", "xy", "\\xy"},
      {"C:\\data ", "xy", "C:\\data \\xy"},
  });
}

TEST(PathJoin, AnEmptyPathIsTheBase) {
  ExpectJoined({
      {"C:\\data", "", "C:\\data\\"},
      {"C:/data/", "", "C:\\data\\"},
      {"C:\\data", "  \t ", "C:\\data\\"},
      {"", "", "\\"},
  });
}

TEST(PathJoin, ThePathIsTrimmed) {
  ExpectJoined({
      {"C:\\data", "  xy  ", "C:\\data\\xy"},
      {"C:\\data", "\t..\\xy\r\n", "C:\\xy"},
      {"C:\\data", " D:\\x ", "D:\\x"},
  });
}

TEST(PathJoin, APathOfOneCharacterIsAppended) {
  ExpectJoined({
      {"C:\\data", "x", "C:\\data\\x"},
      {"C:\\data", ".", "C:\\data\\."},
      {"C:\\data", "\\", "C:\\data\\"},
      {"C:\\data", "/", "C:\\data\\"},
      {"C:\\data", ":", "C:\\data\\:"},
      {"C:\\data", " x ", "C:\\data\\x"},
  });
}

TEST(PathJoin, AnAbsolutePathStaysAsItIs) {
  ExpectJoined({
      {"C:\\data", "D:\\b", "D:\\b"},
      {"C:\\data", "D:/b/c", "D:\\b\\c"},
      {"C:\\data", "D:", "D:"},
      {"C:\\data", "\\\\server\\share", "\\\\server\\share"},
      {"C:\\data", "//server/share", "\\\\server\\share"},
      {"C:\\data", "\\\\", "\\\\"},
      {"C:\\data", "a\\b:c", "a\\b:c"},
      {"C:\\data", "..\\b:c", "..\\b:c"},
      {"C:\\data", ":a:b", ":a:b"},
      {"C:\\data", "\xB0\xA1:\\b", "\xB0\xA1:\\b"},  // behind a double-byte character
      {"C:\\data", ":b", "C:\\data\\:b"},            // a colon at the start makes no absolute path
  });
}

TEST(PathJoin, LeadingBackslashesAreDropped) {
  ExpectJoined({
      {"C:\\data", "\\sub", "C:\\data\\sub"},
      {"C:\\data", "/sub", "C:\\data\\sub"},
      {"C:\\data", "\\..\\sub", "C:\\sub"},
  });
}

// They are dropped once, before the dots, and not again behind them.
TEST(PathJoin, BackslashesBehindDotsStay) {
  ExpectJoined({
      {"C:\\data", ".\\\\sub", "C:\\data\\\\sub"},
      {"C:\\data", "..\\\\sub", "C:\\\\sub"},
  });
}

TEST(PathJoin, ADotStaysInTheFolder) {
  ExpectJoined({
      {"C:\\data", ".\\sub", "C:\\data\\sub"},
      {"C:\\data", "./sub", "C:\\data\\sub"},
      {"C:\\data", ".\\.\\.\\sub", "C:\\data\\sub"},
      {"C:\\data", ".\\", "C:\\data\\"},
      {"C:\\data", ".\\..\\sub", "C:\\sub"},
  });
}

TEST(PathJoin, TwoDotsClimb) {
  ExpectJoined({
      {"C:/data/", "..\\x.txt", "C:\\x.txt"},
      {"C:\\a\\b\\c", "..\\..\\x", "C:\\a\\x"},
      {"C:\\a\\b", "../../x", "C:\\x"},
      {"C:\\a\\b", "..\\.\\..\\x", "C:\\x"},
      {"C:\\a\\b", "..\\", "C:\\a\\"},
      {"C:\\a\\\\\\b", "..\\x", "C:\\a\\\\\\x"},
      {"\\\\server\\share", "..\\x", "\\\\server\\x"},
      {"\\a", "..\\x", "\\x"},
  });
}

TEST(PathJoin, ClimbingAboveTheBaseFails) {
  ExpectJoined({
      {"data", "..\\x", kNull},
      {"data", "..\\..\\x", kNull},
      {"C:\\", "..\\x", kNull},
      {"C:\\data", "..\\..\\x", kNull},
      {"", "..\\x", kNull},
  });
}

TEST(PathJoin, OtherStartsWithADotFail) {
  ExpectJoined({
      {"C:\\data", "..", kNull},
      {"C:\\data", "..name", kNull},
      {"C:\\data", ".name", kNull},
      {"C:\\data", "...", kNull},
      {"C:\\data", "...\\x", kNull},
      {"C:\\data", ".\\..", kNull},
      {"C:\\data", ".\\.", kNull},
      {"C:\\data", "..\\.name", kNull},
  });
}

TEST(PathJoin, NullGivesNull) {
  ExpectJoined({{nullptr, "x", kNull}, {"C:\\data", nullptr, kNull}, {nullptr, nullptr, kNull}});
}

// The second byte of a double-byte character is never taken for a backslash or a colon.
TEST(PathJoin, WalksByCharactersOfTheCodePage) {
  ExpectJoined({
      {"C:\\" TRAIL_BACKSLASH, "xy", "C:\\" TRAIL_BACKSLASH "\\xy"},
      {"C:\\" TRAIL_BACKSLASH "\\", "xy", "C:\\" TRAIL_BACKSLASH "\\xy"},
      {"C:\\a\\" TRAIL_BACKSLASH, "..\\x", "C:\\a\\x"},
      {"C:\\a\\" TRAIL_BACKSLASH "b", "..\\x", "C:\\a\\x"},
      {"C:\\" TRAIL_BACKSLASH "\\b", "..\\x", "C:\\" TRAIL_BACKSLASH "\\x"},
      {TRAIL_BACKSLASH, "..\\x", kNull},
      {"C:\\data", TRAIL_BACKSLASH, "C:\\data\\" TRAIL_BACKSLASH},
      {"C:\\data", "\\" TRAIL_BACKSLASH "/" TRAIL_BACKSLASH,
       "C:\\data\\" TRAIL_BACKSLASH "\\" TRAIL_BACKSLASH},
      {"C:\\data", "." TRAIL_BACKSLASH, kNull},
      {"C:\\data", ".." TRAIL_BACKSLASH, kNull},
      {"C:\\" ZHONG, WEN "/" TRAIL_BAR, "C:\\" ZHONG "\\" WEN "\\" TRAIL_BAR},
  });
}

TEST(PathJoin, StringFormReplacesThePathAndKeepsTheBase) {
  CQNString base("C:/data/");
  CQNString path("../x");
  EXPECT_TRUE(qnUnionPathEx(base, path));
  EXPECT_EQ(Bytes(path), "C:\\x");
  EXPECT_EQ(Bytes(base), "C:/data/");
}

TEST(PathJoin, StringFormKeepsWhatWasNotConsumedOnFailure) {
  struct {
    const char* base;
    const char* path;
    const char* left;
  } const cases[] = {
      {"data", "..\\..\\x", "..\\x"},
      {"data", ".\\../x", "x"},
      {"C:\\data", "..\\..name", "..name"},
      {"C:\\data", " \\.name ", ".name"},
  };
  for (const auto& c : cases) {
    CQNString base(c.base);
    CQNString path(c.path);
    EXPECT_FALSE(qnUnionPathEx(base, path)) << c.path;
    EXPECT_EQ(Bytes(path), c.left) << c.path;
    EXPECT_EQ(Bytes(base), c.base) << c.path;
  }
}

TEST(PathJoin, StringFormTakesOneStringTwice) {
  CQNString both("ab");
  EXPECT_TRUE(qnUnionPathEx(both, both));
  EXPECT_EQ(Bytes(both), "ab\\ab");
}

TEST(PathJoin, ManyClimbsFinish) {
  std::string base = "C:";
  std::string path;
  for (int i = 0; i < 2000; ++i) {
    base += "\\d";
    path += "..\\";
  }
  EXPECT_EQ(Joined(base.c_str(), (path + "x").c_str()), "C:\\x");
}

}  // namespace
