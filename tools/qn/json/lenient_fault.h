// SPDX-License-Identifier: MIT
// Where in a broken JSON text the library's lenient reader stopped, worked out from its message.
#ifndef QN_JSON_LENIENT_FAULT_H_
#define QN_JSON_LENIENT_FAULT_H_

#include <cstddef>
#include <optional>
#include <string>

namespace qn {

struct LenientFault {
  std::size_t offset;   // in bytes
  const char* meaning;  // the message in other words
  bool certain;         // false when other places of the text would give the same message
};

// The fault of a text in the code page; nothing when the text can be read.
//
// The reader's message ends with the text at the fault, at most 50 bytes of it. Fewer than 50 reach
// to the end of the text, which tells the place. 50 may occur several times: then each occurrence
// is examined, for a few seconds at most, and the first is taken at which the reader would have
// said the same.
std::optional<LenientFault> FindLenientFault(const std::string& text);

}  // namespace qn

#endif  // QN_JSON_LENIENT_FAULT_H_
