// SPDX-License-Identifier: MIT
// Splitting text into arrays of owned texts, and cleaning such arrays.
#include <quarnfc/plain.h>
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/text/text.h"

namespace {

using QNStringUtils::AdjustStrArr;
using QNStringUtils::FreeStrArr;
using QNStringUtils::SplitStr;

using Texts = std::vector<std::string>;

// An array of pieces that is released at the end of the test.
struct Pieces {
  ~Pieces() { FreeStrArr(array); }

  Texts Values() const { return Texts(array.begin(), array.end()); }

  std::vector<char*> array;
};

Texts Split(const char* text, char separator) {
  Pieces pieces;
  const int count = SplitStr(text, separator, pieces.array);
  EXPECT_EQ(count, static_cast<int>(pieces.array.size()));
  return pieces.Values();
}

TEST(StringArray, SplitsAtEverySeparator) {
  struct {
    const char* text;
    Texts pieces;
  } const cases[] = {
      {"a,b", {"a", "b"}},
      {"a,,b,", {"a", "", "b", ""}},
      {",", {"", ""}},
      {",,", {"", "", ""}},
      {",a", {"", "a"}},
      {"a,", {"a", ""}},
      {"abc", {"abc"}},
      {" a , b ", {" a ", " b "}},
      {"", {}},
      {nullptr, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(Split(c.text, ','), c.pieces) << c.text;
}

// Deliberately by bytes: a separator byte inside a double-byte character splits it.
TEST(StringArray, SplitsInsideDoubleByteCharacters) {
  EXPECT_EQ(Split("a" TRAIL_BAR "b", '|'), (Texts{"a" TRAIL_LEAD, "b"}));
  EXPECT_EQ(Split(ZHONG, '\xD0'), (Texts{"\xD6", ""}));
}

TEST(StringArray, SplittingAtZeroGivesTheWholeText) {
  EXPECT_EQ(Split("abc", '\0'), (Texts{"abc"}));
}

TEST(StringArray, SplittingEmptiesTheArrayWithoutDeletingWhatItHeld) {
  char held[] = "held";
  Pieces pieces;
  pieces.array.push_back(held);
  EXPECT_EQ(SplitStr("a", ',', pieces.array), 1);
  EXPECT_EQ(pieces.Values(), (Texts{"a"}));
  EXPECT_STREQ(held, "held");

  std::vector<char*> other = {held};
  EXPECT_EQ(SplitStr(nullptr, ',', other), 0);
  EXPECT_TRUE(other.empty());
}

TEST(StringArray, PiecesAreReleasedWithTheLibrary) {
  std::vector<char*> pieces;
  SplitStr("a,b", ',', pieces);
  for (char* piece : pieces) qnFreeMem(piece);
}

TEST(StringArray, FreeEmptiesTheArray) {
  std::vector<char*> pieces;
  SplitStr("a,b,c", ',', pieces);
  FreeStrArr(pieces);
  EXPECT_TRUE(pieces.empty());
  FreeStrArr(pieces);
}

TEST(StringArray, PlainNamesDoTheSame) {
  std::vector<char*> pieces;
  EXPECT_EQ(qnSplitStr("a;b;", ';', pieces), 3);
  EXPECT_EQ(Texts(pieces.begin(), pieces.end()), (Texts{"a", "b", ""}));
  qnFreeStrArr(pieces);
  EXPECT_TRUE(pieces.empty());
  EXPECT_EQ(qnSplitStr(nullptr, ';', pieces), 0);
}

Texts Adjusted(const char* text, bool trim_blanks, bool drop_empty) {
  Pieces pieces;
  SplitStr(text, ',', pieces.array);
  AdjustStrArr(pieces.array, trim_blanks, drop_empty);
  return pieces.Values();
}

TEST(StringArray, AdjustTrimsBlanksAndDropsEmptyPieces) {
  struct {
    const char* text;
    bool trim_blanks;
    bool drop_empty;
    Texts pieces;
  } const cases[] = {
      {" a ,, b c ,  ,d", false, false, {" a ", "", " b c ", "  ", "d"}},
      {" a ,, b c ,  ,d", true, false, {"a", "", "b c", "", "d"}},
      {" a ,, b c ,  ,d", false, true, {" a ", " b c ", "  ", "d"}},
      {" a ,, b c ,  ,d", true, true, {"a", "b c", "d"}},
      {",,,", true, true, {}},
      {"", true, true, {}},
      {"\ta\n", true, false, {"\ta\n"}},  // blanks only, no other white space
      {" \ta\t ", true, false, {"\ta\t"}},
      {" " ZHONG " ," WIDE_BLANK, true, true, {ZHONG, WIDE_BLANK}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Adjusted(c.text, c.trim_blanks, c.drop_empty), c.pieces)
        << c.text << c.trim_blanks << c.drop_empty;
  }
}

TEST(StringArray, AdjustWorksInThePiecesThemselves) {
  Pieces pieces;
  SplitStr("ab  ,  cd", ',', pieces.array);
  char* first = pieces.array[0];
  char* second = pieces.array[1];
  AdjustStrArr(pieces.array, true, false);
  EXPECT_EQ(pieces.array[0], first);
  EXPECT_EQ(pieces.array[1], second);
  EXPECT_EQ(std::string(first, 5), std::string("ab\0\0\0", 5));
  EXPECT_STREQ(second, "cd");
}

}  // namespace
