// Comparisons by the order of the Chinese locale as far as it follows from the code page: symbols,
// digits, Latin letters, everything else by code, which for the 3755 common Chinese characters is
// by Pinyin. Only texts that are equal by that are told apart by width and case, half-width and
// lower case first.
#include "core/text/code_page_936_case.h"
#include "core/text/multibyte_character.h"
#include "platform/posix/platform.h"

namespace {

using quarnfc::TakeForComparison;

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
  const unsigned int folded = quarnfc::ToLowerIn936(narrow);
  const bool is_upper = folded != narrow && !ignore_case;
  return {GroupOf(folded) << 16 | folded, (is_full_width ? 2u : 0u) + (is_upper ? 1u : 0u)};
}

int Collate(const unsigned char* left, const unsigned char* right, bool ignore_case) {
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

int _mbscoll(const unsigned char* left, const unsigned char* right) {
  return Collate(left, right, false);
}

int _mbsicoll(const unsigned char* left, const unsigned char* right) {
  return Collate(left, right, true);
}
