// SPDX-License-Identifier: MIT
// Storage of the HTTP client's objects: the library's memory, whichever module creates or deletes
// them.
#include <quarnfc/internet.h>
#include <quarnfc/internet_exception.h>
#include <quarnfc/internet_file.h>

#include <new>

#include "core/memory/memory.h"

// Hosts are compiled against these sizes.
static_assert(sizeof(CQNInternetSession) == 40);
static_assert(sizeof(CQNInternetConnection) == 48);
static_assert(sizeof(CQNHttpConnection) == 56);
static_assert(sizeof(CQNInternetFile) == 96);
static_assert(sizeof(CQNHttpFile) == 112);
static_assert(sizeof(CQNInternetException) == 24);

namespace {

void* AllocOrNull(std::size_t size) noexcept {
  try {
    return quarnfc::AllocBuffer(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

}  // namespace

#define QN_CLASS_MEMORY(Class)                                                        \
  void* Class::operator new(std::size_t size) { return quarnfc::AllocBuffer(size); }  \
  void* Class::operator new(std::size_t size, const std::nothrow_t&) noexcept {       \
    return AllocOrNull(size);                                                         \
  }                                                                                   \
  void Class::operator delete(void* object) noexcept { quarnfc::FreeBuffer(object); } \
  void Class::operator delete(void* object, const std::nothrow_t&) noexcept {         \
    quarnfc::FreeBuffer(object);                                                      \
  }

QN_CLASS_MEMORY(CQNInternetSession)
QN_CLASS_MEMORY(CQNInternetConnection)
QN_CLASS_MEMORY(CQNInternetFile)

#undef QN_CLASS_MEMORY

void* CQNInternetException::operator new(std::size_t size) { return quarnfc::AllocBuffer(size); }
void CQNInternetException::operator delete(void* object) noexcept { quarnfc::FreeBuffer(object); }
