// SPDX-License-Identifier: MIT
// Buffers that the library hands to its caller.
#ifndef QN_LIBRARY_BUFFER_H_
#define QN_LIBRARY_BUFFER_H_

#include <quarnfc/plain.h>

#include <memory>

namespace qn {

struct FreeLibraryBuffer {
  void operator()(void* buffer) const { qnFreeMem(buffer); }
};

template <class T>
using LibraryBuffer = std::unique_ptr<T, FreeLibraryBuffer>;

}  // namespace qn

#endif  // QN_LIBRARY_BUFFER_H_
