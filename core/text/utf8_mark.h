// SPDX-License-Identifier: MIT
// The mark in front of a UTF-8 file (its byte-order mark), by which such files are known.
#ifndef QUARNFC_CORE_TEXT_UTF8_MARK_H_
#define QUARNFC_CORE_TEXT_UTF8_MARK_H_

#include <string_view>

namespace quarnfc {

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_UTF8_MARK_H_
