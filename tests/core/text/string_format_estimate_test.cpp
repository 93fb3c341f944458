// SPDX-License-Identifier: MIT
// The capacity that formatting asks for: an estimate made from the format and its arguments. Texts
// above 512 bytes have exactly the capacity asked for, so that a long ordinary text in front of a
// conversion makes the estimate visible.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Bytes;

constexpr int kPrefix = 600;

template <class... Arguments>
int Estimate(const char* format, Arguments... arguments) {
  CQNString text;
  text.Format((std::string(kPrefix, 'x') + format).c_str(), arguments...);
  return text.GetAllocLength() - kPrefix;
}

TEST(StringFormatEstimate, OrdinaryCharactersCountTheirBytes) {
  EXPECT_EQ(Estimate("abc"), 3);
  EXPECT_EQ(Estimate(ZHONG "a"), 3);
  EXPECT_EQ(Estimate("%%%%"), 2);
}

TEST(StringFormatEstimate, IntegersCountWidthAndPrecisionButAtLeast32) {
  for (const char* format : {"%d", "%i", "%u", "%x", "%X", "%o", "%p", "%I64d", "%ld", "%hd",
                             "%10d", "%-10.5d", "%+d", "% d", "%05d", "%20.12d", "%Nd"}) {
    EXPECT_EQ(Estimate(format, 1), 32) << format;
  }
  EXPECT_EQ(Estimate("%40d", 1), 40);
  EXPECT_EQ(Estimate("%-40d", 1), 40);
  EXPECT_EQ(Estimate("%040d", 1), 40);
  EXPECT_EQ(Estimate("%20.30d", 1), 50);
  EXPECT_EQ(Estimate("%.40d", 1), 40);
  EXPECT_EQ(Estimate("%*d", 40, 1), 40);
  EXPECT_EQ(Estimate("%*.*d", 20, 30, 1), 50);
  EXPECT_EQ(Estimate("%d%d", 1, 2), 64);
}

TEST(StringFormatEstimate, TheAlternateFlagAddsTwo) {
  EXPECT_EQ(Estimate("%#x", 1), 34);
  EXPECT_EQ(Estimate("%#40x", 1), 42);
  EXPECT_EQ(Estimate("%#g", 1.0), 130);
  EXPECT_EQ(Estimate("%##x", 1), 36);
}

TEST(StringFormatEstimate, ANegativeWidthCountsAsItIsAndTheTextStillFits) {
  EXPECT_EQ(Estimate("%*d", -20, 1), 32);
  EXPECT_EQ(Estimate("%*s", -9, "abc"), 9);
  EXPECT_EQ(Estimate("%*.50d", -20, 1), 50);
}

TEST(StringFormatEstimate, ExponentsCountWidthAndPrecisionButAtLeast128) {
  for (const char* format : {"%e", "%g", "%G", "%10e", "%.3g", "%100.20e"}) {
    EXPECT_EQ(Estimate(format, 1.0), 128) << format;
  }
  EXPECT_EQ(Estimate("%200e", 1.0), 200);
  EXPECT_EQ(Estimate("%100.50g", 1.0), 150);
  EXPECT_EQ(Estimate("%*.*G", 100, 50, 1.0), 150);
}

TEST(StringFormatEstimate, FixedPointCountsItsPrecisionAnd312) {
  EXPECT_EQ(Estimate("%f", 1.0), 312);
  EXPECT_EQ(Estimate("%.10f", 1.0), 322);
  EXPECT_EQ(Estimate("%100f", 1.0), 312);
  EXPECT_EQ(Estimate("%.*f", 7, 1.0), 319);
  EXPECT_EQ(Estimate("%10.2f", 1.0), 314);
}

TEST(StringFormatEstimate, CharactersCountTwo) {
  for (const char* format : {"%c", "%C", "%hc", "%lc"}) EXPECT_EQ(Estimate(format, 'x'), 2);
  EXPECT_EQ(Estimate("%20c", 'x'), 20);
  EXPECT_EQ(Estimate("%.1c", 'x'), 1);
}

