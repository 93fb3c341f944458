// SPDX-License-Identifier: MIT
#include "json/decimal.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "json/wide_product.h"

namespace quarnfc::json {
namespace {

constexpr int kSmallestExponent = -27;
constexpr int kLargestExponent = 55;
constexpr std::ptrdiff_t kMostDigits = 19;  // any 19 digits fit into 64 bits

// The 128 leading bits of a power of five, the first of them set: exact for 5^0 to 5^55, rounded up
// for the reciprocals.
using Power = Product;

constexpr Power ShiftLeft(Power power) {
  return {power.high << 1 | power.low >> 63, power.low << 1};
}

constexpr Power Normalized(Power power) {
  while (power.high >> 63 == 0) power = ShiftLeft(power);
  return power;
}

constexpr Power TimesFive(Power power) {
  const Product low = Multiply(power.low, 5);
  return {power.high * 5 + low.high, low.low};
}

// The 128 leading bits of 1 / divisor by long division, bit by bit.
constexpr Power ReciprocalOf(std::uint64_t divisor) {
  Power quotient{0, 0};
  std::uint64_t rest = 1;
  while (quotient.high >> 63 == 0) {
    rest <<= 1;
    quotient = ShiftLeft(quotient);
    if (rest >= divisor) {
      rest -= divisor;
      quotient.low |= 1;
    }
  }
  return {quotient.high + (quotient.low == ~std::uint64_t{0} ? 1 : 0), quotient.low + 1};
}

constexpr auto MakePowers() {
  std::array<Power, kLargestExponent - kSmallestExponent + 1> powers{};
  Power power{0, 1};
  for (int i = 0; i <= kLargestExponent; ++i, power = TimesFive(power)) {
    powers[static_cast<std::size_t>(i - kSmallestExponent)] = Normalized(power);
  }
  std::uint64_t divisor = 5;
  for (int i = -1; i >= kSmallestExponent; --i, divisor *= 5) {
    powers[static_cast<std::size_t>(i - kSmallestExponent)] = ReciprocalOf(divisor);
  }
  return powers;
}

constexpr auto kPowers = MakePowers();

// The leading 128 bits of digits * 5^exponent. The second half of the power matters only when the
// first product might round either way.
Product TimesPower(std::uint64_t digits, int exponent) {
  const Power& power = kPowers[static_cast<std::size_t>(exponent - kSmallestExponent)];
  Product product = Multiply(digits, power.high);
  constexpr std::uint64_t kUndecided = 0x1FF;
  if ((product.high & kUndecided) == kUndecided) {
    const Product more = Multiply(digits, power.low);
    product.low += more.high;
    if (product.low < more.high) ++product.high;
  }
  return product;
}

// digits * 10^exponent, rounded half to even.
double ToDouble(std::uint64_t digits, int exponent) {
  constexpr std::uint64_t kExactInteger = std::uint64_t{1} << 53;
  if (exponent == 0 && digits <= kExactInteger) return static_cast<double>(digits);
  if (digits == 0) return 0;
  const int zeros = std::countl_zero(digits);
  const Product product = TimesPower(digits << zeros, exponent);
  const int top = static_cast<int>(product.high >> 63);
  const int surplus = top + 64 - 55;  // 53 bits, one to round, one guard
  std::uint64_t bits = product.high >> surplus;
  const bool may_be_tie = product.low <= 1 && exponent >= -4 && exponent <= 23 && (bits & 3) == 1;
  if (may_be_tie && bits << surplus == product.high) bits &= ~std::uint64_t{1};
  bits = (bits + (bits & 1)) >> 1;
  // floor(log2(10^exponent)), biased.
  int binary = ((217706 * exponent) >> 16) + 63 + top - zeros + 1023;
  if (bits >> 53 != 0) {
    bits >>= 1;
    ++binary;
  }
  constexpr std::uint64_t kImplicitBit = std::uint64_t{1} << 52;
  return std::bit_cast<double>((bits & ~kImplicitBit) | static_cast<std::uint64_t>(binary) << 52);
}

const char* TakeDigits(const char* at, std::uint64_t& digits) {
  for (;; ++at) {
    const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
    if (digit > 9) return at;
    digits = digits * 10 + digit;
  }
}

std::ptrdiff_t LeadingZeros(const char* at) {
  std::ptrdiff_t zeros = 0;
  for (; *at == '0' || *at == '.'; ++at) zeros += *at == '0';
  return zeros;
}

// Reads "e-12" if it is there; null when it is malformed or long.
const char* TakeExponent(const char* at, int& exponent) {
  if ((*at | 0x20) != 'e') return at;
  ++at;
  const bool is_negative = *at == '-';
  if (is_negative || *at == '+') ++at;
  std::uint64_t value = 0;
  const char* end = TakeDigits(at, value);
  if (end == at || end - at > 3) return nullptr;
  exponent += is_negative ? -static_cast<int>(value) : static_cast<int>(value);
  return end;
}

}  // namespace

const char* ReadDecimal(const char* at, double& number) {
  const bool is_negative = *at == '-';
  if (is_negative) ++at;
  std::uint64_t digits = 0;
  const char* end = TakeDigits(at, digits);
  std::ptrdiff_t count = end - at;
  if (count == 0) return nullptr;
  int exponent = 0;
  if (*end == '.') {
    const char* fraction = end + 1;
    end = TakeDigits(fraction, digits);
    if (end == fraction) return nullptr;
    count += end - fraction;
    exponent = static_cast<int>(fraction - end);
  }
  if (count > kMostDigits && count - LeadingZeros(at) > kMostDigits) return nullptr;
  end = TakeExponent(end, exponent);
  if (end == nullptr || exponent < kSmallestExponent || exponent > kLargestExponent) return nullptr;
  const double magnitude = ToDouble(digits, exponent);
  number = is_negative ? -magnitude : magnitude;
  return end;
}

}  // namespace quarnfc::json
