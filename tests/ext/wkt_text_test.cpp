// SPDX-License-Identifier: MIT
#include <quarnfc/ext/wkt_text.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using quarnfc::ext::ParseWkt;
using quarnfc::ext::WktNode;

TEST(WktText, BothNotationsOfBracketsGiveTheTree) {
  for (const char* text : {"A[\"x\",B[1,word],2]", "A(\"x\", B ( 1 , word ) ,\n 2 ) \r\n"}) {
    WktNode root;
    std::string error;
    ASSERT_TRUE(ParseWkt(text, root, error)) << error;
    EXPECT_EQ(root.keyword, "A");
    EXPECT_EQ(root.TextAt(0), "x");
    ASSERT_NE(root.Find({"b"}), nullptr);
    EXPECT_EQ(root.Find({"b"})->TextAt(1), "word");
    EXPECT_EQ(root.NumberAt(2), 2.0);
    EXPECT_EQ(root.TextAt(3), "");
    EXPECT_EQ(root.Find({"c"}), nullptr);
  }
}

TEST(WktText, AQuoteIsWrittenTwice) {
  WktNode root;
  std::string error;
  ASSERT_TRUE(ParseWkt("A[\"a \"\"b\"\" [c\",\"\"]", root, error));
  EXPECT_EQ(root.TextAt(0), "a \"b\" [c");
  EXPECT_EQ(root.TextAt(1), "");
}

TEST(WktText, NumbersAreReadWholeOrNotAtAll) {
  const struct {
    const char* text;
    std::optional<double> number;
  } cases[] = {{"A[1.5]", 1.5},
               {"A[\"-2\"]", -2.0},
               {"A[+3]", 3.0},
               {"A[6.378137e6]", 6378137.0},
               {"A[1.5x]", std::nullopt},
               {"A[east]", std::nullopt},
               {"A[\"\"]", std::nullopt},
               {"A[1,5]", 1.0},
               {"A[B[1]]", std::nullopt}};
  for (const auto& each : cases) {
    WktNode root;
    std::string error;
    ASSERT_TRUE(ParseWkt(each.text, root, error));
    EXPECT_EQ(root.NumberAt(0), each.number) << each.text;
  }
}

TEST(WktText, ListsStandUpToThirtyTwoDeep) {
  for (const int depth : {31, 32, 33}) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "A[";
    text += "1" + std::string(static_cast<std::size_t>(depth), ']');
    WktNode root;
    std::string error;
    EXPECT_EQ(ParseWkt(text, root, error), depth <= 32) << depth << ": " << error;
  }
}

TEST(WktText, WhatIsNoWktSaysWhy) {
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "A[";
  const std::pair<std::string, const char*> cases[] = {
      {"", "a value is missing"},
      {"A", "it is no keyword with a bracketed list"},
      {"A[]", "a value is missing"},
      {"A[1,]", "a value is missing"},
      {"A[1", "brackets do not match"},
      {"A[1)", "brackets do not match"},
      {"A[\"x]", "a quoted text is not closed"},
      {"A[1]x", "text follows the closing bracket"},
      {deep, "it is nested too deeply"},
  };
  for (const auto& [text, why] : cases) {
    WktNode root;
    std::string error;
    EXPECT_FALSE(ParseWkt(text, root, error)) << text;
    EXPECT_EQ(error, why) << text;
  }
}

}  // namespace
