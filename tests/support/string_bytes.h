// SPDX-License-Identifier: MIT
// Strings of the library as standard strings, so that tests compare and print bytes.
#ifndef QUARNFC_TESTS_SUPPORT_STRING_BYTES_H_
#define QUARNFC_TESTS_SUPPORT_STRING_BYTES_H_

#include <quarnfc/qn_string.h>

#include <cstddef>
#include <string>

namespace quarnfc_test {

// The text of a string, embedded zeros included.
inline std::string Bytes(const CQNString& text) {
  return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_STRING_BYTES_H_
