// SPDX-License-Identifier: MIT
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <new>

#include "tests/support/page_end.h"

namespace quarnfc_test {

PageEnd::PageEnd(const void* bytes, std::size_t size) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t readable = (size / page + 1) * page;
  total_ = readable + page;
  base_ = mmap(nullptr, total_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (base_ == MAP_FAILED) throw std::bad_alloc();
  char* const end = static_cast<char*>(base_) + readable;
  mprotect(end, page, PROT_NONE);
  data_ = end - size;
  std::memcpy(data_, bytes, size);
}

PageEnd::~PageEnd() { munmap(base_, total_); }

}  // namespace quarnfc_test
