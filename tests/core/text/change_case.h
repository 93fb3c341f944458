// SPDX-License-Identifier: MIT
#ifndef QUARNFC_TESTS_CORE_TEXT_CHANGE_CASE_H_
#define QUARNFC_TESTS_CORE_TEXT_CHANGE_CASE_H_

#include <string>

#include "core/text/multibyte.h"

namespace text_test {

inline void MakeUpper(std::string& text) {
  quarnfc::MbsUpr(reinterpret_cast<unsigned char*>(text.data()), text.size());
}

inline void MakeLower(std::string& text) {
  quarnfc::MbsLwr(reinterpret_cast<unsigned char*>(text.data()), text.size());
}

}  // namespace text_test

#endif  // QUARNFC_TESTS_CORE_TEXT_CHANGE_CASE_H_
