// SPDX-License-Identifier: MIT
// The operators new and delete over the heap of the Universal C Run-time. A program may define its
// own: the linker then takes nothing of this file's group. Derived forms call the basic ones, so
// that replacing those is enough.
#include <malloc.h>
#include <new.h>
#include <stdlib.h>

namespace {

std::new_handler g_handler = nullptr;

// Asks allocate until it has a block or no handler is left that might free something.
template <class Allocate>
void* AllocateOrThrow(const Allocate& allocate) {
  for (;;) {
    if (void* block = allocate()) return block;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

template <class Allocate>
void* NullInsteadOfThrow(const Allocate& allocate) noexcept {
  try {
    return allocate();
  } catch (...) {
    return nullptr;
  }
}

}  // namespace

namespace std {

new_handler set_new_handler(new_handler handler) noexcept {
  return __atomic_exchange_n(&g_handler, handler, __ATOMIC_ACQ_REL);
}

new_handler get_new_handler() noexcept { return __atomic_load_n(&g_handler, __ATOMIC_ACQUIRE); }

}  // namespace std

#define QUARNFC_REPLACEABLE __attribute__((weak))

QUARNFC_REPLACEABLE void* operator new(size_t size) {
  return AllocateOrThrow([size] { return malloc(size == 0 ? 1 : size); });
}

QUARNFC_REPLACEABLE void* operator new(size_t size, std::align_val_t alignment) {
  const auto bytes = static_cast<size_t>(alignment);
  return AllocateOrThrow([=] { return _aligned_malloc(size == 0 ? 1 : size, bytes); });
}

QUARNFC_REPLACEABLE void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return NullInsteadOfThrow([size] { return operator new(size); });
}

QUARNFC_REPLACEABLE void* operator new(size_t size, std::align_val_t alignment,
                                       const std::nothrow_t&) noexcept {
  return NullInsteadOfThrow([=] { return operator new(size, alignment); });
}

QUARNFC_REPLACEABLE void* operator new[](size_t size) { return operator new(size); }

QUARNFC_REPLACEABLE void* operator new[](size_t size, std::align_val_t alignment) {
  return operator new(size, alignment);
}

QUARNFC_REPLACEABLE void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  return NullInsteadOfThrow([size] { return operator new[](size); });
}

QUARNFC_REPLACEABLE void* operator new[](size_t size, std::align_val_t alignment,
                                         const std::nothrow_t&) noexcept {
  return NullInsteadOfThrow([=] { return operator new[](size, alignment); });
}

QUARNFC_REPLACEABLE void operator delete(void* block) noexcept { free(block); }

QUARNFC_REPLACEABLE void operator delete(void* block, std::align_val_t) noexcept {
  _aligned_free(block);
}

QUARNFC_REPLACEABLE void operator delete(void* block, size_t) noexcept { operator delete(block); }

QUARNFC_REPLACEABLE void operator delete(void* block, const std::nothrow_t&) noexcept {
  operator delete(block);
}

QUARNFC_REPLACEABLE void operator delete(void* block, size_t, std::align_val_t alignment) noexcept {
  operator delete(block, alignment);
}

QUARNFC_REPLACEABLE void operator delete(void* block, std::align_val_t alignment,
                                         const std::nothrow_t&) noexcept {
  operator delete(block, alignment);
}

QUARNFC_REPLACEABLE void operator delete[](void* block) noexcept { operator delete(block); }

QUARNFC_REPLACEABLE void operator delete[](void* block, std::align_val_t alignment) noexcept {
  operator delete(block, alignment);
}

QUARNFC_REPLACEABLE void operator delete[](void* block, size_t) noexcept {
  operator delete[](block);
}

QUARNFC_REPLACEABLE void operator delete[](void* block, const std::nothrow_t&) noexcept {
  operator delete[](block);
}

QUARNFC_REPLACEABLE void operator delete[](void* block, size_t,
                                           std::align_val_t alignment) noexcept {
  operator delete[](block, alignment);
}

QUARNFC_REPLACEABLE void operator delete[](void* block, std::align_val_t alignment,
                                           const std::nothrow_t&) noexcept {
  operator delete[](block, alignment);
}
