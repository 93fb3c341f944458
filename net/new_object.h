// SPDX-License-Identifier: MIT
// Making objects over handles without losing either.
#ifndef QUARNFC_NET_NEW_OBJECT_H_
#define QUARNFC_NET_NEW_OBJECT_H_

#include <memory>
#include <new>

#include "platform/internet.h"

namespace quarnfc::net {

struct HandleCloser {
  void operator()(HINTERNET handle) const { InternetCloseHandle(handle); }
};

// A new handle that no object has taken over yet: closed unless it is released to one.
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

// The result of make, or null when memory is exhausted. Every other exception passes through.
template <class Make>
auto NullWithoutMemory(Make make) -> decltype(make()) {
  try {
    return make();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_NEW_OBJECT_H_
