// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstring>
#include <new>

#include "tests/support/page_end.h"

namespace quarnfc_test {

PageEnd::PageEnd(const void* bytes, std::size_t size) {
  SYSTEM_INFO system;
  GetSystemInfo(&system);
  const std::size_t page = system.dwPageSize;
  const std::size_t readable = (size / page + 1) * page;
  total_ = readable + page;
  // The last page is reserved and has no memory behind it.
  base_ = VirtualAlloc(nullptr, total_, MEM_RESERVE, PAGE_NOACCESS);
  if (base_ == nullptr || VirtualAlloc(base_, readable, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
    throw std::bad_alloc();
  }
  data_ = static_cast<char*>(base_) + readable - size;
  std::memcpy(data_, bytes, size);
}

PageEnd::~PageEnd() { VirtualFree(base_, 0, MEM_RELEASE); }

}  // namespace quarnfc_test
