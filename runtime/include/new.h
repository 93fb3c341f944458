// SPDX-License-Identifier: MIT
// The operators new and delete, which every module defines for itself (start/operator_new.cpp).
#ifndef QUARNFC_RUNTIME_NEW_H_
#define QUARNFC_RUNTIME_NEW_H_

#pragma clang system_header

#include <vcruntime_exception.h>

#include <stddef.h>

namespace std {

struct nothrow_t {
  explicit nothrow_t() = default;
};
extern const nothrow_t nothrow;

enum class align_val_t : size_t {};

typedef void(__cdecl* new_handler)();
new_handler set_new_handler(new_handler handler) noexcept;
new_handler get_new_handler() noexcept;

}  // namespace std

void* operator new(size_t size);
void* operator new(size_t size, const std::nothrow_t&) noexcept;
void* operator new(size_t size, std::align_val_t alignment);
void* operator new(size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept;
void* operator new[](size_t size);
void* operator new[](size_t size, const std::nothrow_t&) noexcept;
void* operator new[](size_t size, std::align_val_t alignment);
void* operator new[](size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept;

void operator delete(void* block) noexcept;
void operator delete(void* block, size_t size) noexcept;
void operator delete(void* block, const std::nothrow_t&) noexcept;
void operator delete(void* block, std::align_val_t alignment) noexcept;
void operator delete(void* block, size_t size, std::align_val_t alignment) noexcept;
void operator delete(void* block, std::align_val_t alignment, const std::nothrow_t&) noexcept;
void operator delete[](void* block) noexcept;
void operator delete[](void* block, size_t size) noexcept;
void operator delete[](void* block, const std::nothrow_t&) noexcept;
void operator delete[](void* block, std::align_val_t alignment) noexcept;
void operator delete[](void* block, size_t size, std::align_val_t alignment) noexcept;
void operator delete[](void* block, std::align_val_t alignment, const std::nothrow_t&) noexcept;

inline void* operator new(size_t, void* place) noexcept { return place; }
inline void* operator new[](size_t, void* place) noexcept { return place; }
inline void operator delete(void*, void*) noexcept {}
inline void operator delete[](void*, void*) noexcept {}

#endif  // QUARNFC_RUNTIME_NEW_H_
