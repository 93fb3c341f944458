// SPDX-License-Identifier: MIT
// Texts of floating-point numbers, and numbers from texts: the same bytes whatever compiler and
// standard library built the host and the library. 100,000 numbers; what comes of them is digested,
// and the digests are those of the GNU build.
#include <gtest/gtest.h>

#include <quarnfc/digest_streams.h>
#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

// The generator splitmix64 (public domain, S. Vigna), so that every build has the same numbers.
class Random {
 public:
  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15U);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
  }

 private:
  std::uint64_t state_ = 936;
};

double FromBits(std::uint64_t bits) {
  double number = 0;
  std::memcpy(&number, &bits, sizeof number);
  return number;
}

std::uint64_t BitsOf(double number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return bits;
}

// Kinds take turns: any bits, coordinates with decimals, whole numbers, halves of units in the
// 15th decimal, numbers too small to be normal.
double NumberOf(int index, Random& random) {
  const std::uint64_t bits = random.Next();
  switch (index % 5) {
    case 0: {
      const double number = FromBits(bits);
      return std::isfinite(number) ? number : 0.1;
    }
    case 1:
      return static_cast<double>(bits % 360000000000U) / 1e9 - 180.0;
    case 2:
      return std::ldexp(static_cast<double>(bits >> 11), static_cast<int>(bits % 64) - 32);
    case 3:
      return (static_cast<double>(bits % 2000000U) + 0.5) * 1e-15;
    default:
      return FromBits(bits & 0x800FFFFFFFFFFFFFU);
  }
}

const std::vector<double>& Numbers() {
  static const std::vector<double> numbers = [] {
    std::vector<double> made;
    made.reserve(100000);
    Random random;
    for (int i = 0; i < 100000; ++i) made.push_back(NumberOf(i, random));
    return made;
  }();
  return numbers;
}

// The digest of what text(number) gives for every number, a line each.
template <class Text>
std::string DigestOf(const Text& text) {
  CQNMD5Stream stream;
  for (const double number : Numbers()) {
    const std::string line = text(number);
    stream.Update(line.data(), line.size());
    stream.Update("\n", 1);
  }
  unsigned char digest[CQNMD5Stream::eDigestBytes];
  stream.Finish(digest);
  return std::string(QNDigestUtils::HexText(digest, sizeof digest, false));
}

template <class... Style>
std::string Written(double number, Style... style) {
  char text[512];
  return {text, std::to_chars(text, text + sizeof text, number, style...).ptr};
}

std::string BitsText(double number) {
  char text[17];
  return {text, std::to_chars(text, text + sizeof text, BitsOf(number), 16).ptr};
}

double Read(std::string_view text) {
  double number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// A decimal with 25 digits of its own, near the number and next to no double.
std::string LongDecimal(double number) {
  const std::string text = Written(number, std::chars_format::scientific, 11);
  const std::size_t exponent = text.find('e');
  return text.substr(0, exponent) + std::to_string(BitsOf(number) % 10000000000000U) +
         text.substr(exponent);
}

}  // namespace

TEST(FloatingText, StandardLibraryOfTheHostWritesTheSameBytes) {
  using std::chars_format;
  EXPECT_EQ(DigestOf([](double number) { return Written(number); }),
            "190a872afa48e1901823a60efcd47190");
  EXPECT_EQ(DigestOf([](double number) { return Written(number, chars_format::fixed, 15); }),
            "2cd09401798b6be04ed57800ca466d85");
  EXPECT_EQ(DigestOf([](double number) { return Written(number, chars_format::scientific, 20); }),
            "c87a1bf3151ce17563952559abd04d35");
  EXPECT_EQ(DigestOf([](double number) { return Written(number, chars_format::general, 10); }),
            "617013c74c7ddb56da5e3b340dd045d4");
}

TEST(FloatingText, StandardLibraryOfTheHostReadsTheSameNumbers) {
  for (const double number : Numbers()) {
    ASSERT_EQ(BitsOf(Read(Written(number))), BitsOf(number)) << Written(number);
  }
  EXPECT_EQ(DigestOf([](double number) { return BitsText(Read(LongDecimal(number))); }),
            "4c714fbb04788f711b3ba13ae4c13dcc");
}

TEST(FloatingText, LibraryWritesTheSameBytes) {
  const auto format = [](double number) {
    CQNString text;
    text.Format("%.15f|%.17g|%e|%a", number, number, number, number);
    return std::string(text);
  };
  EXPECT_EQ(DigestOf(format), "e1dfc7c741cd39f54b47b920089bd5a9");
  const auto json = [](double number) {
    return std::string(CMyJsonValue(number).CreateJson(false));
  };
  EXPECT_EQ(DigestOf(json), "62688a60d2e1363c91e86777c93abbf0");
}

TEST(FloatingText, LibraryReadsTheSameNumbers) {
  const auto read = [](const std::string& text) {
    CMyJsonValue value;
    CQNString error;
    const bool is_read = value.Load(("[" + text + "]").c_str(), error);
    return is_read ? value.ValueArrItem(0)->ValueNumber() : -1.0;
  };
  EXPECT_EQ(DigestOf([&](double number) { return BitsText(read(Written(number))); }),
            "3d70435a724b8be883ccb005b1b869bc");
  EXPECT_EQ(DigestOf([&](double number) { return BitsText(read(LongDecimal(number))); }),
            "4c714fbb04788f711b3ba13ae4c13dcc");
}
