// SPDX-License-Identifier: MIT
#ifndef QUARNFC_TESTS_SUPPORT_CONTAINS_H_
#define QUARNFC_TESTS_SUPPORT_CONTAINS_H_

#include <string_view>

namespace quarnfc_test {

inline bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_CONTAINS_H_
