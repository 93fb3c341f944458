// SPDX-License-Identifier: MIT
#include "json/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>

namespace {

using quarnfc::json::ReadDecimal;

// What the standard library makes of the text.
std::uint64_t StandardBits(const std::string& text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::bit_cast<std::uint64_t>(number);
}

// Whether the method takes the whole text; if so, it must give the standard library's double.
bool ReadsAsStandard(const std::string& text) {
  double number = 0;
  const char* end = ReadDecimal(text.c_str(), number);
  if (end == nullptr) return false;
  EXPECT_EQ(end, text.c_str() + text.size()) << text;
  EXPECT_EQ(std::bit_cast<std::uint64_t>(number), StandardBits(text)) << text;
  return true;
}

std::string RandomDigits(std::mt19937_64& random) {
  const std::size_t count = 1 + random() % 19;
  const std::size_t point = 1 + random() % count;
  std::string text = random() % 2 != 0 ? "-" : "";
  for (std::size_t i = 0; i < count; ++i) {
    if (i == point) text += '.';
    text += static_cast<char>('0' + (random() % 3 != 0 ? random() % 10 : random() % 2 * 9));
  }
  return text;
}

}  // namespace

TEST(ReadDecimal, GivesTheNearestDoubleOfRandomDigits) {
  std::mt19937_64 random(1);
  int taken = 0;
  for (int i = 0; i < 200'000; ++i) {
    std::string text = RandomDigits(random);
    if (i % 2 != 0) text += "e" + std::to_string(static_cast<int>(random() % 90) - 30);
    taken += ReadsAsStandard(text);
  }
  EXPECT_GT(taken, 150'000);
}

TEST(ReadDecimal, ReadsTheShortestTextOfADoubleBackToIt) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 200'000; ++i) {
    const std::uint64_t exponent = 1023 - 30 + random() % 90;
    const auto number = std::bit_cast<double>((random() >> 12) | exponent << 52);
    char text[64];
    *std::to_chars(text, text + sizeof text, number).ptr = '\0';
    double read = 0;
    ASSERT_NE(ReadDecimal(text, read), nullptr) << text;
    ASSERT_EQ(read, number) << text;
  }
}

TEST(ReadDecimal, RoundsNumbersHalfwayBetweenTwoDoublesToTheEvenOne) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 100'000; ++i) {
    // 54 bits, the last of them set, and zeros behind.
    const std::uint64_t halfway = (std::uint64_t{1} << 53 | random() >> 11 | 1) << random() % 9;
    const std::string digits = std::to_string(halfway);
    ASSERT_TRUE(ReadsAsStandard(digits));
    ReadsAsStandard(digits + ".0");
    ReadsAsStandard(std::to_string(halfway + 1));
    ReadsAsStandard(std::to_string(halfway - 1));
    ReadsAsStandard(digits + "e" + std::to_string(random() % 5));
  }
  EXPECT_TRUE(ReadsAsStandard("9007199254740993"));
  EXPECT_TRUE(ReadsAsStandard("0.500000000000000166"));
  EXPECT_TRUE(ReadsAsStandard("4503599627370497.5"));
}

TEST(ReadDecimal, TakesZeroWithItsSign) {
  for (const char* text : {"0", "-0", "0.0", "-0.000", "0e5", "-0e-9"}) {
    EXPECT_TRUE(ReadsAsStandard(text)) << text;
  }
}

TEST(ReadDecimal, TakesTheWholeRangeOfItsPowers) {
  for (int exponent = -27; exponent <= 55; ++exponent) {
    for (const char* digits : {"1", "7", "9007199254740993", "9999999999999999999"}) {
      EXPECT_TRUE(ReadsAsStandard(digits + ("e" + std::to_string(exponent))));
    }
  }
}

TEST(ReadDecimal, LeavesOtherFormsAlone) {
  for (const char* text :
       {"", "-", "+1", ".5", "1.", "1.e5", "1e", "1e+", "e5", "abc", "inf", "nan", "1e56", "1e-28",
        "1e1000", "12345678901234567890", "0.12345678901234567890"}) {
    double number = 42;
    EXPECT_EQ(ReadDecimal(text, number), nullptr) << text;
    EXPECT_EQ(number, 42) << text;
  }
}

TEST(ReadDecimal, DoesNotCountLeadingZeros) {
  for (const char* text :
       {"0.00045171780751362544", "000000000000000000000012345678", "0.00000000"}) {
    EXPECT_TRUE(ReadsAsStandard(text)) << text;
  }
}

TEST(ReadDecimal, StopsBehindTheNumber) {
  const std::string text = "12.5e1x";
  double number = 0;
  EXPECT_EQ(ReadDecimal(text.c_str(), number), text.c_str() + 6);
  EXPECT_EQ(number, 125);
}
