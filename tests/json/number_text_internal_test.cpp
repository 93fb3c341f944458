// SPDX-License-Identifier: MIT
#include "json/number_text.h"

#include <gtest/gtest.h>
#include <quarnfc/qn_string.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace {

std::string Fast(double number) {
  char text[quarnfc::json::kNumberTextCapacity];
  return std::string(text, quarnfc::json::FormatNumber(number, text));
}

// The text by its definition.
std::string Plain(double number) {
  CQNString text;
  text.Format("%.15f", number);
  std::string bytes(static_cast<const char*>(text));
  bytes.resize(bytes.find_last_not_of('0') + 1);
  bytes.resize(bytes.find_last_not_of('.') + 1);
  return bytes;
}

double FromBits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

void ExpectSame(double number) { EXPECT_EQ(Fast(number), Plain(number)); }

TEST(NumberText, FormatEqualsTheDefinitionForEveryExponent) {
  std::mt19937_64 random(1);
  for (std::uint64_t exponent = 0; exponent < 2047; ++exponent) {
    for (const std::uint64_t mantissa :
         {std::uint64_t{0}, std::uint64_t{1}, ~std::uint64_t{0}, random(), random()}) {
      const std::uint64_t bits = (exponent << 52) | (mantissa >> 12);
      ExpectSame(FromBits(bits));
      ExpectSame(-FromBits(bits));
    }
  }
}

TEST(NumberText, FormatEqualsTheDefinitionForNumbersOfEverydaySize) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> small(-1.0, 1.0);
  for (int i = 0; i < 50000; ++i) {
    const double number = small(random);
    ExpectSame(number);
    ExpectSame(number * 180);
    ExpectSame(number * 1e6);
    ExpectSame(std::round(number * 1e9) / 1e4);
    ExpectSame(std::round(number * 1e12));
  }
}

// Numbers whose sixteenth decimal place is exactly one half: they round to the even digit.
TEST(NumberText, TiesRoundToEven) {
  for (int power = 16; power < 60; ++power) {
    for (int odd = 1; odd < 4000; odd += 2) ExpectSame(std::ldexp(odd, -power));
  }
  EXPECT_EQ(Fast(std::ldexp(1.0, -16)), "0.000015258789062");  // ...0625 exactly
  EXPECT_EQ(Fast(std::ldexp(3.0, -16)), "0.000045776367188");  // ...1875 exactly
  EXPECT_EQ(Fast(std::ldexp(-1.0, -16)), "-0.000015258789062");
}

TEST(NumberText, RoundingCarriesIntoTheIntegerPart) {
  ExpectSame(std::nextafter(1.0, 0.0));
  ExpectSame(std::nextafter(10.0, 0.0));
  ExpectSame(0.9999999999999996);
  EXPECT_EQ(Fast(std::nextafter(1.0, 0.0)), "1");
}

TEST(NumberText, WhatIsNotFiniteIsSpelledAsFormatSpellsIt) {
  for (const double magnitude : {std::numeric_limits<double>::infinity(), std::nan("")}) {
    ExpectSame(std::copysign(magnitude, 1.0));
    ExpectSame(std::copysign(magnitude, -1.0));
  }
  EXPECT_EQ(Fast(std::copysign(std::nan(""), -1.0)), "-nan(ind)");
}

TEST(NumberText, ShortestTextOfEveryNumberParsesBackToIt) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 100000; ++i) {
    const double number = FromBits(random());
    if (!std::isfinite(number)) continue;
    CQNString text;
    text.Format("%.17g", number);
    const char* first = text;
    const double parsed = quarnfc::json::ParseNumber(first, first + text.GetLength());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(parsed), std::bit_cast<std::uint64_t>(number)) << first;
  }
}

}  // namespace
