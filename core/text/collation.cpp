// SPDX-License-Identifier: MIT
// The order of code page 936 is that of the Chinese locale as far as it follows from the code page:
// symbols, digits, Latin letters, everything else by code, which for the 3755 common Chinese
// characters is by Pinyin. Only texts that are equal by that are told apart by width and case,
// half-width and lower case first.
#include "core/text/collation.h"

#include "core/text/character.h"
#include "platform/collation.h"

namespace quarnfc {

namespace {

int Order(unsigned int left, unsigned int right) {
  return left == right ? 0 : left > right ? 1 : -1;
}

struct Weight {
  unsigned int primary;
  unsigned int variant;
};

enum Group : unsigned int { kSymbol = 1, kDigit = 2, kLetter = 3, kOther = 4 };

unsigned int GroupOf(unsigned int folded) {
  if (folded > 0xFF) {
    return kOther;
  }
  if (folded >= 'a' && folded <= 'z') {
    return kLetter;
  }
  return folded >= '0' && folded <= '9' ? kDigit : kSymbol;
}

Weight WeightOf(unsigned int value, bool ignore_case) {
  if (value == 0) {
    return {0, 0};
  }
  const bool is_full_width = value >= 0xA3A1 && value <= 0xA3FE;
  const unsigned int narrow = is_full_width ? value - 0xA3A1 + '!' : value;
  const unsigned int folded = ToLowerCharacter(narrow);
  const bool is_upper = folded != narrow && !ignore_case;
  return {GroupOf(folded) << 16 | folded, (is_full_width ? 2u : 0u) + (is_upper ? 1u : 0u)};
}

int CollateIn936(const unsigned char* left, const unsigned char* right, bool ignore_case) {
  int variant_order = 0;
  for (;;) {
    const Weight left_weight = WeightOf(TakeForComparison(left), ignore_case);
    const Weight right_weight = WeightOf(TakeForComparison(right), ignore_case);
    if (left_weight.primary != right_weight.primary) {
      return Order(left_weight.primary, right_weight.primary);
    }
    if (left_weight.primary == 0) {
      return variant_order;
    }
    if (variant_order == 0) {
      variant_order = Order(left_weight.variant, right_weight.variant);
    }
  }
}

}  // namespace

int Collate(const unsigned char* left, const unsigned char* right, bool ignore_case) {
  const std::optional<int> order = platform::SystemCollation(left, right, ignore_case);
  return order.has_value() ? *order : CollateIn936(left, right, ignore_case);
}

}  // namespace quarnfc
