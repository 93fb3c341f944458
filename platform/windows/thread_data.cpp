// SPDX-License-Identifier: MIT
#include "platform/thread_data.h"

#include "platform/windows/platform.h"

#include <winternl.h>

#include <atomic>
#include <cstddef>
#include <new>
#include <type_traits>

namespace quarnfc::platform {

static_assert(offsetof(TEB, TlsSlots) == 0x1480);
static_assert(offsetof(NT_TIB, Self) == 0x30);
static_assert(std::is_same_v<DWORD, unsigned long>);

namespace {

// Every thread that sets data stores the same function.
constinit std::atomic<void (*)(void* data)> g_at_end = nullptr;

}  // namespace

// The slot is taken when the module is loaded, before its static initialisers run strings.
unsigned long g_thread_data_slot = TLS_OUT_OF_INDEXES;

void* ThreadDataOfLateSlot() {
  if (g_thread_data_slot == TLS_OUT_OF_INDEXES) return nullptr;
  const DWORD error = ::GetLastError();
  void* data = TlsGetValue(g_thread_data_slot);
  SetLastError(error);
  return data;
}

void SetThreadData(void* data, void (*at_end)(void* data)) {
  // At the first call, made while the static initialisers run: one thread.
  if (g_thread_data_slot == TLS_OUT_OF_INDEXES) g_thread_data_slot = TlsAlloc();
  g_at_end = at_end;
  if (g_thread_data_slot == TLS_OUT_OF_INDEXES || !TlsSetValue(g_thread_data_slot, data)) {
    throw std::bad_alloc();
  }
}

void ReleaseThreadData() noexcept {
  if (g_thread_data_slot != TLS_OUT_OF_INDEXES) TlsFree(g_thread_data_slot);
}

void EndThreadData() noexcept {
  void* data = ThreadData();
  if (data == nullptr) return;
  TlsSetValue(g_thread_data_slot, nullptr);
  g_at_end.load()(data);
}

}  // namespace quarnfc::platform
