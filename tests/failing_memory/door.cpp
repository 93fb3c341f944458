// SPDX-License-Identifier: MIT
#include "tests/failing_memory/door.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace failing {
namespace {

struct Door {
  bool closed = false;
  Refusal refusal = Refusal::kOnce;
  long left = 0;  // requests up to and with the first that is refused
  long refused = 0;
  bool converter_refused = false;
};

constinit thread_local Door t_door;
constinit std::atomic<long> g_live = 0;

}  // namespace

void CloseDoor(long n, Refusal refusal) { t_door = {true, refusal, n}; }

void OpenDoor() { t_door.closed = false; }

DoorAjar::DoorAjar() : was_closed_(t_door.closed) { t_door.closed = false; }

DoorAjar::~DoorAjar() { t_door.closed = was_closed_; }

bool IsRefused() {
  Door& door = t_door;
  if (!door.closed) return false;
  if (door.left > 0) --door.left;
  const bool refused = door.left == 0 && (door.refused == 0 || door.refusal == Refusal::kEver);
  if (refused) ++door.refused;
  return refused;
}

bool ConverterIsRefused() {
  const bool refused = IsRefused();
  t_door.converter_refused = t_door.converter_refused || refused;
  return refused;
}

bool ConverterWasRefused() { return t_door.converter_refused; }

long RefusedCount() { return t_door.refused; }

long LiveBlocks() { return g_live; }

void CountBlock(int change) { g_live += change; }

void* TakeBlock(std::size_t size) {
  void* const block = IsRefused() ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  CountBlock(1);
  return block;
}

void GiveBlock(void* block) noexcept {
  if (block == nullptr) return;
  CountBlock(-1);
  std::free(block);
}

}  // namespace failing

// Nothing in the program asks for more alignment than the plain heap gives; those forms stay the
// run-time's own.
void* operator new(std::size_t size) { return failing::TakeBlock(size); }
void* operator new[](std::size_t size) { return failing::TakeBlock(size); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return failing::TakeBlock(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return operator new(size, tag);
}

void operator delete(void* block) noexcept { failing::GiveBlock(block); }
void operator delete[](void* block) noexcept { failing::GiveBlock(block); }
void operator delete(void* block, std::size_t) noexcept { failing::GiveBlock(block); }
void operator delete[](void* block, std::size_t) noexcept { failing::GiveBlock(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { failing::GiveBlock(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { failing::GiveBlock(block); }