TEST(StringFormatEstimate, TextsCountTheirLength) {
  EXPECT_EQ(Estimate("%s", "abc"), 3);
  EXPECT_EQ(Estimate("%hs", "abc"), 3);
  EXPECT_EQ(Estimate("%hS", "abc"), 3);
  EXPECT_EQ(Estimate("%s", ""), 1);
  EXPECT_EQ(Estimate("%s", static_cast<const char*>(nullptr)), 6);
  EXPECT_EQ(Estimate("%10s", "abc"), 10);
  EXPECT_EQ(Estimate("%-10s", "abc"), 10);
  EXPECT_EQ(Estimate("%2s", "abc"), 3);
  EXPECT_EQ(Estimate("%.2s", "abc"), 2);
  EXPECT_EQ(Estimate("%.9s", "abc"), 3);
  EXPECT_EQ(Estimate("%.0s", "abc"), 3);
  EXPECT_EQ(Estimate("%5.2s", "abc"), 5);
  EXPECT_EQ(Estimate("%*s", 10, "abc"), 10);
  EXPECT_EQ(Estimate("%.*s", 2, "abc"), 2);
}

TEST(StringFormatEstimate, WideTextsCountTheirUnits) {
  EXPECT_EQ(Estimate("%S", L"abc"), 3);
  EXPECT_EQ(Estimate("%ls", L"abc"), 3);
  EXPECT_EQ(Estimate("%S", L""), 1);
  EXPECT_EQ(Estimate("%S", static_cast<const wchar_t*>(nullptr)), 6);
  EXPECT_EQ(Estimate("%ls", static_cast<const wchar_t*>(nullptr)), 6);
  EXPECT_EQ(Estimate("%10S", L"abc"), 10);
  EXPECT_EQ(Estimate("%.2S", L"abc"), 2);
}

TEST(StringFormatEstimate, CountConversionAddsNothing) {
  int count = 0;
  EXPECT_EQ(Estimate("%nabc", &count), 3);
  EXPECT_EQ(Estimate("%n%s", &count, "abcd"), 4);
}

// What the run-time writes beyond the estimate goes into a larger buffer.
TEST(StringFormatEstimate, ALongerTextHasALargerBuffer) {
  EXPECT_EQ(Estimate("%f", 1.7976931348623157e308), 316);
  EXPECT_EQ(Estimate("%E", 1.0), 12);
  EXPECT_EQ(Estimate("%.600e", 1.0), 606);
  EXPECT_EQ(Estimate("%*d", -100, 1), 100);
  EXPECT_EQ(Estimate("%S", L"\x4E2D\x6587"), 4);
}

TEST(StringFormatEstimate, ChoosesTheBufferClassOfAFreshString) {
  struct {
    const char* format;
    int allocated;
  } const cases[] = {{"", 0}, {"x", 64}, {"%d", 64}, {"%d%d", 64}, {"%d%d%d", 128}};
  for (const auto& c : cases) {
    CQNString text;
    text.Format(c.format, 1, 2, 3);
    EXPECT_EQ(text.GetAllocLength(), c.allocated) << c.format;
  }
  CQNString fixed;
  fixed.Format("%f", 1.0);
  EXPECT_EQ(fixed.GetAllocLength(), 512);
  CQNString exponent;
  exponent.Format("%e", 1.0);
  EXPECT_EQ(exponent.GetAllocLength(), 128);
}

TEST(StringFormatEstimate, KeepsABufferThatIsLargeEnough) {
  CQNString text('x', 1000);
  const char* before = text;
  text.Format("%d", 1);
  EXPECT_EQ(static_cast<const char*>(text), before);
  EXPECT_EQ(text.GetAllocLength(), 1000);
  CQNString locked("abc");
  char* buffer = locked.LockBuffer();
  locked.Format("%d", 1);
  EXPECT_EQ(static_cast<const char*>(locked), buffer);
}

TEST(StringFormatEstimate, ASharedStringTakesABufferAsLongAsItsOldText) {
  CQNString text('x', 700);
  CQNString copy(text);
  text.Format("%d", 1);
  EXPECT_EQ(Bytes(text), "1");
  EXPECT_EQ(text.GetAllocLength(), 700);
  EXPECT_EQ(Bytes(copy), std::string(700, 'x'));
}

}  // namespace
