// SPDX-License-Identifier: MIT
// Formatted text: every conversion with its flags, widths, precisions and prefixes. The expected
// texts are those of the Windows run-time library and are the same on every target.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "tests/core/text/text.h"
#include "tests/support/small_stack.h"

namespace {

using text_test::Bytes;

template <class... Arguments>
std::string Formatted(const char* format, Arguments... arguments) {
  CQNString text;
  text.Format(format, arguments...);
  EXPECT_STREQ(static_cast<const char*>(text), Bytes(text).c_str());
  return Bytes(text);
}

template <class Value>
struct FormatCase {
  const char* format;
  Value value;
  const char* text;
};

template <class Value, std::size_t kCount>
void ExpectFormats(const FormatCase<Value> (&cases)[kCount]) {
  for (const auto& c : cases) EXPECT_EQ(Formatted(c.format, c.value), c.text) << c.format;
}

// --- ordinary text ----------------------------------------------------------------------------

TEST(StringFormat, CopiesOrdinaryText) {
  EXPECT_EQ(Formatted("plain"), "plain");
  EXPECT_EQ(Formatted(""), "");
  EXPECT_EQ(Formatted("100%% " ZHONG "%%"), "100% " ZHONG "%");
  EXPECT_EQ(Formatted(TRAIL_BACKSLASH TRAIL_BAR), TRAIL_BACKSLASH TRAIL_BAR);
  EXPECT_EQ(Formatted(nullptr), "");
}

TEST(StringFormat, JoinsTextAndConversions) {
  EXPECT_EQ(Formatted("%s|%5d", "ab", 7), "ab|    7");
  EXPECT_EQ(Formatted("%d-%02d-%02d %02d:%02d:%02d", 2024, 2, 9, 7, 5, 0), "2024-02-09 07:05:00");
  EXPECT_EQ(Formatted(ZHONG "%d" WEN "%s", 1, ZHONG), ZHONG "1" WEN ZHONG);
  EXPECT_EQ(Formatted("%d%d%d%d%d%d%d%d%d%d", 0, 1, 2, 3, 4, 5, 6, 7, 8, 9), "0123456789");
  EXPECT_EQ(Formatted("%d %f %s %f %d", 1, 2.5, "x", 3.5, 4), "1 2.500000 x 3.500000 4");
}

TEST(StringFormat, ReplacesTheOldText) {
  CQNString text("old and long text");
  text.Format("%d", 1);
  EXPECT_EQ(Bytes(text), "1");
}

// --- integers ---------------------------------------------------------------------------------

TEST(StringFormat, SignedIntegers) {
  ExpectFormats<int>({
      {"%d", 0, "0"},
      {"%d", -7, "-7"},
      {"%d", INT_MAX, "2147483647"},
      {"%d", INT_MIN, "-2147483648"},
      {"%i", 42, "42"},
      {"%5d", 42, "   42"},
      {"%-5d|", 42, "42   |"},
      {"%05d", 42, "00042"},
      {"%05d", -42, "-0042"},
      {"%-05d|", 42, "42   |"},
      {"%+d", 42, "+42"},
      {"%+d", -42, "-42"},
      {"% d", 42, " 42"},
      {"% d", -42, "-42"},
      {"%+ d", 42, "+42"},
      {"%.5d", 42, "00042"},
      {"%.5d", -42, "-00042"},
      {"%8.5d", 42, "   00042"},
      {"%-8.5d|", 42, "00042   |"},
      {"%08.5d", 42, "   00042"},
      {"%+8.5d", 42, "  +00042"},
      {"%.0d", 0, ""},
      {"%.d", 0, ""},
      {"%.0d", 5, "5"},
      {"%3d", 12345, "12345"},
  });
}

TEST(StringFormat, UnsignedIntegers) {
  ExpectFormats<unsigned>({
      {"%u", 4294967295u, "4294967295"},
      {"%u", 0u, "0"},
      {"%8u", 42u, "      42"},
      {"%08u", 42u, "00000042"},
      {"%x", 0xBEEFu, "beef"},
      {"%X", 0xBEEFu, "BEEF"},
      {"%#x", 0xBEEFu, "0xbeef"},
      {"%#X", 0xBEEFu, "0XBEEF"},
      {"%#x", 0u, "0"},
      {"%08X", 0xBEEFu, "0000BEEF"},
      {"%#010x", 0xBEEFu, "0x0000beef"},
      {"%-10x|", 0xBEEFu, "beef      |"},
      {"%.6x", 0xBEEFu, "00beef"},
      {"%o", 8u, "10"},
      {"%#o", 8u, "010"},
      {"%#o", 0u, "0"},
      {"%5o", 8u, "   10"},
      {"%x", 0xFFFFFFFFu, "ffffffff"},
  });
}

TEST(StringFormat, ShortAndLongIntegers) {
  ExpectFormats<int>({
      {"%hd", 70000, "4464"},
      {"%hd", 40000, "-25536"},
      {"%hu", 70000, "4464"},
      {"%hx", -1, "ffff"},
      {"%hhd", 300, "44"},
      {"%hhi", 200, "-56"},
      {"%hhu", -1, "255"},
      {"%hhx", 0x1AB, "ab"},
      {"%Nd", 5, "5"},
      {"%Fd", 5, "5"},
      {"%Ld", 5, "5"},
  });
  ExpectFormats<long>({
      {"%ld", 2147483647L, "2147483647"},
      {"%ld", -2147483647L, "-2147483647"},
      {"%li", -5L, "-5"},
      {"%lx", 0x1234L, "1234"},
      {"%08lX", 0xABCDL, "0000ABCD"},
      {"%lu", 5L, "5"},
      {"%lo", 8L, "10"},
  });
}

TEST(StringFormat, SixtyFourBitIntegers) {
  ExpectFormats<long long>({
      {"%I64d", LLONG_MAX, "9223372036854775807"},
      {"%I64d", LLONG_MIN, "-9223372036854775808"},
      {"%I64i", -1, "-1"},
      {"%I64u", -1, "18446744073709551615"},
      {"%I64x", -1, "ffffffffffffffff"},
      {"%I64X", 0x123456789ABCLL, "123456789ABC"},
      {"%I64o", 8, "10"},
      {"%25I64d", -5, "                       -5"},
      {"%-25I64d|", -5, "-5                       |"},
      {"%#I64x", 255, "0xff"},
      {"%.20I64d", 5, "00000000000000000005"},
      {"%lld", LLONG_MIN, "-9223372036854775808"},
      {"%llu", -1, "18446744073709551615"},
      {"%016I64X", 0xBEEF, "000000000000BEEF"},
  });
  // Of a plain conversion only 32 bits are looked at; the next argument stands in the next slot.
  EXPECT_EQ(Formatted("%I64d %d %I64d", 1LL << 40, 7, -(1LL << 40)),
            "1099511627776 7 -1099511627776");
}

TEST(StringFormat, Pointers) {
  ExpectFormats<void*>({
      {"%p", nullptr, "0000000000000000"},
      {"%p", reinterpret_cast<void*>(0x1234ABCDu), "000000001234ABCD"},
      {"%20p", reinterpret_cast<void*>(0x1Fu), "    000000000000001F"},
      {"%-20p|", reinterpret_cast<void*>(0x1Fu), "000000000000001F    |"},
      {"%4p", reinterpret_cast<void*>(0x1Fu), "000000000000001F"},
      {"%020p", reinterpret_cast<void*>(0x1Fu), "    000000000000001F"},
      {"%#p", reinterpret_cast<void*>(0x1Fu), "0X000000000000001F"},
  });
}

// --- floating point ---------------------------------------------------------------------------

TEST(StringFormat, FixedPoint) {
  ExpectFormats<double>({
      {"%f", 0.0, "0.000000"},
      {"%f", -0.0, "-0.000000"},
      {"%f", 3.14159265, "3.141593"},
      {"%f", -1.5, "-1.500000"},
      {"%.2f", 2.675, "2.67"},
      {"%.0f", 2.5, "2"},
      {"%.0f", 3.5, "4"},
      {"%#.0f", 3.0, "3."},
      {"%10.3f", 3.14159, "     3.142"},
      {"%-10.3f|", 3.14159, "3.142     |"},
      {"%010.3f", -3.14159, "-00003.142"},
      {"%+f", 1.0, "+1.000000"},
      {"% f", 1.0, " 1.000000"},
      {"%lf", 1.0, "1.000000"},
      {"%Lf", 1.0, "1.000000"},
      {"%.20f", 0.1, "0.10000000000000000555"},
      {"%.15f", 123456789.123456789, "123456789.123456791043282"},
      {"%f", 1e22, "10000000000000000000000.000000"},
  });
}

TEST(StringFormat, Exponents) {
  ExpectFormats<double>({
      {"%e", 0.0, "0.000000e+00"},
      {"%e", 12345.678, "1.234568e+04"},
      {"%E", 12345.678, "1.234568E+04"},
      {"%.2e", 0.00012345, "1.23e-04"},
      {"%.0e", 12345.0, "1e+04"},
      {"%#.0e", 12345.0, "1.e+04"},
      {"%15.3e", -1.5, "     -1.500e+00"},
      {"%-15.3E|", -1.5, "-1.500E+00     |"},
      {"%015.3e", -1.5, "-000001.500e+00"},
      {"%e", 1e300, "1.000000e+300"},
      {"%e", 5e-324, "4.940656e-324"},
      {"%.17e", 0.1, "1.00000000000000006e-01"},
  });
}

TEST(StringFormat, GeneralForm) {
  ExpectFormats<double>({
      {"%g", 0.0, "0"},
      {"%g", 100000.0, "100000"},
      {"%g", 1000000.0, "1e+06"},
      {"%G", 1000000.0, "1E+06"},
      {"%g", 0.0001, "0.0001"},
      {"%g", 0.00001, "1e-05"},
      {"%.3g", 3.14159, "3.14"},
      {"%#g", 1.0, "1.00000"},
      {"%10g", 1.5, "       1.5"},
      {"%-10g|", 1.5, "1.5       |"},
      {"%010g", -1.5, "-0000001.5"},
      {"%.17g", 0.1, "0.10000000000000001"},
      {"%.15g", 123456.789, "123456.789"},
      {"%+g", 1.5, "+1.5"},
  });
}

TEST(StringFormat, DecimalsAreRoundedExactlyAndTiesToEven) {
  constexpr FormatCase<double> kCases[] = {
      {"%.0f", 0.5, "0"},
      {"%.0f", 1.5, "2"},
      {"%.0f", 2.5, "2"},
      {"%.0f", 9.5, "10"},
      {"%.0f", -0.25, "-0"},
      {"%.2f", 0.125, "0.12"},
      {"%.2f", 0.375, "0.38"},
      {"%.2f", 2.675, "2.67"},  // below the tie
      {"%.1f", 0.05, "0.1"},    // above it
      {"%.1f", 99.95, "100.0"},
      {"%.3f", 999.9996, "1000.000"},
      {"%.3f", 0.9996, "1.000"},
      {"%.2f", 9007199254740991.0, "9007199254740991.00"},
      {"%.1f", 999999999999999.875, "999999999999999.9"},
      {"%.0f", 999999999999999872.0, "999999999999999872"},
      {"%.0f", 1e18, "1000000000000000000"},
      {"%.20f", 0.1, "0.10000000000000000555"},
      {"%.59f", 0x1p-59, "0.00000000000000000173472347597680709441192448139190673828125"},
      {"%.60f", 0x1p-60, "0.000000000000000000867361737988403547205962240695953369140625"},
  };
  ExpectFormats(kCases);
}

bool CLibraryRoundsHalvesToEven() {
  char text[16];
  std::snprintf(text, sizeof(text), "%.1f", 0.25);
  return std::string(text) == "0.2";
}

// "#" changes nothing about these but takes the C library's way, which the others avoid.
TEST(StringFormat, NumbersAreAsTheCLibraryPrintsThem) {
  if (!CLibraryRoundsHalvesToEven()) {
    GTEST_SKIP() << "Wine: the universal C library rounds halves up; that of Windows to even";
  }
  std::mt19937_64 random(1);
  const auto format = [](const char* conversion, int precision, double value) {
    CQNString text;
    text.Format(conversion, precision, value);
    std::string lower = static_cast<const char*>(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
    return lower;
  };
  for (int i = 0; i < 20000; ++i) {
    const double any = std::bit_cast<double>(random());
    const double usual =
        static_cast<double>(static_cast<std::int64_t>(random() % 2000001) - 1000000) /
        static_cast<double>(1 << i % 11);
    const double fraction = std::ldexp(static_cast<double>(random() >> 11), -53 - i % 12);
    const double value = i % 3 == 0 && std::isfinite(any) ? any : i % 3 == 1 ? usual : fraction;
    const int precision = 1 + i % 20;
    ASSERT_EQ(format("%.*f", precision, value), format("%#.*f", precision, value)) << value;
    ASSERT_EQ(format("%.*e", precision, value), format("%#.*e", precision, value)) << value;
    ASSERT_EQ(format("%+25.*g", precision, value), format("%+25.*G", precision, value)) << value;
  }
}

TEST(StringFormat, Infinities) {
  const double infinity = std::numeric_limits<double>::infinity();
  ExpectFormats<double>({
      {"%f", infinity, "inf"},
      {"%f", -infinity, "-inf"},
      {"%e", infinity, "inf"},
      {"%G", infinity, "INF"},
      {"%10f", infinity, "       inf"},
      {"%-10f|", infinity, "inf       |"},
      {"%+f", infinity, "+inf"},
      {"%010f", infinity, "       inf"},
  });
}

TEST(StringFormat, WhatIsNotANumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  ExpectFormats<double>({
      {"%f", std::copysign(nan, 1.0), "nan"},
      {"%G", std::copysign(nan, 1.0), "NAN"},
      {"%f", std::copysign(nan, -1.0), "-nan(ind)"},
      {"%E", std::copysign(nan, -1.0), "-NAN(IND)"},
      {"%05f", std::copysign(nan, 1.0), "  nan"},
      {"%-5e|", std::copysign(nan, 1.0), "nan  |"},
  });
}

// The longest texts a double can give, far beyond what any estimate asks for.
TEST(StringFormat, LongNumbersNeverOverrun) {
  const std::string largest = Formatted("%f", DBL_MAX);
  EXPECT_EQ(largest,
            "179769313486231570814527423731704356798070567525844996598917476803157260780028"
            "538760589558632766878171540458953514382464234321326889464182768467546703537516"
            "986049910576551282076245490090389328944075868508455133942304583236903222948165"
            "808559332123348274797826204144723168738177180919299881250404026184124858368.00"
            "0000");
  EXPECT_EQ(Formatted("%f", -DBL_MAX), "-" + largest);
  EXPECT_EQ(Formatted("%.600e", 1.5), "1.5" + std::string(599, '0') + "e+00");
  EXPECT_EQ(Formatted("%.600E", -1.5), "-1.5" + std::string(599, '0') + "E+00");
  EXPECT_EQ(Formatted("%.700f", 0.5), "0.5" + std::string(699, '0'));
  EXPECT_EQ(Formatted("%#.400g", 0.5), "0.5" + std::string(399, '0'));
  EXPECT_EQ(Formatted("%700f", 0.5), std::string(692, ' ') + "0.500000");
  EXPECT_EQ(Formatted("%.700d", 5), std::string(699, '0') + "5");
  EXPECT_EQ(Formatted("%700E", 1.0), std::string(688, ' ') + "1.000000E+00");
}

// Every decimal that a double has stands; beyond them are zeros.
TEST(StringFormat, PrecisionsBeyondTheDecimalsOfADoubleAreFilledWithZeros) {
  const double least = 4.9406564584124654e-324;
  const std::string all = Formatted("%.1074f", least);
  EXPECT_EQ(all.size(), 1076u);
  EXPECT_EQ(all.back(), '5');
  EXPECT_EQ(Formatted("%.1100f", least), all + std::string(26, '0'));
  EXPECT_EQ(Formatted("%.2000f", -0.25), "-0.25" + std::string(1998, '0'));
  EXPECT_EQ(Formatted("%.2000e", 0.25), "2.5" + std::string(1999, '0') + "e-01");
  EXPECT_EQ(Formatted("%.2000E", 1e300).substr(2001), "0E+300");
  EXPECT_EQ(Formatted("%.2000g", 0.25), "0.25");
  EXPECT_EQ(Formatted("%#.2000g", 0.25), "0.25" + std::string(1998, '0'));
  EXPECT_EQ(Formatted("%#.2000G", 2.5e-10).substr(1999), "00E-10");
  EXPECT_EQ(Formatted("%02010.2000f", -0.25), "-00000000.25" + std::string(1998, '0'));
}

// Whatever the width and precision, the stack is the same.
TEST(StringFormat, HugeWidthsAndPrecisionsNeedNoStack) {
  constexpr int kHuge = 3000000;
  const std::size_t size = kHuge;
  std::string width, zeros, left, hex, pointer, text, precision, fixed, exponent, general;
  quarnfc_test::RunOnSmallStack([&] {
    width = Formatted("%*d", kHuge, 5);
    zeros = Formatted("%0*lld", kHuge, -5LL);
    left = Formatted("%-3000000u", 5u);
    hex = Formatted("%#.*x", kHuge, 0xABu);
    pointer = Formatted("%*p", kHuge, static_cast<void*>(nullptr));
    text = Formatted("%*s", kHuge, "a");
    precision = Formatted("%.3000000d", 5);
    fixed = Formatted("%*.*f", kHuge + 4, kHuge, 0.5);
    exponent = Formatted("%.*e", kHuge, 0.5);
    general = Formatted("%#.*g", kHuge, 0.5);
  });
  EXPECT_EQ(width, std::string(size - 1, ' ') + "5");
  EXPECT_EQ(zeros, "-" + std::string(size - 2, '0') + "5");
  EXPECT_EQ(left, "5" + std::string(size - 1, ' '));
  EXPECT_EQ(hex, "0x" + std::string(size - 2, '0') + "ab");
  EXPECT_EQ(pointer, std::string(size - 16, ' ') + std::string(16, '0'));
  EXPECT_EQ(text, std::string(size - 1, ' ') + "a");
  EXPECT_EQ(precision, std::string(size - 1, '0') + "5");
  EXPECT_EQ(fixed, "  0.5" + std::string(size - 1, '0'));
  EXPECT_EQ(exponent, "5." + std::string(size, '0') + "e-01");
  EXPECT_EQ(general, "0.5" + std::string(size - 1, '0'));
}

// --- text and characters ----------------------------------------------------------------------

TEST(StringFormat, Texts) {
  ExpectFormats<const char*>({
      {"%s", "abc", "abc"},
      {"%s", "", ""},
      {"%6s", "abc", "   abc"},
      {"%-6s|", "abc", "abc   |"},
      {"%2s", "abc", "abc"},
      {"%.2s", "abc", "ab"},
      {"%6.2s", "abc", "    ab"},
      {"%-6.2s|", "abc", "ab    |"},
      {"%.0s", "abc", ""},
      {"%.s", "abc", ""},
      {"%.9s", "abc", "abc"},
      {"%hs", "abc", "abc"},
      {"%hS", "abc", "abc"},
      {"%s", ZHONG WEN, ZHONG WEN},
      {"%6s", ZHONG, "    " ZHONG},
      {"%.3s", ZHONG WEN, ZHONG "\xCE"},
      {"%Fs", "abc", "abc"},
      {"%Ns", "abc", "abc"},
  });
}

// As the Windows run-time does, unlike those of other systems.
TEST(StringFormat, TheZeroFlagPadsTextsToo) {
  const char* null = nullptr;
  EXPECT_EQ(Formatted("%05s", "ab"), "000ab");
  EXPECT_EQ(Formatted("%-05s|", "ab"), "ab   |");
  EXPECT_EQ(Formatted("%05.1s", "ab"), "0000a");
  EXPECT_EQ(Formatted("%05c", 'x'), "0000x");
  EXPECT_EQ(Formatted("%05S", L"ab"), "000ab");
  EXPECT_EQ(Formatted("%08s", null), "00(null)");
}

TEST(StringFormat, WideTexts) {
  ExpectFormats<const wchar_t*>({
      {"%ls", L"abc", "abc"},
      {"%S", L"abc", "abc"},
      {"%lS", L"abc", "abc"},
      {"%S", L"", ""},
      {"%6S", L"abc", "   abc"},
      {"%-6ls|", L"abc", "abc   |"},
      {"%.2S", L"abc", "ab"},
      {"%.0S", L"abc", ""},
      {"%S", L"a\x4E2D\x6587z", "a" ZHONG WEN "z"},
      {"%ls", L"\x661E", TRAIL_BACKSLASH},
  });
}

// Deliberately as the Windows run-time counts: width and precision of a wide text are in UTF-16
// units, not in the bytes they become.
TEST(StringFormat, WidthAndPrecisionOfAWideTextCountUnits) {
  ExpectFormats<const wchar_t*>({
      {"%.1S", L"\x4E2D\x6587", ZHONG},
      {"%4S", L"\x4E2D\x6587", "  " ZHONG WEN},
      {"%-4ls|", L"\x4E2D\x6587", ZHONG WEN "  |"},
      {"%5.1S", L"\x4E2D\x6587", "    " ZHONG},
  });
}

TEST(StringFormat, NullTexts) {
  const char* null = nullptr;
  const wchar_t* wide_null = nullptr;
  EXPECT_EQ(Formatted("%s", null), "(null)");
  EXPECT_EQ(Formatted("%hs", null), "(null)");
  EXPECT_EQ(Formatted("%8s", null), "  (null)");
  EXPECT_EQ(Formatted("%-8s|", null), "(null)  |");
  EXPECT_EQ(Formatted("%.3s", null), "(nu");
  EXPECT_EQ(Formatted("%S", wide_null), "(null)");
  EXPECT_EQ(Formatted("%ls", wide_null), "(null)");
  EXPECT_EQ(Formatted("%8S", wide_null), "  (null)");
  EXPECT_EQ(Formatted("%.3S", wide_null), "(nu");
}

TEST(StringFormat, Characters) {
  ExpectFormats<int>({
      {"%c", 'x', "x"},
      {"%3c", 'x', "  x"},
      {"%-3c|", 'x', "x  |"},
      {"%hc", 'x', "x"},
      {"%hC", 'x', "x"},
      {"%lc", L'x', "x"},
      {"%C", L'x', "x"},
      {"%C", 0x4E2D, ZHONG},
      {"%lc", 0x661E, TRAIL_BACKSLASH},
      {"%c", 0xFF, "\xFF"},
  });
}

// The text ends at its first zero byte.
TEST(StringFormat, AZeroCharacterEndsTheText) {
  EXPECT_EQ(Formatted("a%cb", 0), "a");
  EXPECT_EQ(Formatted("%c", 0), "");
}

TEST(StringFormat, ATextCutByItsPrecisionNeedsNoTerminator) {
  const char letters[3] = {'a', 'b', 'c'};
  EXPECT_EQ(Formatted("%.3s", static_cast<const char*>(letters)), "abc");
  const wchar_t wide_letters[3] = {L'a', L'b', L'c'};
  EXPECT_EQ(Formatted("%.3S", static_cast<const wchar_t*>(wide_letters)), "abc");
}

// --- widths and precisions from the arguments ---------------------------------------------------

TEST(StringFormat, StarsTakeTheirValuesFromTheArguments) {
  EXPECT_EQ(Formatted("%*d", 5, 42), "   42");
  EXPECT_EQ(Formatted("%-*d|", 5, 42), "42   |");
  EXPECT_EQ(Formatted("%*d|", -5, 42), "42   |");
  EXPECT_EQ(Formatted("%0*d", 5, 42), "00042");
  EXPECT_EQ(Formatted("%.*f", 2, 3.14159), "3.14");
  EXPECT_EQ(Formatted("%*.*f", 8, 2, 3.14159), "    3.14");
  EXPECT_EQ(Formatted("%*s", 5, "ab"), "   ab");
  EXPECT_EQ(Formatted("%*s|", -5, "ab"), "ab   |");
  EXPECT_EQ(Formatted("%.*s", 2, "abcdef"), "ab");
  EXPECT_EQ(Formatted("%*c", 3, 'x'), "  x");
  EXPECT_EQ(Formatted("%*.*s|%d", -6, 2, "abc", 9), "ab    |9");
}

TEST(StringFormat, ANegativePrecisionCountsAsNone) {
  EXPECT_EQ(Formatted("%.*f", -1, 0.5), "0.500000");
  EXPECT_EQ(Formatted("%.*s", -1, "abc"), "abc");
  EXPECT_EQ(Formatted("%.*d", -5, 42), "42");
}

TEST(StringFormat, NegativeWidthsBeyondTheEstimateNeverOverrun) {
  EXPECT_EQ(Formatted("%*d", -700, 5), "5" + std::string(699, ' '));
  EXPECT_EQ(Formatted("%*s", -700, "x"), "x" + std::string(699, ' '));
  EXPECT_EQ(Formatted("%*f", -700, 0.5), "0.500000" + std::string(692, ' '));
}

// --- the other conversions ----------------------------------------------------------------------

TEST(StringFormat, CountConversionTakesItsArgumentAndWritesNothing) {
  int count = 77;
  EXPECT_EQ(Formatted("ab%ncd%d", &count, 5), "abcd5");
  EXPECT_EQ(count, 77);
}

TEST(StringFormat, UnknownConversionsStandForThemselves) {
  EXPECT_EQ(Formatted("%y"), "y");
  EXPECT_EQ(Formatted("a%!b%d", 5), "a!b5");
  EXPECT_EQ(Formatted("%5y"), "y");
}

TEST(StringFormat, APercentSignAtTheEndGivesNothing) {
  EXPECT_EQ(Formatted("abc%"), "abc");
  EXPECT_EQ(Formatted("%"), "");
  EXPECT_EQ(Formatted("abc%5"), "abc");
  EXPECT_EQ(Formatted("abc%-.3l"), "abc");
  EXPECT_EQ(Formatted("abc%I64"), "abc");
}

// --- own text -----------------------------------------------------------------------------------

TEST(StringFormat, ArgumentsMayBeTheStringsOwnText) {
  CQNString text("abc");
  text.Format("%s-%s", static_cast<const char*>(text), static_cast<const char*>(text));
  EXPECT_EQ(Bytes(text), "abc-abc");
  CQNString large('x', 700);
  large.Format("<%s>", static_cast<const char*>(large));
  EXPECT_EQ(Bytes(large), "<" + std::string(700, 'x') + ">");
}

TEST(StringFormat, TheFormatMayBeTheStringsOwnText) {
  CQNString text("%d and %d");
  text.Format(text, 1, 2);
  EXPECT_EQ(Bytes(text), "1 and 2");
}

TEST(StringFormat, LeavesCopiesAlone) {
  CQNString text("abc");
  CQNString copy(text);
  text.Format("%d", 5);
  EXPECT_EQ(Bytes(text), "5");
  EXPECT_EQ(Bytes(copy), "abc");
}

void FormatThrough(CQNString& text, const char* format, ...) {
  va_list args;
  va_start(args, format);
  text.FormatV(format, args);
  va_end(args);
}

TEST(StringFormat, FormatVTakesAnArgumentList) {
  CQNString text;
  FormatThrough(text, "%d %s %f", 1, "two", 3.0);
  EXPECT_EQ(Bytes(text), "1 two 3.000000");
}

}  // namespace
