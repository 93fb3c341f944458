// SPDX-License-Identifier: MIT
// Buffers that the library allocates for its caller.
#ifndef QUARNFC_TESTS_SUPPORT_CALLER_BUFFER_H_
#define QUARNFC_TESTS_SUPPORT_CALLER_BUFFER_H_

#include <quarnfc/plain.h>

#include <memory>
#include <string>

namespace quarnfc_test {

struct ReleaseBuffer {
  void operator()(void* buffer) const { qnFreeMem(buffer); }
};

// Owns a buffer and releases it as callers must.
template <class T>
using CallerBuffer = std::unique_ptr<T, ReleaseBuffer>;

// The text of a buffer, which is released; "(null)" when there is none.
inline std::string TakeText(char* text) {
  const CallerBuffer<char> owned(text);
  return text == nullptr ? "(null)" : text;
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_CALLER_BUFFER_H_
