// SPDX-License-Identifier: MIT
#include "platform/lock.h"

#include <new>

#include "platform/windows/platform.h"

namespace quarnfc::platform {

namespace {

CRITICAL_SECTION* SectionIn(unsigned char* storage) {
  return std::launder(reinterpret_cast<CRITICAL_SECTION*>(storage));
}

}  // namespace

Lock::Lock() {
  static_assert(sizeof(CRITICAL_SECTION) <= sizeof(storage_) && alignof(CRITICAL_SECTION) <= 8);
  InitializeCriticalSection(new (storage_) CRITICAL_SECTION);
}

Lock::~Lock() { DeleteCriticalSection(SectionIn(storage_)); }

void Lock::Acquire() { EnterCriticalSection(SectionIn(storage_)); }

void Lock::Release() { LeaveCriticalSection(SectionIn(storage_)); }

}  // namespace quarnfc::platform
