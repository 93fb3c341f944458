// SPDX-License-Identifier: MIT
// The 128-bit product of two 64-bit numbers.
#ifndef QUARNFC_JSON_WIDE_PRODUCT_H_
#define QUARNFC_JSON_WIDE_PRODUCT_H_

#include <cstdint>

namespace quarnfc::json {

struct Product {
  std::uint64_t high;
  std::uint64_t low;
};

constexpr Product Multiply(std::uint64_t left, std::uint64_t right) {
#if defined(__SIZEOF_INT128__)
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(left) * right;
  return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
#else
  constexpr std::uint64_t kLow = 0xFFFFFFFF;
  const std::uint64_t low = (left & kLow) * (right & kLow);
  const std::uint64_t middle = (left >> 32) * (right & kLow) + (low >> 32);
  const std::uint64_t other = (left & kLow) * (right >> 32) + (middle & kLow);
  return {(left >> 32) * (right >> 32) + (middle >> 32) + (other >> 32),
          (other << 32) | (low & kLow)};
#endif
}

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_WIDE_PRODUCT_H_
