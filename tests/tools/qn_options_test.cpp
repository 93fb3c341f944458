// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "qn/errors.h"
#include "qn/options.h"

namespace {

using qn::Options;
using qn::Takes;
using qn::UsageError;

Options Parse(std::vector<std::string> arguments) {
  return Options(
      arguments,
      {{"compact", 'c'}, {"output", 'o', Takes::kValue}, {"indent", '\0', Takes::kValue}});
}

}  // namespace

TEST(QnOptions, FlagsValuesAndPositionalArgumentsMayBeMixed) {
  const Options options = Parse({"in", "-c", "-o", "out", "--indent=2", "more"});
  EXPECT_TRUE(options.Has("compact"));
  EXPECT_EQ(options.Value("output"), "out");
  EXPECT_EQ(options.Number("indent", 4, 0, 8), 2);
  EXPECT_EQ(options.Positional(), (std::vector<std::string>{"in", "more"}));
}

TEST(QnOptions, AnOptionThatTakesValuesMayBeGivenAgain) {
  const std::vector<std::string> arguments = {"-H", "a", "--header", "b", "--header=c"};
  const Options options(arguments, {{"header", 'H', Takes::kValues}});
  EXPECT_EQ(options.Values("header"), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_TRUE(Options({}, {{"header", 'H', Takes::kValues}}).Values("header").empty());
}

TEST(QnOptions, WhatIsNotGivenHasItsFallback) {
  const Options options = Parse({});
  EXPECT_FALSE(options.Has("compact"));
  EXPECT_EQ(options.Value("output", "none"), "none");
  EXPECT_EQ(options.Number("indent", 4, 0, 8), 4);
}

TEST(QnOptions, DashesThatStartNoOptionArePositional) {
  const Options options = Parse({"-", "-7", "-.5", "--", "-c", "--output"});
  EXPECT_EQ(options.Positional(), (std::vector<std::string>{"-", "-7", "-.5", "-c", "--output"}));
}

TEST(QnOptions, AValueMayLookLikeAnOption) {
  EXPECT_EQ(Parse({"--output", "--strange"}).Value("output"), "--strange");
  EXPECT_EQ(Parse({"--output="}).Value("output", "none"), "");
}

TEST(QnOptions, WrongCommandLinesAreUsageErrors) {
  const std::vector<std::vector<std::string>> wrong = {
      {"--unknown"}, {"-x"},   {"-co", "out"}, {"--compact=yes"},
      {"--output"},  {"-o"},   {"-c", "-c"},   {"--output=a", "-o", "b"},
      {"--comp"},    {"--=x"},
  };
  for (const auto& arguments : wrong) {
    EXPECT_THROW(Parse(arguments), UsageError) << arguments[0];
  }
}

TEST(QnOptions, NumbersAreWholeAndWithinTheirLimits) {
  for (const char* text : {"", "x", "1x", "1.5", "9", "-1", "99999999999999999999"}) {
    const Options options = Parse({std::string("--indent=") + text});
    EXPECT_THROW(options.Number("indent", 4, 0, 8), UsageError) << text;
  }
}

TEST(QnOptions, TheNumberOfPositionalArgumentsIsChecked) {
  const Options options = Parse({"a", "b"});
  EXPECT_NO_THROW(options.ExpectPositional(1, 2));
  EXPECT_THROW(options.ExpectPositional(3, 3), UsageError);
  EXPECT_THROW(options.ExpectPositional(0, 1), UsageError);
}
